// The domain sheet: one domain of one server (or the server's default domain) with its general,
// synonyms, aliases, forwarding and traffic pages. The sheet opens the domain before it is shown, owns
// the open handle that every page reads and writes through its typed accessors, and closes it at the end.
#pragma once

#include "common/PropertySheet.h"

#include <QByteArray>
#include <QString>

#include <velbrook/DomainStore.h>

class CDomainGeneralPage;
class CDomainSynonymsPage;
class CDomainAliasesPage;
class CDomainForwardingPage;
class CDomainTrafficPage;

class TAVI_EXPORT CDomainSheet : public CTaviPropertySheet {
    Q_OBJECT
public:
    // name: null or empty edits the server's default domain. Reads "RegistryFormatVersion" and adds the
    // pages that version and the server allow; nothing is opened yet.
    CDomainSheet(QWidget* parent, _tMailServer* server, const char* name);
    ~CDomainSheet() override;

    // The modal entry's first step: opens the domain and reads "QuotasEnabled". On failure it reports
    // "Cannot open domain <name>." and returns false; the sheet must then not be shown.
    bool openDomain();

    // The name as given (empty for the default domain) and the name of the domain actually edited.
    QString domainName() const { return m_name; }
    QString resolvedName() const { return m_resolvedName; }
    bool isDefaultDomain() const { return m_isDefault; }
    quint32 registryFormatVersion() const { return m_formatVersion; }
    bool quotasEnabled() const { return m_quotasEnabled; }
    _tDomain* domain() const { return m_domain; }

    // The pages' accessors over the open domain. A failed get leaves the caller's value as it was; a
    // set returns false on failure with the reason in GetLastError().
    bool getNumber(const char* name, quint32& value) const;
    bool getText(const char* name, QString& value) const;
    bool setNumber(const char* name, quint32 value);
    bool setText(const char* name, const QString& value);

    CDomainGeneralPage* generalPage() const { return m_general; }
    CDomainSynonymsPage* synonymsPage() const { return m_synonyms; }
    CDomainAliasesPage* aliasesPage() const { return m_aliases; }
    CDomainForwardingPage* forwardingPage() const { return m_forwarding; }
    CDomainTrafficPage* trafficPage() const { return m_traffic; }

protected:
    void initSheet() override;

private:
    // Apply Now: the pages apply, then the domain is closed and opened again so that later reads see
    // what was committed.
    void onApplyNow();
    void reportCannotOpen();

    QString m_name;
    QString m_resolvedName;
    QByteArray m_nameUtf8;
    bool m_isDefault = false;
    quint32 m_formatVersion = 0;
    bool m_quotasEnabled = false;
    _tDomain* m_domain = nullptr;
    CDomainGeneralPage* m_general = nullptr;
    CDomainSynonymsPage* m_synonyms = nullptr;
    CDomainAliasesPage* m_aliases = nullptr;
    CDomainForwardingPage* m_forwarding = nullptr;
    CDomainTrafficPage* m_traffic = nullptr;
};
