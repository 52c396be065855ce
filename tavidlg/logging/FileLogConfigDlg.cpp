#include "logging/FileLogConfigDlg.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2047;
}

CFileLogConfigDlg::CFileLogConfigDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CFileLogConfigDlg"));
    setWindowTitle(tr("File log configuration on %1"));

    m_dirLabel = new QLabel(tr("&Log file directory:"), this);
    m_dirLabel->setObjectName(QStringLiteral("lblMailLogDir"));
    m_dirEdit = new QLineEdit(this);
    m_dirEdit->setObjectName(QStringLiteral("edtMailLogDir"));
    m_dirEdit->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    m_dirLabel->setBuddy(m_dirEdit);
    m_browseButton = new QPushButton(tr("Browse..."), this);
    m_browseButton->setObjectName(QStringLiteral("btnBrowse"));
    m_browseButton->setAutoDefault(false);

    auto* grid = new QGridLayout;
    grid->addWidget(m_dirLabel, 0, 0, 1, 2);
    grid->addWidget(m_dirEdit, 1, 0);
    grid->addWidget(m_browseButton, 1, 1);
    grid->setColumnStretch(0, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_dirEdit, m_browseButton);
    connect(m_browseButton, &QPushButton::clicked, this, &CFileLogConfigDlg::onBrowse);

    ReadServerString(server, nullptr, "MailLogDir", m_dirRead, kPathBufferSize);
    m_dir = m_dirRead;
}

CFileLogConfigDlg::~CFileLogConfigDlg() = default;

void CFileLogConfigDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    CWaitCursor wait;
    // This machine's folders mean nothing for a server elsewhere.
    if (!IsLocalMachine(server()) || !m_browse.Init(this))
        m_browseButton->hide();
}

bool CFileLogConfigDlg::exchange(bool save)
{
    if (!save) {
        setEditText(m_dirEdit, m_dir);
        return true;
    }
    // Taken as typed, blanks included; a change of letter case only is not a change. Unlike the mail
    // spool, a network drive is accepted, and a failed write is not reported: OK closes either way.
    m_dir = m_dirEdit->text();
    if (m_dir.compare(m_dirRead, Qt::CaseInsensitive) != 0 && WriteServerString(server(), nullptr, "MailLogDir", m_dir))
        m_dirRead = m_dir;
    return true;
}

void CFileLogConfigDlg::onBrowse()
{
    QString folder = m_dirEdit->text();
    if (m_browse.Browse(m_dirLabel->text(), folder))
        setEditText(m_dirEdit, folder);
}
