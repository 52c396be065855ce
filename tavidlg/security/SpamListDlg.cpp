#include "security/SpamListDlg.h"

#include "common/PlatformServices.h"
#include "config/MessageFormat.h"
#include "res/SecurityStrings.h"
#include "res/StringTable.h"
#include "security/SecurityAntiSpamPage.h"
#include "security/StringListEdit.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRegularExpression>
#include <QSaveFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2114;
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
    auto* importButton = new QPushButton(tr("&Import..."), this);
    importButton->setObjectName(QStringLiteral("btnImport"));
    auto* exportButton = new QPushButton(tr("E&xport..."), this);
    exportButton->setObjectName(QStringLiteral("btnExport"));
    auto* summaryRow = new QHBoxLayout;
    summaryRow->addWidget(m_summary, 1);
    summaryRow->addWidget(importButton);
    summaryRow->addWidget(exportButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(m_list, 1);
    layout->addLayout(summaryRow);
    layout->addWidget(createButtonBox(true));
    connect(m_list, &CStringListEdit::changed, this, &CSpamListDlg::updateSummary);
    connect(importButton, &QPushButton::clicked, this, &CSpamListDlg::onImport);
    connect(exportButton, &QPushButton::clicked, this, &CSpamListDlg::onExport);
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

namespace {
CFileDialogRequest textFileRequest(bool save)
{
    CFileDialogRequest request;
    request.save = save;
    request.filters = {{TaviString(IDS_SEC_SPAM_FILTER_TEXT), QStringLiteral("*.txt")},
                       {TaviString(IDS_SEC_TLS_FILTER_ALL), QStringLiteral("*")}};
    request.defaultExtension = QStringLiteral("txt");
    request.flags = Ofn::HideReadOnly | (save ? Ofn::OverwritePrompt : Ofn::FileMustExist);
    return request;
}
} // namespace

// Entries separated by line ends, commas or blanks; a line starting with "#" is a comment. What is
// already listed is skipped; entries that are neither host names nor address patterns are counted and
// reported once.
void CSpamListDlg::onImport()
{
    CFileDialogRequest request = textFileRequest(false);
    if (!platform().fileDialog(this, request))
        return;
    QFile file(request.fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        taviMessageBox(TaviFormat(TaviString(IDS_SEC_SPAM_READ_FAILED), {request.fileName, file.errorString()}),
                       Mb::Ok | Mb::IconExclamation);
        return;
    }
    static const QRegularExpression separators(QStringLiteral("[,\\s]+"));
    int refused = 0;
    {
        CWaitCursor wait;
        QStringList entries;
        while (!file.atEnd()) {
            const QString line = QString::fromUtf8(file.readLine()).trimmed();
            if (!line.startsWith(QLatin1Char('#')))
                entries += line.split(separators, Qt::SkipEmptyParts);
        }
        m_list->appendEntries(entries, &refused);
    }
    if (refused > 0)
        taviMessageBox(TaviFormat(TaviString(IDS_SEC_SPAM_IMPORT_REFUSED), {QString::number(refused)}),
                       Mb::Ok | Mb::IconExclamation);
}

// One entry per line, written whole or not at all.
void CSpamListDlg::onExport()
{
    CFileDialogRequest request = textFileRequest(true);
    if (!platform().fileDialog(this, request))
        return;
    QSaveFile file(request.fileName);
    bool ok = file.open(QIODevice::WriteOnly | QIODevice::Text);
    for (const QString& entry : m_list->entries()) {
        if (!ok)
            break;
        ok = file.write(entry.toUtf8() + '\n') >= 0;
    }
    if (!ok || !file.commit())
        taviMessageBox(TaviFormat(TaviString(IDS_SEC_SPAM_WRITE_FAILED), {request.fileName, file.errorString()}),
                       Mb::Ok | Mb::IconExclamation);
}
