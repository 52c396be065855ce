#include "server/TrafficCountersDlg.h"
#include "res/ServerStringIds.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/MessageFormat.h"
#include "res/StringTable.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

namespace {
constexpr unsigned kHelpContext = 2069;
constexpr char kSection[] = "Statistics";
constexpr quint32 kThresholdMax = 0xFFFFFFFEu; // the largest unsigned value less one
constexpr unsigned kSaveAsTitle = IDS_SERVER_REPORT_SAVE_AS;
constexpr unsigned kFailedCaption = IDS_SERVER_REPORT_SAVE_FAILED_CAPTION;
constexpr unsigned kSaveFailed = IDS_SERVER_REPORT_SAVE_FAILED;
constexpr unsigned kGenerateFailed = IDS_SERVER_REPORT_GENERATE_FAILED;
constexpr unsigned kCsvFilter = IDS_SERVER_FILTER_CSV;
constexpr unsigned kAllFilesFilter = IDS_SERVER_FILTER_ALL;
constexpr unsigned kGenerating = IDS_SERVER_GENERATING_REPORT;
constexpr unsigned kSaving = IDS_SERVER_SAVING_REPORT;

struct ThresholdControl {
    const char* label;
    const char* name;
};
const ThresholdControl kThresholdControls[CTrafficCountersDlg::ThresholdCount] = {
    {QT_TRANSLATE_NOOP("CTrafficCountersDlg", "RCPT Commands:"), "edtRcptCommands"},
    {QT_TRANSLATE_NOOP("CTrafficCountersDlg", "SMTP Bytes Sent:"), "edtSmtpBytesSent"},
    {QT_TRANSLATE_NOOP("CTrafficCountersDlg", "SMTP Bytes Received:"), "edtSmtpBytesReceived"},
    {QT_TRANSLATE_NOOP("CTrafficCountersDlg", "IMAP Bytes Sent:"), "edtImapBytesSent"},
    {QT_TRANSLATE_NOOP("CTrafficCountersDlg", "IMAP Bytes Received:"), "edtImapBytesReceived"},
    {QT_TRANSLATE_NOOP("CTrafficCountersDlg", "POP Bytes Sent:"), "edtPopBytesSent"},
    {QT_TRANSLATE_NOOP("CTrafficCountersDlg", "POP Bytes Received:"), "edtPopBytesReceived"},
};

// Feeds the report's progress to the progress dialog; false once the person has cancelled.
bool reportProgress(void* context, uint64_t done, uint64_t total)
{
    return static_cast<CProgressReporter*>(context)->setProgress(qint64(done), qint64(total));
}

QLineEdit* numberEdit(const char* name, QWidget* parent)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setMaxLength(10);
    edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * 14);
    return edit;
}
} // namespace

CTrafficCountersDlg::CTrafficCountersDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CTrafficCountersDlg"));
    setWindowTitle(tr("Traffic Counters on %1"));

    QGroupBox* settings = buildSettingsGroup();
    QGroupBox* report = buildReportGroup();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(settings);
    layout->addWidget(report);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_enabledCheck, m_domainResetEdit);
    setTabOrder(m_domainResetEdit, m_mailboxResetEdit);
    QWidget* previous = m_mailboxResetEdit;
    for (QLineEdit* edit : m_thresholdEdits) {
        setTabOrder(previous, edit);
        previous = edit;
    }
    setTabOrder(previous, m_saveReportButton);
    connect(m_enabledCheck, &QCheckBox::clicked, this, &CTrafficCountersDlg::onEnabledClicked);
    connect(m_saveReportButton, &QPushButton::clicked, this, &CTrafficCountersDlg::onSaveReport);

    readStored();
}

