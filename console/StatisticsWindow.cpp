#include "StatisticsWindow.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStatistics.h>

#include <vector>

namespace {

// The traffic counters' labels, in the order of the store's totals; the first counts commands, the rest
// bytes.
const char* const kTrafficLabels[7] = {
    QT_TRANSLATE_NOOP("StatisticsWindow", "RCPT commands:"),
    QT_TRANSLATE_NOOP("StatisticsWindow", "SMTP received:"),
    QT_TRANSLATE_NOOP("StatisticsWindow", "SMTP sent:"),
    QT_TRANSLATE_NOOP("StatisticsWindow", "IMAP sent:"),
    QT_TRANSLATE_NOOP("StatisticsWindow", "IMAP received:"),
    QT_TRANSLATE_NOOP("StatisticsWindow", "POP sent:"),
    QT_TRANSLATE_NOOP("StatisticsWindow", "POP received:"),
};
const char* const kTrafficNames[7] = {"lblRcptCommands", "lblSmtpReceived", "lblSmtpSent", "lblImapSent",
                                      "lblImapReceived", "lblPopSent", "lblPopReceived"};

QString count(uint64_t n) { return QLocale().toString(qulonglong(n)); }

} // namespace

StatisticsWindow::StatisticsWindow(_tMailServer* server, QWidget* parent) : QDialog(parent), m_server(server)
{
    setObjectName(QStringLiteral("StatisticsWindow"));
    setWindowTitle(tr("Mail Server Statistics"));
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;

    auto* objects = new QGroupBox(tr("Configuration"), this);
    auto* objectsForm = new QFormLayout(objects);
    m_domains = addValue(objectsForm, tr("Domains:"), "lblDomains");
    m_mailboxes = addValue(objectsForm, tr("Mailboxes:"), "lblMailboxes");
    m_lists = addValue(objectsForm, tr("Mailing lists:"), "lblMailingLists");
    objectsForm->addItem(new QSpacerItem(0, 8));
    m_limited = addValue(objectsForm, tr("Mailboxes with a quota:"), "lblQuotaLimited");
    m_over = addValue(objectsForm, tr("Over quota:"), "lblOverQuota");
    m_near = addValue(objectsForm, tr("Near quota:"), "lblNearQuota");
    top->addWidget(objects, 1);

    auto* traffic = new QGroupBox(tr("Traffic of all mailboxes"), this);
    auto* trafficForm = new QFormLayout(traffic);
    for (int i = 0; i < 7; ++i)
        m_traffic.append(addValue(trafficForm, tr(kTrafficLabels[i]), kTrafficNames[i]));
    top->addWidget(traffic, 1);
    layout->addLayout(top);

    auto* largestLabel = new QLabel(tr("&Largest mailboxes:"), this);
    m_largest = new QTreeWidget(this);
    m_largest->setObjectName(QStringLiteral("lstLargest"));
    m_largest->setRootIsDecorated(false);
    m_largest->setUniformRowHeights(true);
    m_largest->setHeaderLabels({tr("Mailbox"), tr("Size (kB)"), tr("Messages")});
    m_largest->header()->setStretchLastSection(false);
    m_largest->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_largest->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_largest->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    largestLabel->setBuddy(m_largest);
    layout->addWidget(largestLabel);
    layout->addWidget(m_largest, 1);

    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("lblStatisticsStatus"));
    m_status->setWordWrap(true);
    layout->addWidget(m_status);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* refreshButton = buttons->addButton(tr("&Refresh"), QDialogButtonBox::ActionRole);
    refreshButton->setObjectName(QStringLiteral("btnRefresh"));
    buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("btnClose"));
    connect(refreshButton, &QPushButton::clicked, this, &StatisticsWindow::refresh);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(640, 520);
    refresh();
}

QLabel* StatisticsWindow::addValue(QFormLayout* form, const QString& label, const char* objectName)
{
    auto* value = new QLabel(form->parentWidget());
    value->setObjectName(QString::fromLatin1(objectName));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form->addRow(label, value);
    return value;
}

void StatisticsWindow::showFailure(const QList<QLabel*>& fields)
{
    const uint32_t code = GetLastError();
    for (QLabel* field : fields)
        field->setText(tr("unavailable"));
    char text[256] = {};
    VbErrorText(code, text, sizeof text);
    const QString line = tr("A statistic could not be read: %1 (error %2).")
                             .arg(QString::fromUtf8(text, qsizetype(qstrnlen(text, sizeof text))))
                             .arg(code);
    if (!m_status->text().contains(line))
        m_status->setText(m_status->text().isEmpty() ? line : m_status->text() + QLatin1Char('\n') + line);
}

bool StatisticsWindow::refresh()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QElapsedTimer timer;
    timer.start();
    m_status->clear();
    bool ok = true;
    _tServerObjectCounts counts{};
    if (VbCountServerObjects(m_server, &counts)) {
        m_domains->setText(count(counts.domains));
        m_mailboxes->setText(count(counts.mailboxes));
        m_lists->setText(count(counts.mailingLists));
    } else {
        ok = false;
        showFailure({m_domains, m_mailboxes, m_lists});
    }
    _tQuotaSummary quotas{};
    if (VbSummariseQuotas(m_server, &quotas)) {
        m_limited->setText(count(quotas.limited));
        m_over->setText(count(quotas.overQuota));
        m_near->setText(count(quotas.nearQuota));
    } else {
        ok = false;
        showFailure({m_limited, m_over, m_near});
    }
    uint64_t totals[7] = {};
    if (VbTotalTraffic(m_server, totals)) {
        m_traffic[0]->setText(count(totals[0]));
        for (int i = 1; i < 7; ++i)
            m_traffic[i]->setText(QLocale().formattedDataSize(qint64(totals[i])));
    } else {
        ok = false;
        showFailure(m_traffic);
    }
    m_largest->clear();
    std::vector<_tMailboxUsage> rows(kLargest);
    uint32_t found = kLargest;
    if (VbLargestMailboxes(m_server, rows.data(), &found)) {
        for (uint32_t i = 0; i < found; ++i) {
            auto* item = new QTreeWidgetItem(m_largest, {QString::fromUtf8(rows[i].address), count(rows[i].sizeKb),
                                                         count(rows[i].messages)});
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        }
    } else {
        ok = false;
        showFailure({});
    }
    if (ok)
        m_status->setText(tr("Computed by the store in %1 ms.").arg(timer.elapsed()));
    QApplication::restoreOverrideCursor();
    return ok;
}
