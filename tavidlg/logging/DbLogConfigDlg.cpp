#include "logging/DbLogConfigDlg.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/MessageFormat.h"
#include "logging/DbLogConfigConnection.h"
#include "res/DbLogStrings.h"
#include "res/StringTable.h"
#include "security/PropertyWrites.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2118;
constexpr const char* kSection = "DbLog";
constexpr int kMaxRetention = 3650;

QString versionText(int version)
{
    // 150004 is 15.4; before version 10 it was 90624 for 9.6.24.
    if (version >= 100000)
        return QStringLiteral("%1.%2").arg(version / 10000).arg(version % 10000);
    return QStringLiteral("%1.%2.%3").arg(version / 10000).arg(version / 100 % 100).arg(version % 100);
}
} // namespace

CDbLogConfigDlg::CDbLogConfigDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CDbLogConfigDlg"));
    setWindowTitle(QStringLiteral("Database log configuration on %1"));

    m_enabledCheck = new QCheckBox(tr("Also &log events to a database"), this);
    m_enabledCheck->setObjectName(QStringLiteral("chkDbLogEnabled"));

    m_targetGroup = new QGroupBox(tr("Database"), this);
    m_targetGroup->setObjectName(QStringLiteral("grpTarget"));
    m_storeRadio = new QRadioButton(tr("The configuration &store's own database"), m_targetGroup);
    m_storeRadio->setObjectName(QStringLiteral("radStoreDatabase"));
    m_sqliteRadio = new QRadioButton(tr("A separate SQLite &file:"), m_targetGroup);
    m_sqliteRadio->setObjectName(QStringLiteral("radSqliteFile"));
    m_postgresRadio = new QRadioButton(tr("A &PostgreSQL database (connection URI):"), m_targetGroup);
    m_postgresRadio->setObjectName(QStringLiteral("radPostgres"));
    auto* radios = new QButtonGroup(this);
    radios->addButton(m_storeRadio);
    radios->addButton(m_sqliteRadio);
    radios->addButton(m_postgresRadio);
    m_fileEdit = new QLineEdit(m_targetGroup);
    m_fileEdit->setObjectName(QStringLiteral("edtSqliteFile"));
    m_fileEdit->setPlaceholderText(QStringLiteral("/var/lib/velbrook/eventlog.db"));
    m_browseButton = new QPushButton(tr("&Browse..."), m_targetGroup);
    m_browseButton->setObjectName(QStringLiteral("btnBrowse"));
    m_uriEdit = new QLineEdit(m_targetGroup);
    m_uriEdit->setObjectName(QStringLiteral("edtConnectionUri"));
    m_uriEdit->setPlaceholderText(QStringLiteral("postgresql://velbrook@db.example.net/maillog"));
    m_testButton = new QPushButton(tr("&Test Connection"), m_targetGroup);
    m_testButton->setObjectName(QStringLiteral("btnTestConnection"));
    const int indent = style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) + 8;
    auto* grid = new QGridLayout(m_targetGroup);
    grid->addWidget(m_storeRadio, 0, 0, 1, 3);
    grid->addWidget(m_sqliteRadio, 1, 0, 1, 3);
    grid->addWidget(m_fileEdit, 2, 1);
    grid->addWidget(m_browseButton, 2, 2);
    grid->addWidget(m_postgresRadio, 3, 0, 1, 3);
    grid->addWidget(m_uriEdit, 4, 1);
    grid->addWidget(m_testButton, 4, 2);
    grid->setColumnMinimumWidth(0, indent);
    grid->setColumnStretch(1, 1);

    m_retentionSpin = new QSpinBox(this);
    m_retentionSpin->setObjectName(QStringLiteral("spnRetentionDays"));
    m_retentionSpin->setRange(0, kMaxRetention);
    m_retentionSpin->setSuffix(tr(" days"));
    m_retentionSpin->setSpecialValueText(tr("Keep for ever"));
    auto* retentionLabel = new QLabel(tr("&Keep events for:"), this);
    retentionLabel->setBuddy(m_retentionSpin);

    m_eventsGroup = new QGroupBox(tr("Events logged"), this);
    m_eventsGroup->setObjectName(QStringLiteral("grpEvents"));
    const struct {
        quint32 bit;
        const char* name;
        QString text;
    } events[] = {
        {DbLogEvents::Receipt, "chkEventReceipt", tr("Messages &received")},
        {DbLogEvents::Delivery, "chkEventDelivery", tr("Messages &delivered or returned")},
        {DbLogEvents::Rejection, "chkEventRejection", tr("Refused connections, s&enders and recipients")},
        {DbLogEvents::Authentication, "chkEventAuthentication", tr("Logins and failed logi&ns")},
        {DbLogEvents::Security, "chkEventSecurity", tr("Lock&outs, bans and harvest probation")},
        {DbLogEvents::Service, "chkEventService", tr("Ser&vices started and stopped")},
        {DbLogEvents::Configuration, "chkEventConfiguration", tr("Configuration &changes")},
    };
    auto* eventsGrid = new QGridLayout(m_eventsGroup);
    int i = 0;
    for (const auto& e : events) {
        auto* box = new QCheckBox(e.text, m_eventsGroup);
        box->setObjectName(QLatin1String(e.name));
        eventsGrid->addWidget(box, i % 4, i / 4);
        m_eventBoxes.append({box, e.bit});
        ++i;
    }

    auto* retentionRow = new QHBoxLayout;
    retentionRow->addWidget(retentionLabel);
    retentionRow->addWidget(m_retentionSpin);
    retentionRow->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_enabledCheck);
    layout->addWidget(m_targetGroup);
    layout->addLayout(retentionRow);
    layout->addWidget(m_eventsGroup);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    resize(560, sizeHint().height());

    connect(m_enabledCheck, &QCheckBox::toggled, this, &CDbLogConfigDlg::updateControls);
    connect(radios, &QButtonGroup::buttonToggled, this, &CDbLogConfigDlg::updateControls);
    connect(m_browseButton, &QPushButton::clicked, this, &CDbLogConfigDlg::onBrowse);
    connect(m_testButton, &QPushButton::clicked, this, &CDbLogConfigDlg::onTestConnection);
}

