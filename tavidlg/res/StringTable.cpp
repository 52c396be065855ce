#include "res/StringTable.h"

#include <QCoreApplication>

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace {

struct Table {
    std::unordered_map<unsigned, const char*> texts;
    std::vector<unsigned> duplicates;
};

// Built during static initialisation by the registrars of every area; read-only afterwards.
Table& table()
{
    static Table t;
    return t;
}

} // namespace

CStringTableRegistrar::CStringTableRegistrar(const TaviStringEntry* entries, std::size_t count)
{
    Table& t = table();
    t.texts.reserve(t.texts.size() + count);
    for (std::size_t i = 0; i < count; ++i) {
        if (!t.texts.emplace(entries[i].id, entries[i].text).second)
            t.duplicates.push_back(entries[i].id);
    }
}

QString TaviString(unsigned id)
{
    const Table& t = table();
    const auto it = t.texts.find(id);
    // The English text is the key of its translation, so a text keeps its id and gains a translation.
    return it == t.texts.end() ? QString() : QCoreApplication::translate("TaviStrings", it->second);
}

bool TaviHasString(unsigned id)
{
    return table().texts.count(id) != 0;
}

QList<unsigned> TaviStringIds()
{
    QList<unsigned> ids;
    ids.reserve(qsizetype(table().texts.size()));
    for (const auto& entry : table().texts)
        ids.append(entry.first);
    std::sort(ids.begin(), ids.end());
    return ids;
}

QList<unsigned> TaviDuplicateStringIds()
{
    const auto& d = table().duplicates;
    return QList<unsigned>(d.begin(), d.end());
}
