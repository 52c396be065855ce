#include "common/ListManager.h"

#include "common/PlatformServices.h"
#include "res/ListStringIds.h"
#include "res/StringTable.h"

#include <QRegularExpression>

#include <velbrook/MailToolkit.h>

CListManager::CListManager(const QString& title) : m_title(title) {}

CListManager::~CListManager() = default;

bool CListManager::selectList(const QString& name)
{
    if (!m_known.contains(name)) {
        SetLastError(VB_ERROR_FILE_NOT_FOUND);
        return false;
    }
    m_selected = name;
    return true;
}

QString CListManager::title() const
{
    return m_title;
}

QStringList CListManager::knownLists() const
{
    return m_known;
}

bool CListManager::determineKnownLists(const QString& name)
{
    Q_UNUSED(name); // every list of the owner is named by the same property
    if (!m_known.isEmpty())
        return true;
    QString names;
    while (!readListNames(names)) {
        if (taviMessageBox(TaviString(IDS_LIST_UNKNOWN_LISTS), Mb::RetryCancel | Mb::IconExclamation) != Id::Retry)
            return false;
    }
    static const QRegularExpression separators(QStringLiteral("[, ;]"));
    const QStringList pieces = names.split(separators, Qt::SkipEmptyParts);
    for (const QString& piece : pieces)
        m_known.append(piece);
    return true;
}