CDbLogConfigDlg::~CDbLogConfigDlg() = default;

void CDbLogConfigDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    ReadServerNumber(server(), kSection, "Enabled", m_enabledRead, 0);
    ReadServerNumber(server(), kSection, "Target", m_targetRead, DbLogTarget::StoreDatabase);
    ReadServerString(server(), kSection, "SqliteFile", m_fileRead, kPathBufferSize);
    ReadServerString(server(), kSection, "ConnectionUri", m_uriRead, kCommandBufferSize);
    ReadServerNumber(server(), kSection, "RetentionDays", m_retentionRead, 30);
    ReadServerNumber(server(), kSection, "EventKinds", m_eventsRead, DbLogEvents::All);
    // The local file system can be browsed only when the server runs on this machine.
    m_browseButton->setVisible(IsLocalMachine(server()) != 0);
}

quint32 CDbLogConfigDlg::chosenTarget() const
{
    return m_postgresRadio->isChecked() ? DbLogTarget::Postgres
         : m_sqliteRadio->isChecked()   ? DbLogTarget::SqliteFile
                                        : DbLogTarget::StoreDatabase;
}

void CDbLogConfigDlg::updateControls()
{
    const bool on = m_enabledCheck->isChecked();
    m_targetGroup->setEnabled(on);
    m_retentionSpin->setEnabled(on);
    m_eventsGroup->setEnabled(on);
    const quint32 target = chosenTarget();
    m_fileEdit->setEnabled(target == DbLogTarget::SqliteFile);
    m_browseButton->setEnabled(target == DbLogTarget::SqliteFile);
    m_uriEdit->setEnabled(target == DbLogTarget::Postgres);
    m_testButton->setEnabled(target == DbLogTarget::Postgres);
}

bool CDbLogConfigDlg::exchange(bool save)
{
    if (!save) {
        m_enabledCheck->setChecked(m_enabledRead != 0);
        (m_targetRead == DbLogTarget::Postgres     ? m_postgresRadio
         : m_targetRead == DbLogTarget::SqliteFile ? m_sqliteRadio
                                                   : m_storeRadio)->setChecked(true);
        m_fileEdit->setText(m_fileRead);
        m_uriEdit->setText(m_uriRead);
        m_retentionSpin->setValue(int(qMin<quint32>(m_retentionRead, kMaxRetention)));
        for (const auto& [box, bit] : std::as_const(m_eventBoxes))
            box->setChecked((m_eventsRead & bit) != 0);
        updateControls();
        return true;
    }
    const quint32 enabled = m_enabledCheck->isChecked() ? 1 : 0;
    const quint32 target = chosenTarget();
    quint32 events = m_eventsRead & ~quint32(DbLogEvents::All); // bits this dialog does not show are kept
    for (const auto& [box, bit] : std::as_const(m_eventBoxes))
        events |= box->isChecked() ? bit : 0;
    const QString file = m_fileEdit->text().trimmed();
    const QString uri = m_uriEdit->text().trimmed();
    // What the server will use is checked before anything is written; a log that stays off is not.
    if (enabled) {
        if ((events & DbLogEvents::All) == 0) {
            taviMessageBox(TaviString(IDS_DBLOG_NO_EVENTS), Mb::Ok | Mb::IconExclamation);
            m_eventBoxes.first().first->setFocus();
            return false;
        }
        const bool targetChanged = enabled != m_enabledRead || target != m_targetRead
            || (target == DbLogTarget::SqliteFile && file != m_fileRead)
            || (target == DbLogTarget::Postgres && uri != m_uriRead);
        if (targetChanged && !checkTarget(target))
            return false;
    }
    bool ok = writeChangedNumber(server(), kSection, "Enabled", enabled, m_enabledRead);
    ok = writeChangedNumber(server(), kSection, "Target", target, m_targetRead) && ok;
    ok = writeChangedString(server(), kSection, "SqliteFile", file, m_fileRead) && ok;
    ok = writeChangedString(server(), kSection, "ConnectionUri", uri, m_uriRead) && ok;
    ok = writeChangedNumber(server(), kSection, "RetentionDays", quint32(m_retentionSpin->value()), m_retentionRead) && ok;
    ok = writeChangedNumber(server(), kSection, "EventKinds", events, m_eventsRead) && ok;
    return ok;
}

