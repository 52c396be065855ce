// The library's string table: user-visible texts keyed by number. Each area registers its own table
// (res/Strings<Area>.cpp) at load, so that dialogs of different areas never edit one shared file.
// Ids below 60000 are the system's own; texts that have no id of their own take one from 60000 up.
// Entries are written {IDS_AREA_WHAT, QT_TRANSLATE_NOOP("TaviStrings", "text")} so that lupdate finds
// them; TaviString returns the text in the user's language (the English one without a translation).
#pragma once

#include "entry/TaviGlobal.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <cstddef>

struct TaviStringEntry {
    unsigned id;
    const char* text; // UTF-8
};

// Registers a table at load time: `static const CStringTableRegistrar reg(kEntries);`
class TAVI_EXPORT CStringTableRegistrar {
public:
    CStringTableRegistrar(const TaviStringEntry* entries, std::size_t count);
    template <std::size_t N>
    explicit CStringTableRegistrar(const TaviStringEntry (&entries)[N]) : CStringTableRegistrar(entries, N)
    {
    }
};

// The text of a string id, translated; empty when the id is unknown.
TAVI_EXPORT QString TaviString(unsigned id);
TAVI_EXPORT bool TaviHasString(unsigned id);
// Every registered id, in ascending order.
TAVI_EXPORT QList<unsigned> TaviStringIds();
// Ids registered more than once (the first registration wins); a test keeps this empty.
TAVI_EXPORT QList<unsigned> TaviDuplicateStringIds();
