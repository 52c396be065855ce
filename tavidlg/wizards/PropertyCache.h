// The wizards' property cache: every server property a wizard page has read or changed, with the value
// found when it was first read. Nothing reaches the store before commit(), and commit() writes only the
// entries whose value differs from that first value, newest entry first.
//
// An entry is found by its name (exact, case-sensitive) and section (exact bytes; a null section is
// the same as ""). The section "CONSTANT" is not a store section: its properties are read-only facts
// about the server's host, read with GetMailServerConstant and never written back. Widget-free on
// purpose, so that the rules are tested without a wizard.
#pragma once

#include "entry/TaviGlobal.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

#include <velbrook/StoreBase.h>

class TAVI_EXPORT CWizardPropertyCache {
public:
    enum class Type : quint32 { Text = 1, Number = 4 };
    static constexpr const char* kConstantSection = "CONSTANT";

    explicit CWizardPropertyCache(_tMailServer* server = nullptr) : m_server(server) {}

    _tMailServer* server() const { return m_server; }
    void setServer(_tMailServer* server) { m_server = server; }

    // The cached current value, or the store's value (which then becomes the entry's first and current
    // value). A missing or mistyped property reads as 0 or "" and still gets its entry; false only
    // when the store did not yield the property.
    bool getDword(const char* name, const char* section, quint32& value);
    bool getString(const char* name, const char* section, QString& value);
    // Sets the current value (making an entry whose first value is this one when there is none); the
    // entry counts as changed exactly while the value differs from its first value.
    void setDword(const char* name, const char* section, quint32 value);
    void setString(const char* name, const char* section, const QString& value);
    // A multi-string read straight from the store, one element per string; not cached. Any other type,
    // or a failed read, gives an empty list.
    QStringList getStringList(const char* name, const char* section) const;

    // Writes every changed entry, newest first (constants never). failed(name, last error) is called
    // for each write that fails; the commit goes on with the next entry. Returns the number of failures.
    int commit(const std::function<void(const QByteArray& name, quint32 code)>& failed);

    // For tests and diagnostics.
    int size() const { return int(m_entries.size()); }
    bool contains(const char* name, const char* section) const { return find(name, section) != nullptr; }
    bool isChanged(const char* name, const char* section) const;

private:
    struct Entry {
        QByteArray section;
        QByteArray name;
        Type type = Type::Number;
        bool changed = false;
        bool retyped = false; // set with the other type than it was read with
        QString text, firstText;
        quint32 number = 0, firstNumber = 0;
    };

    static QByteArray keyOf(const char* name, const char* section);
    const Entry* find(const char* name, const char* section) const;
    Entry* find(const char* name, const char* section);
    Entry& add(const char* name, const char* section, Type type);
    bool readNumber(const char* name, const char* section, quint32& value) const;
    bool readText(const char* name, const char* section, QString& value) const;
    static void updateChanged(Entry& entry);

    _tMailServer* m_server = nullptr;
    // In creation order; commit walks it from the back. The index keeps look-ups constant-time.
    std::vector<Entry> m_entries;
    QHash<QByteArray, std::size_t> m_index;
};

// The list values of the wizards' text properties: entries separated by commas and/or white space; an
// entry longer than 256 characters ends the reading (it and the rest are dropped).
TAVI_EXPORT QStringList splitWizardList(const QString& text);
// Entries joined with ", ".
TAVI_EXPORT QString joinWizardList(const QStringList& entries);
