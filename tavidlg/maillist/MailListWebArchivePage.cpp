#include "maillist/MailListWebArchivePage.h"

#include "common/PlatformServices.h"
#include "maillist/MailListPages_p.h"
#include "res/MailListStringIds.h"
#include "res/StringTable.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

CMailListWebArchivePage::CMailListWebArchivePage(CMailListSheet* sheet) : CMailListPage(sheet, tr("Web Archive"))
{
    setObjectName(QStringLiteral("CMailListWebArchivePage"));
    setHelpContext(0x2807);
    m_enabled = new QCheckBox(tr("&Keep a web archive of this list's messages"), this);
    m_enabled->setObjectName(QStringLiteral("chkWebArchive"));
    m_directory = namedControl<QLineEdit>(this, "edtWebArchiveDir");
    m_browse = new QPushButton(tr("B&rowse..."), this);
    m_browse->setObjectName(QStringLiteral("btnBrowse"));
    m_browse->setVisible(platform().canPickFolder());
    auto* retention = numberBox(this, "spnWebArchiveRetention", 36500, tr(" days"));
    retention->setSpecialValueText(tr("Keep for ever"));
    auto* row = new QHBoxLayout;
    row->addWidget(m_directory, 1);
    row->addWidget(m_browse);
    auto* form = new QFormLayout(this);
    form->addRow(m_enabled);
    form->addRow(buddyLabel(tr("Archive &directory:"), m_directory), row);
    form->addRow(buddyLabel(tr("Remove messages &older than:"), retention), retention);
    bindFlag(m_enabled, "WebArchive");
    bindText(m_directory, "WebArchiveDir");
    bindNumber(retention, "WebArchiveRetention");
    connect(m_enabled, &QCheckBox::toggled, this, &CMailListWebArchivePage::updateEnabling);
    connect(m_browse, &QPushButton::clicked, this, [this] {
        QString folder = m_directory->text().trimmed();
        if (platform().pickFolder(this, tr("Web archive directory"), folder)) {
            m_directory->setText(folder);
            setModified(true);
        }
    });
}

void CMailListWebArchivePage::updateEnabling()
{
    m_directory->setEnabled(m_enabled->isChecked());
    m_browse->setEnabled(m_enabled->isChecked());
}

void CMailListWebArchivePage::onSetActive()
{
    updateEnabling();
}

bool CMailListWebArchivePage::onKillActive()
{
    updateEnabling();
    // An archive needs a place to live.
    if (m_enabled->isChecked() && m_directory->text().trimmed().isEmpty()) {
        m_directory->setFocus();
        taviMessageBox(TaviString(IDS_MAILLIST_ARCHIVE_DIR_NEEDED), Mb::Ok | Mb::IconExclamation);
        return false;
    }
    return true;
}
