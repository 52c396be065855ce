#include "maillist/MailListSheet.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "maillist/MailListDigestPage.h"
#include "maillist/MailListGeneralPage.h"
#include "maillist/MailListMembersPage.h"
#include "maillist/MailListMessagesPage.h"
#include "maillist/MailListPluginConfigPage.h"
#include "maillist/MailListScriptPage.h"
#include "maillist/MailListSecurityPage.h"
#include "maillist/MailListWebArchivePage.h"
#include "res/MailListStringIds.h"
#include "res/StringTable.h"

#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include <velbrook/DomainStore.h>

namespace {

constexpr uint32_t kStringBufferSize = 512;
const QLatin1String kDigestSuffix("-digest");

QString displayLocalPart(const QByteArray& list)
{
    char buffer[600] = {};
    uint32_t size = sizeof buffer;
    if (ConvertLocalPart(list.constData(), buffer, &size))
        return QString::fromUtf8(buffer);
    return QString::fromUtf8(list);
}

} // namespace

CMailListSheet::CMailListSheet(QWidget* parent, _tMailServer* server, const char* domain, const char* list)
    : CTaviPropertySheet(QString(), parent, server), m_listName8(list ? list : ""), m_domainName8(domain ? domain : "")
{
    setObjectName(QStringLiteral("CMailListSheet"));
    m_listName = QString::fromUtf8(m_listName8);
    m_domainName = QString::fromUtf8(m_domainName8);
}

CMailListSheet::~CMailListSheet()
{
    closeList();
}

void CMailListSheet::closeList()
{
    if (m_list)
        CloseMailingList(m_list);
    m_list = nullptr;
}

bool CMailListSheet::isDigestName(const QString& name)
{
    return name.size() > kDigestSuffix.size() && name.endsWith(kDigestSuffix, Qt::CaseInsensitive);
}

bool CMailListSheet::isDigestList() const
{
    return isDigestName(m_listName);
}

bool CMailListSheet::hasDigestList() const
{
    // The digest list is opened and closed again at once, only to learn that it exists.
    const QByteArray digest = m_listName8 + QByteArray(kDigestSuffix.data(), kDigestSuffix.size());
    _tMailingList* l = OpenMailingList(server(), digest.constData(), m_domainName8.constData());
    if (!l)
        return false;
    CloseMailingList(l);
    return true;
}

bool CMailListSheet::openList()
{
    if (m_domainName8.isEmpty()) {
        char name[257] = {};
        if (GetDefaultDomainName(server(), name, sizeof name))
            m_domainName8 = QByteArray(name, int(qstrnlen(name, sizeof name)));
        m_domainName = QString::fromUtf8(m_domainName8);
    }
    m_displayName = displayLocalPart(m_listName8) + QLatin1Char('@') + m_domainName;
    m_list = OpenMailingList(server(), m_listName8.constData(), m_domainName8.constData());
    if (!m_list) {
        ReportErrorFormat1(GetLastError(), IDS_MAILLIST_CANNOT_OPEN, m_displayName);
        return false;
    }
    m_pluginInfo = {};
    m_pluginInfo.cbSize = sizeof m_pluginInfo;
    if (!GetMailingListPluginInfo(m_list, &m_pluginInfo)) {
        ReportErrorFormat1(GetLastError(), IDS_MAILLIST_NO_PLUGIN_INFO, m_displayName);
        closeList();
        return false;
    }
    ReadServerNumber(server(), nullptr, "RegistryFormatVersion", m_formatVersion, 0);

    addPage(new CMailListGeneralPage(this));
    if (m_formatVersion >= 2) {
        addPage(new CMailListMessagesPage(this));
        addPage(new CMailListSecurityPage(this));
        addPage(new CMailListDigestPage(this, isDigestList() ? tr("Digest") : tr("Moderator Digest")));
    }
    if (m_pluginInfo.kind != 2)
        addPage(new CMailListMembersPage(this));
    if (m_formatVersion >= 2) {
        addPage(new CMailListScriptPage(this));
        if (m_pluginInfo.configTemplate != 0)
            addPage(new CMailListPluginConfigPage(this));
    }
    addPage(new CMailListWebArchivePage(this));

    // Wide enough to show every tab without scrolling.
    setMinimumWidth(qMax(560, tabs()->tabBar()->sizeHint().width() + 40));
    // The title is the plug-in's title, a space and the list's display name.
    const QString title = QString::fromUtf8(m_pluginInfo.title, int(qstrnlen(m_pluginInfo.title, sizeof m_pluginInfo.title)));
    setWindowTitle(title.left(128) + QLatin1Char(' ') + m_displayName);
    // Runs after the base's own handling of Apply Now.
    connect(applyButton(), &QPushButton::clicked, this, &CMailListSheet::afterApply);
    return true;
}

