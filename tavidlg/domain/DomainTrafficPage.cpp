#include "domain/DomainTrafficPage.h"

#include "common/PlatformServices.h"
#include "domain/DomainSheet.h"
#include "domain/DomainValues.h"
#include "res/DomainStringIds.h"
#include "res/StringTable.h"
#include "server/QuotasDlg.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <velbrook/DomainStore.h>

namespace {
constexpr unsigned kHelpContext = 2154;

struct Counter {
    const char* property;
    const char* label;
    const char* name;
};
// Shown in this order.
const Counter kCounters[CDomainTrafficPage::CounterCount] = {
    {"RCPTCommands", QT_TRANSLATE_NOOP("CDomainTrafficPage", "RCPT Commands:"), "lblRcptCommands"},
    {"SMTPBytesSent", QT_TRANSLATE_NOOP("CDomainTrafficPage", "SMTP Bytes Sent:"), "lblSmtpBytesSent"},
    {"SMTPBytesReceived", QT_TRANSLATE_NOOP("CDomainTrafficPage", "SMTP Bytes Received:"), "lblSmtpBytesReceived"},
    {"SMTPBytesRelayed", QT_TRANSLATE_NOOP("CDomainTrafficPage", "SMTP Bytes Relayed:"), "lblSmtpBytesRelayed"},
    {"IMAPBytesSent", QT_TRANSLATE_NOOP("CDomainTrafficPage", "IMAP Bytes Sent:"), "lblImapBytesSent"},
    {"IMAPBytesReceived", QT_TRANSLATE_NOOP("CDomainTrafficPage", "IMAP Bytes Received:"), "lblImapBytesReceived"},
    {"POPBytesSent", QT_TRANSLATE_NOOP("CDomainTrafficPage", "POP Bytes Sent:"), "lblPopBytesSent"},
    {"POPBytesReceived", QT_TRANSLATE_NOOP("CDomainTrafficPage", "POP Bytes Received:"), "lblPopBytesReceived"},
};
// Reset writes the counters in this order, after the start date.
const char* const kResetOrder[CDomainTrafficPage::CounterCount] = {
    "RCPTCommands", "SMTPBytesReceived", "SMTPBytesSent", "SMTPBytesRelayed",
    "IMAPBytesSent", "IMAPBytesReceived", "POPBytesSent", "POPBytesReceived"};
} // namespace

CDomainTrafficPage::CDomainTrafficPage(CDomainSheet* sheet) : CTaviPropertyPage(tr("Statistics"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CDomainTrafficPage"));
    setHelpContext(kHelpContext);
    m_sinceLabel = new QLabel(this);
    m_sinceLabel->setObjectName(QStringLiteral("lblStatisticsSince"));
    auto* group = new QGroupBox(tr("Traffic"), this);
    group->setObjectName(QStringLiteral("grpTraffic"));
    auto* grid = new QGridLayout(group);
    for (int i = 0; i < CounterCount; ++i) {
        auto* caption = new QLabel(tr(kCounters[i].label), group);
        m_counterLabels[i] = new QLabel(group);
        m_counterLabels[i]->setObjectName(QLatin1String(kCounters[i].name));
        m_counterLabels[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_counterLabels[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        m_counterLabels[i]->setMinimumWidth(m_counterLabels[i]->fontMetrics().horizontalAdvance(QStringLiteral("-2147483648 ")));
        grid->addWidget(caption, i, 0);
        grid->addWidget(m_counterLabels[i], i, 1);
    }
    grid->setColumnStretch(2, 1);
    m_resetButton = new QPushButton(tr("&Reset"), this);
    m_resetButton->setObjectName(QStringLiteral("btnReset"));
    m_statusLabel = new QLabel(this);
    m_statusLabel->setObjectName(QStringLiteral("lblTrafficStatus"));
    m_statusLabel->setTextFormat(Qt::PlainText);

    auto* top = new QHBoxLayout;
    top->addWidget(m_sinceLabel, 1);
    top->addWidget(m_resetButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(group);
    layout->addSpacing(6);
    layout->addWidget(m_statusLabel);
    layout->addStretch(1);
    connect(m_resetButton, &QPushButton::clicked, this, &CDomainTrafficPage::onReset);
}

CDomainTrafficPage::~CDomainTrafficPage() = default;

void CDomainTrafficPage::onSetActive()
{
    load();
    display();
}

void CDomainTrafficPage::load()
{
    m_sheet->getNumber("QuotaMsgSize", m_messageSize);
    m_sheet->getNumber("QuotaNoMsgs", m_messageCount);
    m_sheet->getNumber("QuotaLastChecked", m_lastVerified);
    if (!m_sheet->getNumber("MailboxCount", m_mailboxCount)) {
        const QByteArray name = m_sheet->resolvedName().toUtf8();
        uint32_t count = 0;
        if (CountMailboxesInDomain(m_sheet->server(), name.constData(), &count))
            m_mailboxCount = count;
    }
    if (m_countersLoaded)
        return;
    m_sheet->getNumber("StatisticsDate", m_statisticsDate);
    for (int i = 0; i < CounterCount; ++i)
        m_sheet->getNumber(kCounters[i].property, m_counters[i]);
    m_countersLoaded = true;
}

void CDomainTrafficPage::display()
{
    const QByteArray format = TaviString(IDS_DOMAIN_STATISTICS_SINCE).toUtf8();
    const QByteArray since = quotaCheckedText(m_statisticsDate).toUtf8();
    m_sinceLabel->setText(QString::asprintf(format.constData(), since.constData()));
    for (int i = 0; i < CounterCount; ++i)
        m_counterLabels[i]->setText(domainCounterText(m_counters[i]));
    m_statusLabel->setText(domainStatusText(m_messageSize, m_messageCount, m_mailboxCount, m_lastVerified));
}

void CDomainTrafficPage::onReset()
{
    // Written at once, without asking and without reports; the sheet's Cancel does not undo it.
    m_sheet->setNumber("StatisticsDate", quint32(platform().currentTime().toSecsSinceEpoch()));
    for (const char* property : kResetOrder)
        m_sheet->setNumber(property, 0);
    m_countersLoaded = false;
    load();
    display();
}
