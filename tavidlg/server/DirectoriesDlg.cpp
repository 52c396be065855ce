#include "server/DirectoriesDlg.h"
#include "res/ServerStringIds.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "res/StringTable.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <climits>

namespace {
constexpr unsigned kHelpContext = 2005;
constexpr unsigned kNetworkDriveRefused = IDS_SERVER_LOCAL_OR_UNC_PATH;
}

CDirectoriesDlg::CDirectoriesDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CDirectoriesDlg"));
    setWindowTitle(tr("Mail directory locations on %1"));

    m_spoolLabel = new QLabel(tr("Mail &spool directory:"), this);
    m_spoolLabel->setObjectName(QStringLiteral("lblMailSpoolDir"));
    m_spoolEdit = new QLineEdit(this);
    m_spoolEdit->setObjectName(QStringLiteral("edtMailSpoolDir"));
    m_spoolEdit->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    m_spoolLabel->setBuddy(m_spoolEdit);
    m_browseButton = new QPushButton(tr("Browse..."), this);
    m_browseButton->setObjectName(QStringLiteral("btnBrowse"));
    m_browseButton->setAutoDefault(false);
    m_keepDeadCheck = new QCheckBox(
        QStringLiteral("Save undeliverable, unreturnable messages in the \"dead\" subdirectory"), this);
    m_keepDeadCheck->setObjectName(QStringLiteral("chkKeepDead"));

    auto* grid = new QGridLayout;
    grid->addWidget(m_spoolLabel, 0, 0, 1, 2);
    grid->addWidget(m_spoolEdit, 1, 0);
    grid->addWidget(m_browseButton, 1, 1);
    grid->addWidget(m_keepDeadCheck, 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_spoolEdit, m_browseButton);
    setTabOrder(m_browseButton, m_keepDeadCheck);
    connect(m_browseButton, &QPushButton::clicked, this, &CDirectoriesDlg::onBrowse);

    // Read once, in this order, each falling back to its default.
    ReadServerNumber(server, nullptr, "RegistryFormatVersion", m_registryFormatVersion, 0);
    ReadServerString(server, nullptr, "MailSpoolDir", m_spoolDirRead, kPathBufferSize);
    ReadServerNumber(server, nullptr, "UndeliverableDsnAction", m_undeliverableDsnActionRead, 0);
    m_spoolDir = m_spoolDirRead;
    // The box shows the inverse of the stored action: 0 keeps the messages.
    m_keepDead = m_undeliverableDsnActionRead == 0;
}

CDirectoriesDlg::~CDirectoriesDlg() = default;

void CDirectoriesDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    CWaitCursor wait;
    // Browsing shows this machine's folders, which mean nothing for a server elsewhere.
    if (!IsLocalMachine(server()))
        m_browseButton->hide();
    else if (!m_browse.Init(this))
        m_browseButton->hide();
}

bool CDirectoriesDlg::exchange(bool save)
{
    if (!save) {
        setEditText(m_spoolEdit, m_spoolDir);
        m_keepDeadCheck->setChecked(m_keepDead);
        return true;
    }
    // Blanks around the path are not part of it.
    m_spoolDir = m_spoolEdit->text().trimmed();
    m_keepDead = m_keepDeadCheck->isChecked();
    if (m_spoolDir.compare(m_spoolDirRead, Qt::CaseInsensitive) != 0) {
        if (IsLocalMachine(server()) && isOnNetworkDrive(m_spoolDir)) {
            taviMessageBox(TaviString(kNetworkDriveRefused), Mb::Ok);
            m_spoolEdit->setFocus();
            return false;
        }
        // A failed write is not reported; the dialog closes with OK all the same.
        if (WriteServerString(server(), nullptr, "MailSpoolDir", m_spoolDir))
            m_spoolDirRead = m_spoolDir;
    }
    // Any non-zero stored action reads as a cleared box, so only a change of the box writes.
    const quint32 action = m_keepDead ? 0 : 1;
    if (m_keepDead != (m_undeliverableDsnActionRead == 0)
        && WriteServerNumber(server(), nullptr, "UndeliverableDsnAction", action))
        m_undeliverableDsnActionRead = action;
    return true;
}

void CDirectoriesDlg::onOK()
{
    const bool spoolChanged = m_spoolEdit->text().trimmed().compare(m_spoolDirRead, Qt::CaseInsensitive) != 0;
    const bool actionChanged = m_keepDeadCheck->isChecked() != (m_undeliverableDsnActionRead == 0);
    // An unchanged OK closes as Cancel so the caller knows nothing was written.
    if (!spoolChanged && !actionChanged) {
        closeAsCancel();
        return;
    }
    if (exchange(true))
        closeAsOK();
}

void CDirectoriesDlg::onBrowse()
{
    QString folder = m_spoolEdit->text();
    if (m_browse.Browse(m_spoolLabel->text(), folder))
        setEditText(m_spoolEdit, folder);
}
