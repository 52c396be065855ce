// Which named lists an owner (the server, a domain, a mailbox, the carrier table) has, and where they
// are stored. A list editor owns one manager and reaches the store only through it.
//
// A concrete manager supplies six storage operations: reading the text that names the owner's lists,
// loading the selected list, adding and removing one item of it, storing it whole, and loading its
// defaults. Each reports failure by returning false with the reason in GetLastError().
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>
#include <QStringList>

class TAVI_EXPORT CListManager {
public:
    explicit CListManager(const QString& title);
    virtual ~CListManager();
    CListManager(const CListManager&) = delete;
    CListManager& operator=(const CListManager&) = delete;

    // Makes the named list (one of the known ones, matched exactly) the selected list; fails with 2
    // (not found) for a name that is not known.
    virtual bool selectList(const QString& name);
    // The editor's caption.
    virtual QString title() const;
    virtual QStringList knownLists() const;
    // Reads the names of the known lists when none are known yet; on failure asks "Could not determine
    // the known lists." with Retry and Cancel. name: the list about to be selected (trimmed).
    virtual bool determineKnownLists(const QString& name);

    // ---- storage --------------------------------------------------------------------------------
    // The text naming the owner's lists, split at any of ", ;".
    virtual bool readListNames(QString& names) = 0;
    // The items of the selected list, in stored order.
    virtual bool loadItems(QStringList& items) = 0;
    virtual bool addItem(const QString& item) = 0;
    virtual bool removeItem(const QString& item) = 0;
    // Replaces the selected list by the items of joined (separated by ","; "" is the empty list).
    virtual bool storeWhole(const QString& joined) = 0;
    // The defaults of the selected list; fails with 50 (not supported) where the owner has none.
    virtual bool loadDefaultItems(QStringList& items) = 0;
    // Whether loadDefaultItems can succeed for the selected list.
    virtual bool hasDefaults() const { return false; }
    // Ends a save of single items (managers that write through at once have nothing to do).
    virtual bool commit() { return true; }

    QString selectedList() const { return m_selected; }

protected:
    void setKnownLists(const QStringList& names) { m_known = names; }

private:
    QString m_title;
    QStringList m_known;
    QString m_selected;
};