// The counters' switch and the two auto-reset intervals.
QGroupBox* CTrafficCountersDlg::buildSettingsGroup()
{
    auto* settings = new QGroupBox(tr("Settings"), this);
    settings->setObjectName(QStringLiteral("grpSettings"));
    m_enabledCheck = new QCheckBox(tr("Enable Traffic Counters"), settings);
    m_enabledCheck->setObjectName(QStringLiteral("chkEnabled"));
    auto* domainLabel = new QLabel(tr("Domain Auto Reset (s):"), settings);
    m_domainResetEdit = numberEdit("edtDomainAutoReset", settings);
    domainLabel->setBuddy(m_domainResetEdit);
    auto* mailboxLabel = new QLabel(tr("Mailbox Auto Reset (s):"), settings);
    m_mailboxResetEdit = numberEdit("edtMailboxAutoReset", settings);
    mailboxLabel->setBuddy(m_mailboxResetEdit);
    auto* settingsGrid = new QGridLayout(settings);
    settingsGrid->addWidget(m_enabledCheck, 0, 0, 1, 2);
    settingsGrid->addWidget(domainLabel, 1, 0);
    settingsGrid->addWidget(m_domainResetEdit, 1, 1);
    settingsGrid->addWidget(mailboxLabel, 2, 0);
    settingsGrid->addWidget(m_mailboxResetEdit, 2, 1);
    settingsGrid->setColumnStretch(2, 1);
    return settings;
}

// The report's thresholds and its Save button.
QGroupBox* CTrafficCountersDlg::buildReportGroup()
{
    auto* report = new QGroupBox(tr("Report"), this);
    report->setObjectName(QStringLiteral("grpReport"));
    auto* intro = new QLabel(tr("List all mailboxes whose traffic counters are greater than \nthe following values"), report);
    intro->setObjectName(QStringLiteral("lblReportIntro"));
    auto* reportGrid = new QGridLayout(report);
    reportGrid->addWidget(intro, 0, 0, 1, 5);
    for (int i = 0; i < ThresholdCount; ++i) {
        auto* label = new QLabel(tr(kThresholdControls[i].label), report);
        m_thresholdEdits[i] = numberEdit(kThresholdControls[i].name, report);
        label->setBuddy(m_thresholdEdits[i]);
        // RCPT on a row of its own, then sent and received side by side.
        const int row = 1 + (i + 1) / 2;
        const int column = i == 0 ? 0 : ((i + 1) % 2) * 3;
        reportGrid->addWidget(label, row, column);
        reportGrid->addWidget(m_thresholdEdits[i], row, column + 1);
    }
    reportGrid->setColumnMinimumWidth(2, fontMetrics().averageCharWidth() * 3);
    reportGrid->setColumnStretch(2, 1);
    m_saveReportButton = new QPushButton(tr("Save Report..."), report);
    m_saveReportButton->setObjectName(QStringLiteral("btnSaveReport"));
    m_saveReportButton->setAutoDefault(false);
    auto* saveRow = new QHBoxLayout;
    saveRow->addStretch(1);
    saveRow->addWidget(m_saveReportButton);
    reportGrid->addLayout(saveRow, 5, 0, 1, 5);
    return report;
}

// What the dialog reads at construction.
void CTrafficCountersDlg::readStored()
{
    quint32 enabled = 0;
    ReadServerNumber(server(), kSection, "DomainAutoReset", m_domainResetRead, 0);
    ReadServerNumber(server(), kSection, "MailboxAutoReset", m_mailboxResetRead, 0);
    // Unreadable reads as off; only the exact value 0xFFFFFFFF is on, so a stored 1 shows off.
    m_enabledRead = ReadServerNumber(server(), kSection, "Enabled", enabled, 0) && enabled == kTrafficCountersOn;
    m_domainReset = m_domainResetRead;
    m_mailboxReset = m_mailboxResetRead;
    m_enabled = m_enabledRead;
}

CTrafficCountersDlg::~CTrafficCountersDlg() = default;

void CTrafficCountersDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    m_saveReportButton->setEnabled(m_enabledRead);
}