bool CDbLogConfigDlg::checkTarget(quint32 target)
{
    // A file on another machine cannot be looked at from here; only the form of its path is checked.
    const bool local = IsLocalMachine(server()) != 0;
    if (target == DbLogTarget::SqliteFile) {
        const QString file = m_fileEdit->text().trimmed();
        const QFileInfo info(file);
        QString message;
        if (file.isEmpty() || info.isRelative())
            message = TaviString(IDS_DBLOG_FILE_NOT_ABSOLUTE);
        else if (!local)
            return true;
        else if (info.isDir())
            message = TaviFormat(TaviString(IDS_DBLOG_FILE_IS_FOLDER), {file});
        else if (!info.absoluteDir().exists())
            message = TaviFormat(TaviString(IDS_DBLOG_FILE_NO_FOLDER), {QDir::toNativeSeparators(info.absolutePath())});
        if (message.isEmpty())
            return true;
        taviMessageBox(message, Mb::Ok | Mb::IconExclamation);
        m_fileEdit->setFocus();
        m_fileEdit->selectAll();
        return false;
    }
    if (target == DbLogTarget::Postgres) {
        DbLogConnectionResult result;
        {
            CWaitCursor wait;
            result = testPostgresConnection(m_uriEdit->text(), this);
        }
        if (result.outcome == DbLogConnectionResult::Connected)
            return true;
        if (result.outcome == DbLogConnectionResult::BadUri)
            taviMessageBox(TaviFormat(TaviString(IDS_DBLOG_BAD_URI), {result.detail}), Mb::Ok | Mb::IconExclamation);
        else if (result.outcome == DbLogConnectionResult::Failed)
            taviMessageBox(TaviFormat(TaviString(IDS_DBLOG_CONNECT_FAILED), {result.detail}), Mb::Ok | Mb::IconExclamation);
        m_uriEdit->setFocus();
        m_uriEdit->selectAll();
        return false;
    }
    return true;
}

void CDbLogConfigDlg::onTestConnection()
{
    DbLogConnectionResult result;
    {
        CWaitCursor wait;
        result = testPostgresConnection(m_uriEdit->text(), this);
    }
    switch (result.outcome) {
    case DbLogConnectionResult::Connected:
        taviMessageBox(TaviFormat(TaviString(IDS_DBLOG_CONNECTED), {versionText(result.serverVersion)}),
                       Mb::Ok | Mb::IconInformation);
        break;
    case DbLogConnectionResult::BadUri:
        taviMessageBox(TaviFormat(TaviString(IDS_DBLOG_BAD_URI), {result.detail}), Mb::Ok | Mb::IconExclamation);
        m_uriEdit->setFocus();
        break;
    case DbLogConnectionResult::Failed:
        taviMessageBox(TaviFormat(TaviString(IDS_DBLOG_CONNECT_FAILED), {result.detail}), Mb::Ok | Mb::IconExclamation);
        m_uriEdit->setFocus();
        break;
    case DbLogConnectionResult::Cancelled:
        break;
    }
}

void CDbLogConfigDlg::onBrowse()
{
    CFileDialogRequest request;
    request.save = true;
    request.title = TaviString(IDS_DBLOG_CHOOSE_FILE);
    request.filters = {{TaviString(IDS_DBLOG_FILE_FILTER), QStringLiteral("*.db;*.sqlite")},
                       {TaviString(IDS_DBLOG_ALL_FILTER), QStringLiteral("*")}};
    request.defaultExtension = QStringLiteral("db");
    request.fileName = m_fileEdit->text().trimmed();
    // An existing file is fine: the server adds its table to it.
    request.flags = Ofn::HideReadOnly | Ofn::PathMustExist;
    if (platform().fileDialog(this, request))
        m_fileEdit->setText(QDir::toNativeSeparators(request.fileName));
}
