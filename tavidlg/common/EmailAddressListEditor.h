// The e-mail address lists of the server, of a domain and of a mailbox ("Whitelist", "Blacklist",
// "PreferredSenders" and any others the owner's "AddressListNames" property names), edited in the list
// editor.
//
// Where the lists live (see also the store's headers):
//   server:  list properties of section "AddressLists", named after the list; the names of the known
//            lists in the text property "AddressListNames" of that section;
//   domain:  list properties of the domain, named after the list; names in its "AddressListNames";
//   mailbox: list properties of the mailbox, named after the list; names in its "AddressListNames".
// Without an "AddressListNames" property an owner has the three standard lists. The defaults of a
// domain's or a mailbox's list ("Load Default") are the server's list of the same name; the server's
// own lists have none.
//
// Entries are addresses or address patterns, kept in lower case: "jane@example.com", "*@example.com"
// (a whole domain, also typed as "@example.com" or "example.com"), "*@*.example.com" (its subdomains),
// "sales*@example.com", "jane@*". "*" stands for any run of characters and "?" for one.
#pragma once

#include "common/ListEditor.h"
#include "common/ListManager.h"

#include <velbrook/DomainStore.h>
#include <velbrook/MailboxStore.h>

// Normalises an address or address pattern in place (trimmed, angle brackets dropped, lower case, a
// bare domain made "*@domain", an international domain name in its ASCII form). False, with a
// sentence saying what is wrong in reason (when not null), for anything else.
TAVI_EXPORT bool NormaliseEmailAddressPattern(QString& text, QString* reason = nullptr);
// A lower-case ASCII domain name: dot-separated labels of letters, digits and inner hyphens.
TAVI_EXPORT bool IsValidDomainName(QStringView domain);

class TAVI_EXPORT CEmailAddressListManager : public CListManager {
public:
    enum class Level { Server, Domain, Mailbox };
    static const char* const kListsSection; // "AddressLists"
    static const char* const kNamesProperty; // "AddressListNames"

    explicit CEmailAddressListManager(_tMailServer* server);
    CEmailAddressListManager(_tMailServer* server, _tDomain* domain);
    CEmailAddressListManager(_tMailServer* server, _tMailbox* mailbox);

    Level level() const { return m_level; }

    bool readListNames(QString& names) override;
    bool loadItems(QStringList& items) override;
    bool addItem(const QString& item) override;
    bool removeItem(const QString& item) override;
    bool storeWhole(const QString& joined) override;
    bool loadDefaultItems(QStringList& items) override;
    bool hasDefaults() const override { return m_level != Level::Server; }

private:
    // Reads a property of the owner (the server's in the lists' section) whole; false on failure.
    bool readOwnerProperty(const char* name, QByteArray& bytes, uint32_t& type) const;

    Level m_level;
    _tMailServer* m_server;
    _tDomain* m_domain = nullptr;
    _tMailbox* m_mailbox = nullptr;
};

class TAVI_EXPORT CEmailAddressListEditor : public CListEditor {
    Q_OBJECT
public:
    // The server's lists; listName: the list shown first (null or empty: none).
    CEmailAddressListEditor(QWidget* parent, _tMailServer* server, const char* listName);
    // An open domain's lists; the domain stays the caller's (it may be null when it could not be
    // opened: the editor then shows no list).
    CEmailAddressListEditor(QWidget* parent, _tMailServer* server, _tDomain* domain, const char* listName);
    // An open mailbox's lists; the mailbox stays the caller's.
    CEmailAddressListEditor(QWidget* parent, _tMailServer* server, _tMailbox* mailbox, const char* listName);
    ~CEmailAddressListEditor() override;

    bool loadDefault() override;

protected:
    bool importFile(const QString& path) override;
    bool exportFile(const QString& path) override;
    std::unique_ptr<CListElement> makeElement(const QString& text, bool added) override;
    bool normalise(QString& text) override;
    bool runEntryDialog(bool edit, QString& text) override;

private:
    void setUp();
};

// The Add and Edit dialog of an address: one edit, checked on OK (the reason shown, the focus kept).
class TAVI_EXPORT CEmailAddressEntryDlg : public CTaviDialog {
    Q_OBJECT
public:
    CEmailAddressEntryDlg(QWidget* parent, bool edit, const QString& text, unsigned helpContext);
    // The normalised address after OK.
    QString value() const { return m_value; }

protected:
    void onOK() override;

private:
    class QLineEdit* m_edit = nullptr;
    QString m_initial;
    QString m_value;
};
