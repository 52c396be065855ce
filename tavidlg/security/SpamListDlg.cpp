#include "security/SpamListDlg.h"

#include "security/SecurityAntiSpamPage.h"
#include "security/StringListEdit.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2044;
}

CSpamListDlg::CSpamListDlg(QWidget* parent, _tMailServer* server, const QStringList& entries)
    : CTaviDialog(parent, server), m_entries(entries)
{
    setObjectName(QStringLiteral("CSpamListDlg"));
    setWindowTitle(tr("Spam Sources on %1"));
    auto* intro = new QLabel(tr("Mail is refused from these hosts and IP addresses. Use * as a wildcard "
                                "(*.bulk.example, 198.51.100.*); a leading ! exempts an entry from the "
                                "patterns after it. Host names need DNS lookups of connecting servers."),
                             this);
    intro->setObjectName(QStringLiteral("lblIntro"));
    intro->setWordWrap(true);
    m_list = new CStringListEdit(QStringLiteral("SpamSources"), this);
    m_list->setCheck(checkSpamSource);
    m_list->setPlaceholderText(tr("host name or IP address pattern"));
    m_list->setMinimumHeight(fontMetrics().height() * 14);
    m_summary = new QLabel(this);
    m_summary->setObjectName(QStringLiteral("lblSummary"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_summary);
    layout->addWidget(createButtonBox(true));
    connect(m_list, &CStringListEdit::changed, this, &CSpamListDlg::updateSummary);
    resize(460, sizeHint().height());
}

CSpamListDlg::~CSpamListDlg() = default;

void CSpamListDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
}

bool CSpamListDlg::exchange(bool save)
{
    if (!save) {
        m_list->setEntries(m_entries);
        updateSummary();
        return true;
    }
    m_entries = m_list->entries();
    return true;
}

void CSpamListDlg::updateSummary()
{
    int hosts = 0;
    const QStringList entries = m_list->entries();
    for (const QString& e : entries)
        hosts += isHostNameEntry(e) ? 1 : 0;
    m_summary->setText(tr("%1 host names, %2 IP address patterns").arg(hosts).arg(entries.size() - hosts));
}