bool CTrafficCountersDlg::exchange(bool save)
{
    if (!save)
        m_enabledCheck->setChecked(m_enabled);
    else
        m_enabled = m_enabledCheck->isChecked();
    if (!exchangeNumber(save, m_domainResetEdit, m_domainReset, 0, 0xFFFFFFFFu)
        || !exchangeNumber(save, m_mailboxResetEdit, m_mailboxReset, 0, 0xFFFFFFFFu))
        return false;
    for (int i = 0; i < ThresholdCount; ++i) {
        if (!exchangeNumber(save, m_thresholdEdits[i], m_thresholds[i], 0, kThresholdMax))
            return false;
    }
    return true;
}

void CTrafficCountersDlg::onOK()
{
    if (!exchange(true))
        return;
    // Written in this order, each only when changed; a failed write is silent and OK closes anyway.
    const quint32 enabled = m_enabled ? kTrafficCountersOn : 0;
    if (m_enabled != m_enabledRead && WriteServerNumber(server(), kSection, "Enabled", enabled))
        m_enabledRead = m_enabled;
    if (m_mailboxReset != m_mailboxResetRead && WriteServerNumber(server(), kSection, "MailboxAutoReset", m_mailboxReset))
        m_mailboxResetRead = m_mailboxReset;
    if (m_domainReset != m_domainResetRead && WriteServerNumber(server(), kSection, "DomainAutoReset", m_domainReset))
        m_domainResetRead = m_domainReset;
    closeAsOK();
}

void CTrafficCountersDlg::onEnabledClicked()
{
    exchange(true);
    // A report can be saved as soon as the box is checked, before anything is written.
    m_saveReportButton->setEnabled(m_enabledCheck->isChecked());
}

_tTrafficStatistics CTrafficCountersDlg::thresholdsRecord() const
{
    _tTrafficStatistics record = {};
    record.rcptCommands = m_thresholds[RcptCommands];
    record.smtpBytesReceived = m_thresholds[SmtpBytesReceived];
    record.smtpBytesSent = m_thresholds[SmtpBytesSent];
    record.imapBytesSent = m_thresholds[ImapBytesSent];
    record.imapBytesReceived = m_thresholds[ImapBytesReceived];
    record.popBytesSent = m_thresholds[PopBytesSent];
    record.popBytesReceived = m_thresholds[PopBytesReceived];
    return record;
}

void CTrafficCountersDlg::onSaveReport()
{
    if (!exchange(true))
        return;
    CTrafficReport report(server());
    const auto failed = [](const QString& text) {
        taviMessageBox(text, Mb::Ok | Mb::IconExclamation, TaviString(kFailedCaption));
    };
    bool done = false;
    uint32_t error = 0;
    {
        CWaitCursor wait;
        const std::unique_ptr<CProgressReporter> progress = platform().beginProgress(this, TaviString(kGenerating));
        report.SetProgress(reportProgress, progress.get());
        done = report.Generate("", thresholdsRecord());
        error = GetLastError();
        report.SetProgress(nullptr, nullptr);
    }
    // A report the person cancelled in the progress dialog is not a failure to tell them about.
    if (!done) {
        if (error != VB_ERROR_CANCELLED)
            failed(TaviFormat(TaviString(kGenerateFailed), {QString::number(qint32(error))}));
        return;
    }

    CFileDialogRequest request;
    request.save = true;
    request.title = TaviString(kSaveAsTitle);
    request.filters = {{TaviString(kCsvFilter), QStringLiteral("*.CSV")},
                       {TaviString(kAllFilesFilter), QStringLiteral("*.*")}};
    request.filterIndex = 0;
    request.defaultExtension = QStringLiteral(".csv");
    request.flags = Ofn::HideReadOnly | Ofn::PathMustExist;
    if (!platform().fileDialog(this, request))
        return;

    {
        CWaitCursor wait;
        const std::unique_ptr<CProgressReporter> progress = platform().beginProgress(this, TaviString(kSaving));
        report.SetProgress(reportProgress, progress.get());
        done = report.Save(QFile::encodeName(request.fileName).constData());
        error = GetLastError();
        report.SetProgress(nullptr, nullptr);
    }
    if (!done && error != VB_ERROR_CANCELLED)
        failed(TaviFormat(TaviString(kSaveFailed), {request.fileName, QString::number(qint32(error))}));
}
