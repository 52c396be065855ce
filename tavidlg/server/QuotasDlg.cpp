#include "server/QuotasDlg.h"
#include "res/ServerStringIds.h"

#include <QDateTime>

#include "config/AccessLayer.h"
#include "res/StringTable.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <ctime>

namespace {
constexpr unsigned kHelpContext = 2013;
constexpr unsigned kUnknown = IDS_SERVER_UNKNOWN;
constexpr unsigned kUsageFormat = IDS_SERVER_QUOTA_USAGE;

QLabel* makeLabel(const QString& text, const char* name, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    return label;
}
} // namespace

quint32 parseQuotaLimit(const QString& trimmedText)
{
    if (trimmedText.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0)
        return 0;
    quint64 value = 0;
    for (const QChar c : trimmedText) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            break;
        value = qMin<quint64>(value * 10 + quint64(c.unicode() - '0'), 0xFFFFFFFFu);
    }
    return quint32(value);
}

QString quotaCheckedText(quint32 secondsSince1970)
{
    if (secondsSince1970 == 0)
        return TaviString(kUnknown);
    // Local time through Qt (localtime_r is not on every platform), formatted by strftime's "%c" in the
    // time locale the library set at load.
    const QDateTime when = QDateTime::fromSecsSinceEpoch(qint64(secondsSince1970)).toLocalTime();
    if (!when.isValid())
        return TaviString(kUnknown);
    std::tm local = {};
    local.tm_year = when.date().year() - 1900;
    local.tm_mon = when.date().month() - 1;
    local.tm_mday = when.date().day();
    local.tm_wday = when.date().dayOfWeek() % 7;
    local.tm_yday = when.date().dayOfYear() - 1;
    local.tm_hour = when.time().hour();
    local.tm_min = when.time().minute();
    local.tm_sec = when.time().second();
    local.tm_isdst = when.isDaylightTime() ? 1 : 0;
    char buffer[128] = {};
    const std::size_t length = std::strftime(buffer, sizeof buffer, "%c", &local);
    return QString::fromLocal8Bit(buffer, qsizetype(length));
}

CQuotasDlg::CQuotasDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CQuotasDlg"));
    setWindowTitle(tr("Quotas on %1"));

    m_usageLabel = makeLabel(QString(), "lblUsage", this);
    m_usageLabel->setTextFormat(Qt::PlainText);
    m_enabledCheck = new QCheckBox(tr("&Enable quota support"), this);
    m_enabledCheck->setObjectName(QStringLiteral("chkQuotasEnabled"));
    m_copyPostmasterCheck = new QCheckBox(tr("&Copy quota warnings to postmaster"), this);
    m_copyPostmasterCheck->setObjectName(QStringLiteral("chkQuotaCopyPostmaster"));
    m_failPermanentCheck = new QCheckBox(tr("Reject over-quota mail with permanent (522) error"), this);
    m_failPermanentCheck->setObjectName(QStringLiteral("chkQuotaFailPermanent"));
    QLabel* gapLabel = makeLabel(tr("&Interval between quota warnings (days):"), "lblQuotaMinWarningMsgGap", this);
    m_gapEdit = new QLineEdit(this);
    m_gapEdit->setObjectName(QStringLiteral("edtQuotaMinWarningMsgGap"));
    // A numbers-only edit: letters are refused as they are typed, the range is checked at OK.
    m_gapEdit->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,10}")), m_gapEdit));
    m_gapEdit->setMaximumWidth(fontMetrics().averageCharWidth() * 10);
    gapLabel->setBuddy(m_gapEdit);

    QGroupBox* group = buildDefaultQuotaGroup();

    auto* gapRow = new QHBoxLayout;
    gapRow->addWidget(gapLabel, 1);
    gapRow->addWidget(m_gapEdit);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_usageLabel);
    layout->addSpacing(6);
    layout->addWidget(m_enabledCheck);
    layout->addWidget(m_copyPostmasterCheck);
    layout->addWidget(m_failPermanentCheck);
    layout->addLayout(gapRow);
    layout->addWidget(group);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_enabledCheck, m_copyPostmasterCheck);
    setTabOrder(m_copyPostmasterCheck, m_failPermanentCheck);
    setTabOrder(m_failPermanentCheck, m_gapEdit);
    setTabOrder(m_gapEdit, m_limitEdit);
    setTabOrder(m_limitEdit, m_triggerEdit);

    m_dependentControls += {m_copyPostmasterCheck, m_failPermanentCheck, gapLabel, m_gapEdit};
    connect(m_enabledCheck, &QCheckBox::clicked, this, &CQuotasDlg::enableQuotaControls);

    readStored();
}

CQuotasDlg::~CQuotasDlg() = default;

