#include "common/BrowseForDir.h"

#include "common/PlatformServices.h"

bool CBrowseForDir::Init(QWidget* owner)
{
    m_owner = owner;
    m_available = platform().canPickFolder();
    return m_available;
}

bool CBrowseForDir::Browse(const QString& title, QString& folder)
{
    if (!m_available)
        return false;
    m_initialFolder = folder;
    QString chosen = m_initialFolder;
    if (!platform().pickFolder(m_owner, title, chosen) || chosen.isEmpty())
        return false;
    folder = chosen;
    return true;
}