void CMailListSheet::initSheet() {}

void CMailListSheet::afterApply()
{
    // Apply Now stays enabled only when some page refused or failed to apply.
    if (applyButton()->isEnabled())
        return;
    closeList();
    m_list = OpenMailingList(server(), m_listName8.constData(), m_domainName8.constData());
    if (!m_list) {
        ReportErrorFormat1(GetLastError(), IDS_MAILLIST_CANNOT_OPEN, m_displayName);
        done(Id::Cancel);
        return;
    }
    cancelToClose();
}

bool CMailListSheet::readRaw(const char* name, QByteArray& data, uint32_t& type) const
{
    data.resize(kStringBufferSize);
    uint32_t size = kStringBufferSize;
    type = 0;
    if (!GetMailingListProperty(m_list, name, data.data(), &size, &type)) {
        if (GetLastError() != VB_ERROR_MORE_DATA)
            return false;
        size += 10;
        data.resize(qsizetype(size));
        type = 0;
        if (!GetMailingListProperty(m_list, name, data.data(), &size, &type))
            return false;
    }
    data.resize(qMin<qsizetype>(data.size(), size));
    return true;
}

quint32 CMailListSheet::readNumber(const char* name) const
{
    quint32 value = 0;
    uint32_t size = sizeof value;
    if (!m_list || !GetMailingListProperty(m_list, name, &value, &size, nullptr))
        return 0;
    return value;
}

QString CMailListSheet::readString(const char* name) const
{
    QByteArray data;
    uint32_t type = 0;
    if (!m_list || !readRaw(name, data, type) || (type != VB_TYPE_STRING && type != 0))
        return QString();
    return QString::fromUtf8(data.constData(), int(qstrnlen(data.constData(), size_t(data.size()))));
}

QStringList CMailListSheet::readMultiString(const char* name) const
{
    QStringList out;
    QByteArray data;
    uint32_t type = 0;
    if (!m_list || !readRaw(name, data, type) || type != VB_TYPE_MULTI_STRING)
        return out;
    for (qsizetype at = 0; at < data.size();) {
        const qsizetype len = qsizetype(qstrnlen(data.constData() + at, size_t(data.size() - at)));
        if (len == 0)
            break; // the empty entry that ends the list
        out.append(QString::fromUtf8(data.constData() + at, len));
        at += len + 1;
    }
    return out;
}

bool CMailListSheet::writeString(const char* name, const QString& value)
{
    const QByteArray text = value.toUtf8();
    return m_list && SetMailingListProperty(m_list, VB_TYPE_STRING, name, text.constData(), uint32_t(text.size() + 1)) == 1;
}

bool CMailListSheet::writeNumber(const char* name, quint32 value)
{
    return m_list && SetMailingListProperty(m_list, VB_TYPE_DWORD, name, &value, sizeof value) == 1;
}

bool CMailListSheet::writeMultiString(const char* name, const QStringList& values)
{
    QByteArray buffer;
    for (const QString& v : values) {
        if (v.isEmpty())
            continue;
        buffer += v.toUtf8();
        buffer += '\0';
    }
    if (buffer.isEmpty())
        buffer += '\0';
    buffer += '\0';
    return m_list && SetMailingListProperty(m_list, VB_TYPE_MULTI_STRING, name, buffer.constData(), uint32_t(buffer.size())) == 1;
}

void CMailListSheet::reportWriteFailure(const char* name)
{
    ReportErrorFormat1(GetLastError(), IDS_MAILLIST_CANNOT_SET, QString::fromLatin1(name));
}

void CMailListSheet::writeIfChanged(const char* name, const QString& value, QString& cached)
{
    if (value == cached)
        return;
    if (writeString(name, value))
        cached = value;
    else
        reportWriteFailure(name);
}

void CMailListSheet::writeIfChanged(const char* name, quint32 value, quint32& cached)
{
    if (value == cached)
        return;
    if (writeNumber(name, value))
        cached = value;
    else
        reportWriteFailure(name);
}

void CMailListSheet::writeFlagIfChanged(const char* name, quint32 value, quint32& cached)
{
    const quint32 flag = value ? 1 : 0;
    if (flag == (cached ? 1u : 0u))
        return;
    if (writeNumber(name, flag))
        cached = flag;
    else
        reportWriteFailure(name);
}

void CMailListSheet::writeIfChanged(const char* name, const QStringList& values, QStringList& cached)
{
    if (values == cached)
        return;
    if (writeMultiString(name, values))
        cached = values;
    else
        reportWriteFailure(name);
}
