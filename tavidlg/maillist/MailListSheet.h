// The mailing-list sheet: opens one list of one domain, adds its pages by the configuration's format
// version and the list's plug-in, and offers the typed property operations every page uses. The list
// stays open while the sheet lives and is opened afresh after Apply, so that every page sees what was
// stored.
#pragma once

#include "common/PropertySheet.h"

#include <QString>
#include <QStringList>

#include <velbrook/ListStore.h>

class CMailListGeneralPage;

class TAVI_EXPORT CMailListSheet : public CTaviPropertySheet {
    Q_OBJECT
public:
    // Either name may be null; a null or empty domain means the server's default domain.
    CMailListSheet(QWidget* parent, _tMailServer* server, const char* domain, const char* list);
    ~CMailListSheet() override;

    // Opens the list, fetches its plug-in information, reads the format version and adds the pages.
    // False (after telling the administrator) when the sheet must not be shown; the result is then 2.
    bool openList();

    _tMailingList* list() const { return m_list; }
    QString listName() const { return m_listName; }
    QString domainName() const { return m_domainName; }
    QString displayName() const { return m_displayName; }
    quint32 formatVersion() const { return m_formatVersion; }
    const _tMailingListPluginInfo& pluginInfo() const { return m_pluginInfo; }
    bool isDigestList() const;
    bool hasDigestList() const;
    // Whether a list name names a digest list: it ends in "-digest" (any case) and is longer than that.
    static bool isDigestName(const QString& name);

    // Reads; a failed read yields 0, the empty text or the empty list.
    quint32 readNumber(const char* name) const;
    QString readString(const char* name) const;
    QStringList readMultiString(const char* name) const;
    // Writes; true on success, the reason in GetLastError() otherwise.
    bool writeString(const char* name, const QString& value);
    bool writeNumber(const char* name, quint32 value);
    bool writeMultiString(const char* name, const QStringList& values);
    // Write-if-changed: writes only when the value differs from the cache (texts exactly; flags as 0/1),
    // updates the cache on success and reports "Cannot set mail list property <name>" on failure.
    void writeIfChanged(const char* name, const QString& value, QString& cached);
    void writeIfChanged(const char* name, quint32 value, quint32& cached);
    void writeFlagIfChanged(const char* name, quint32 value, quint32& cached);
    void writeIfChanged(const char* name, const QStringList& values, QStringList& cached);

protected:
    void initSheet() override;

private:
    bool readRaw(const char* name, QByteArray& data, uint32_t& type) const;
    void reportWriteFailure(const char* name);
    void afterApply();
    void closeList();

    QByteArray m_listName8;
    QByteArray m_domainName8;
    QString m_listName;
    QString m_domainName;
    QString m_displayName;
    _tMailingList* m_list = nullptr;
    quint32 m_formatVersion = 0;
    _tMailingListPluginInfo m_pluginInfo{};
};