// The default domain quotas: two limits and the note that they only report.
QGroupBox* CQuotasDlg::buildDefaultQuotaGroup()
{
    auto* group = new QGroupBox(tr("Default Domain Quotas"), this);
    group->setObjectName(QStringLiteral("grpDefaultDomainQuotas"));
    QLabel* limitLabel = makeLabel(tr("Default domain &quota limit (kB):"), "lblQuotaDomainDefaultLimit", group);
    m_limitEdit = new QLineEdit(group);
    m_limitEdit->setObjectName(QStringLiteral("edtQuotaDomainDefaultLimit"));
    limitLabel->setBuddy(m_limitEdit);
    QLabel* triggerLabel = makeLabel(tr("Default domain &warning limit (kB):"), "lblQuotaDomainDefaultTrigger", group);
    m_triggerEdit = new QLineEdit(group);
    m_triggerEdit->setObjectName(QStringLiteral("edtQuotaDomainDefaultTrigger"));
    triggerLabel->setBuddy(m_triggerEdit);
    QLabel* note = makeLabel(tr("Values are for reporting purposes only and are not\nautomatically enforced"),
                             "lblReportingOnly", group);
    const int numberWidth = fontMetrics().averageCharWidth() * 14;
    m_limitEdit->setMaximumWidth(numberWidth);
    m_triggerEdit->setMaximumWidth(numberWidth);

    auto* groupGrid = new QGridLayout(group);
    groupGrid->addWidget(limitLabel, 0, 0);
    groupGrid->addWidget(m_limitEdit, 0, 1);
    groupGrid->addWidget(triggerLabel, 1, 0);
    groupGrid->addWidget(m_triggerEdit, 1, 1);
    groupGrid->addWidget(note, 2, 0, 1, 2);
    groupGrid->setColumnStretch(0, 1);
    m_dependentControls += {note, limitLabel, triggerLabel, m_limitEdit, m_triggerEdit};
    return group;
}

// What the dialog reads at construction.
void CQuotasDlg::readStored()
{
    // Read in this order; the three switches read any non-zero value as on.
    ReadServerNumber(server(), nullptr, "QuotaCopyPostmaster", m_copyPostmasterRead, 0);
    ReadServerNumber(server(), nullptr, "QuotasEnabled", m_enabledRead, 0);
    ReadServerNumber(server(), nullptr, "QuotaFailPermanent", m_failPermanentRead, 0);
    ReadServerNumber(server(), nullptr, "QuotaMinWarningMsgGap", m_gapRead, 1);
    ReadServerNumber(server(), nullptr, "QuotaDomainDefaultLimit", m_limitRead, 0);
    ReadServerNumber(server(), nullptr, "QuotaDomainDefaultTrigger", m_triggerRead, 0);
    m_copyPostmaster = m_copyPostmasterRead = m_copyPostmasterRead != 0;
    m_enabled = m_enabledRead = m_enabledRead != 0;
    m_failPermanent = m_failPermanentRead = m_failPermanentRead != 0;
    m_gap = m_gapRead;
    m_limit = m_limitRead;
    m_trigger = m_triggerRead;
}


void CQuotasDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    fillUsageSummary();
    enableQuotaControls(m_enabledRead != 0);
    const auto limitText = [](quint32 v) { return v == 0 ? QStringLiteral("none") : QString::number(v); };
    m_limitEdit->setText(limitText(m_limitRead));
    m_triggerEdit->setText(limitText(m_triggerRead));
}

void CQuotasDlg::fillUsageSummary()
{
    quint32 messages = 0, totalSize = 0, messageSize = 0, lastChecked = 0;
    ReadServerNumber(server(), nullptr, "QuotaSiteNoMsgs", messages, 0);
    ReadServerNumber(server(), nullptr, "QuotaSiteTotSize", totalSize, 0);
    ReadServerNumber(server(), nullptr, "QuotaSiteMsgSize", messageSize, 0); // read, not shown
    ReadServerNumber(server(), nullptr, "QuotaSiteLastChecked", lastChecked, 0);
    const QByteArray format = TaviString(kUsageFormat).replace(QLatin1String("\r\n"), QLatin1String("\n")).toUtf8();
    const QByteArray date = quotaCheckedText(lastChecked).toUtf8();
    m_usageLabel->setText(QString::asprintf(format.constData(), unsigned(totalSize), unsigned(messages), date.constData()));
}

void CQuotasDlg::enableQuotaControls(bool on)
{
    for (QWidget* control : std::as_const(m_dependentControls))
        control->setEnabled(on);
}

bool CQuotasDlg::exchange(bool save)
{
    if (!save) {
        m_enabledCheck->setChecked(m_enabled != 0);
        m_copyPostmasterCheck->setChecked(m_copyPostmaster != 0);
        m_failPermanentCheck->setChecked(m_failPermanent != 0);
        m_gapEdit->setText(QString::number(m_gap));
        return true;
    }
    m_copyPostmaster = m_copyPostmasterCheck->isChecked();
    m_enabled = m_enabledCheck->isChecked();
    m_failPermanent = m_failPermanentCheck->isChecked();
    // Nothing has been written when the interval is refused.
    if (!exchangeNumber(true, m_gapEdit, m_gap, 1, 365))
        return false;

    // Written in this order, each only when it differs from the value as read; failures are silent.
    const auto writeChanged = [this](const char* name, quint32 value, quint32& read) {
        if (value != read && WriteServerNumber(server(), nullptr, name, value))
            read = value;
    };
    writeChanged("QuotaCopyPostmaster", m_copyPostmaster, m_copyPostmasterRead);
    writeChanged("QuotasEnabled", m_enabled, m_enabledRead);
    writeChanged("QuotaFailPermanent", m_failPermanent, m_failPermanentRead);
    writeChanged("QuotaMinWarningMsgGap", m_gap, m_gapRead);
    m_limit = takeLimit(m_limitEdit);
    writeChanged("QuotaDomainDefaultLimit", m_limit, m_limitRead);
    m_trigger = takeLimit(m_triggerEdit);
    writeChanged("QuotaDomainDefaultTrigger", m_trigger, m_triggerRead);
    return true;
}

quint32 CQuotasDlg::takeLimit(QLineEdit* edit)
{
    const QString text = edit->text().trimmed();
    setEditText(edit, text);
    return parseQuotaLimit(text);
}
