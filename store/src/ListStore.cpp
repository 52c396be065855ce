// Mailing lists: properties, members and their properties, membership configuration.
#include <algorithm>
#include <cstring>
#include <functional>
#include <map>

#include "Objects_p.h"
#include "velbrook/ListStore.h"

using namespace vb;

struct _tMailingList : OpenObject {};

struct _tMemberEnum {
    std::vector<std::string> names;
    size_t at = 0;
};

// Membership rules: properties of the list's section "Membership", edited as a copy.
struct _tMembershipConfig {
    struct Entry {
        std::string name;
        std::string value;
        bool present = true;
    };
    std::map<std::string, Entry> loaded;  // by folded name
    std::map<std::string, Entry> current; // by folded name
};

namespace {

const char* const kMembershipSection = "Membership";

uint32_t findMember(_tMailingList* list, const char* address, ObjectRef& member)
{
    return list->server->connector->findObject(Kind::Member, list->ref().id, address, member);
}

} // namespace

extern "C" {

_tMailingList* OpenMailingList(_tMailServer* server, const char* list, const char* domain)
{
    if (!server || !validObjectName(list) || (domain && *domain && !validObjectName(domain))) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (uint32_t e = intercept(server, "OpenMailingList", nullptr, list)) {
        SetLastError(e);
        return nullptr;
    }
    ObjectRef d;
    if (uint32_t e = resolveDomain(server, domain ? domain : "", d)) {
        SetLastError(e);
        return nullptr;
    }
    auto* l = new _tMailingList;
    l->server = server;
    if (uint32_t e = server->connector->loadSnapshot(Kind::MailingList, d.name, list, l->snapshot)) {
        delete l;
        SetLastError(e);
        return nullptr;
    }
    SetLastError(0);
    return l;
}

int CloseMailingList(_tMailingList* list)
{
    if (!list)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    delete list;
    return 1;
}

int CreateMailingList(_tMailServer* server, const char* list, const char* domain)
{
    if (!server || !list)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (!validObjectName(list) || std::strchr(list, '@'))
        return failWith(VB_ERROR_MAILLIST_BAD_NAME);
    if (uint32_t e = intercept(server, "CreateMailingList", nullptr, list))
        return failWith(e);
    ObjectRef d, l;
    if (uint32_t e = resolveDomain(server, domain ? domain : "", d))
        return failWith(e);
    if (uint32_t e = server->connector->begin())
        return failWith(e);
    uint32_t e = 0;
    Value max;
    if (server->connector->getProperty(d, "", "MaxMailLists", max) == 0 && max.type == VB_TYPE_DWORD
        && max.number != UINT32_MAX) {
        uint64_t n = 0;
        e = server->connector->countObjects(Kind::MailingList, d.id, n);
        if (!e && n >= max.number)
            e = VB_ERROR_MAILLIST_LIMIT;
    }
    if (!e)
        e = server->connector->createObject(Kind::MailingList, d.id, list, l);
    return endTransaction(server, e);
}

int DestroyMailingList(_tMailServer* server, const char* list, const char* domain)
{
    if (!server || !validObjectName(list))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "DestroyMailingList", nullptr, list))
        return failWith(e);
    ObjectRef d, l;
    uint32_t e = resolveDomain(server, domain ? domain : "", d);
    if (!e)
        e = server->connector->findObject(Kind::MailingList, d.id, list, l);
    if (!e)
        e = server->connector->destroyObject(l);
    if (e)
        return failWith(e);
    return 1;
}

int GetMailingListProperty(_tMailingList* list, const char* name, void* buffer, uint32_t* size, uint32_t* type)
{
    if (!list)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return getObjectProperty(*list, "GetMailingListProperty", name, buffer, size, type);
}

int SetMailingListProperty(_tMailingList* list, uint32_t type, const char* name, const void* data, uint32_t size)
{
    if (!list)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return setObjectProperty(*list, "SetMailingListProperty", type, name, data, size);
}

_tMemberEnum* StartMailingListMemberEnumeration(_tMailingList* list)
{
    if (!list) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (uint32_t e = intercept(list->server, "StartMailingListMemberEnumeration", nullptr, nullptr)) {
        SetLastError(e);
        return nullptr;
    }
    auto* e = new _tMemberEnum;
    if (uint32_t code = list->server->connector->objectNames(Kind::Member, list->ref().id, e->names)) {
        delete e;
        SetLastError(code);
        return nullptr;
    }
    return e;
}

int FindNextMailingListMember(_tMemberEnum* e, char* address, uint32_t* size)
{
    if (!e || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (e->at >= e->names.size())
        return failWith(VB_ERROR_NO_MORE_ITEMS);
    if (!copyTextOut(e->names[e->at], address, size))
        return 0;
    if (address)
        ++e->at;
    return 1;
}

int CloseMailingListMemberEnumeration(_tMemberEnum* e)
{
    if (!e)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    delete e;
    return 1;
}

int AddMailingListMember(_tMailingList* list, const char* address)
{
    if (!list || !address)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (!validObjectName(address))
        return failWith(VB_ERROR_MAILLIST_BAD_NAME);
    if (uint32_t e = intercept(list->server, "AddMailingListMember", nullptr, address))
        return failWith(e);
    ObjectRef m;
    if (uint32_t e = list->server->connector->createObject(Kind::Member, list->ref().id, address, m))
        return failWith(e);
    return 1;
}

int RemoveMailingListMember(_tMailingList* list, const char* address)
{
    if (!list || !validObjectName(address))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(list->server, "RemoveMailingListMember", nullptr, address))
        return failWith(e);
    ObjectRef m;
    uint32_t e = findMember(list, address, m);
    if (!e)
        e = list->server->connector->destroyObject(m);
    if (e)
        return failWith(e);
    return 1;
}

int GetMailingListMemberProperty(_tMailingList* list, const char* address, const char* name, void* buffer,
                                 uint32_t* size, uint32_t* type)
{
    if (!list || !validObjectName(address) || !validObjectName(name) || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    bool force = false;
    if (uint32_t e = intercept(list->server, "GetMailingListMemberProperty", address, name, &force))
        return failWith(e);
    ObjectRef m;
    Value v;
    uint32_t e = findMember(list, address, m);
    if (!e)
        e = list->server->connector->getProperty(m, "", name, v);
    if (e)
        return failWith(e);
    return copyValueOut(v, buffer, size, type, force);
}

int SetMailingListMemberProperty(_tMailingList* list, const char* address, uint32_t type, const char* name,
                                 const void* data, uint32_t size)
{
    if (!list || !validObjectName(address) || !validObjectName(name))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(list->server, "SetMailingListMemberProperty", address, name))
        return failWith(e);
    Value v;
    if (uint32_t e = parseValueIn(type, data, size, v))
        return failWith(e);
    ObjectRef m;
    uint32_t e = findMember(list, address, m);
    if (!e)
        e = list->server->connector->setProperty(m, "", name, v);
    if (e)
        return failWith(e);
    return 1;
}

int GetMailingListCount(_tMailServer* server, uint32_t* count)
{
    if (!server || !count)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetMailingListCount", nullptr, nullptr))
        return failWith(e);
    uint64_t n = 0;
    if (uint32_t e = server->connector->countObjects(Kind::MailingList, -1, n))
        return failWith(e);
    *count = uint32_t(std::min<uint64_t>(n, UINT32_MAX));
    return 1;
}

int GetMailingListNames(_tMailServer* server, const char* domain, char* buffer, uint32_t* size)
{
    if (!server || !size || (domain && *domain && !validObjectName(domain)))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetMailingListNames", nullptr, domain))
        return failWith(e);
    ObjectRef d;
    std::vector<std::string> names;
    uint32_t e = resolveDomain(server, domain ? domain : "", d);
    if (!e)
        e = server->connector->objectNames(Kind::MailingList, d.id, names);
    if (e)
        return failWith(e);
    return copyMultiOut(names, buffer, size);
}

int ReadMailingListMembers(_tMailingList* list, const char* property, VbMemberRow row, void* context)
{
    if (!list || !validObjectName(property) || !row)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(list->server, "ReadMailingListMembers", nullptr, property))
        return failWith(e);
    std::vector<std::pair<std::string, std::string>> rows;
    if (uint32_t e = list->server->connector->memberRoster(list->ref().id, property, rows))
        return failWith(e);
    for (const auto& [address, value] : rows)
        if (!row(context, address.c_str(), value.c_str()))
            return failWith(VB_ERROR_CANCELLED);
    SetLastError(0);
    return 1;
}

int RemoveMailingListMembers(_tMailingList* list, const char* const* addresses, uint32_t count, uint32_t* failed)
{
    if (failed)
        *failed = count;
    if (!list || (count && !addresses))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(list->server, "RemoveMailingListMembers", nullptr, nullptr))
        return failWith(e);
    std::vector<std::string> names;
    names.reserve(count);
    for (uint32_t i = 0; i < count; ++i) {
        if (!validObjectName(addresses[i])) {
            if (failed)
                *failed = i;
            return failWith(VB_ERROR_INVALID_PARAMETER);
        }
        names.emplace_back(addresses[i]);
    }
    size_t at = names.size();
    if (uint32_t e = list->server->connector->removeMembers(list->ref().id, names, at)) {
        if (failed)
            *failed = uint32_t(at);
        return failWith(e);
    }
    SetLastError(0);
    return 1;
}

int AddMailingListMembers(_tMailingList* list, const char* property, const char* const* addresses,
                          const char* const* values, uint32_t count, VbMemberProgress progress, void* context,
                          uint32_t* failed)
{
    if (failed)
        *failed = count;
    if (!list || !validObjectName(property) || (count && !addresses))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(list->server, "AddMailingListMembers", nullptr, property))
        return failWith(e);
    std::vector<std::pair<std::string, std::string>> rows;
    rows.reserve(count);
    for (uint32_t i = 0; i < count; ++i) {
        const char* value = values && values[i] ? values[i] : "";
        if (!addresses[i] || !validObjectName(addresses[i]) || std::strlen(value) > 255) {
            if (failed)
                *failed = i;
            return failWith(VB_ERROR_MAILLIST_BAD_NAME);
        }
        rows.emplace_back(addresses[i], value);
    }
    std::function<bool(size_t)> keepGoing;
    if (progress)
        keepGoing = [&](size_t done) { return progress(context, uint32_t(done), count) != 0; };
    size_t at = rows.size();
    if (uint32_t e = list->server->connector->addMembers(list->ref().id, property, rows, keepGoing, at)) {
        if (failed)
            *failed = uint32_t(at);
        return failWith(e);
    }
    SetLastError(0);
    return 1;
}

int GetMailingListPluginInfo(_tMailingList* list, _tMailingListPluginInfo* info)
{
    if (!list || !info || info->cbSize < sizeof(_tMailingListPluginInfo))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(list->server, "GetMailingListPluginInfo", nullptr, nullptr))
        return failWith(e);
    std::memset(info, 0, sizeof *info);
    info->cbSize = sizeof *info;
    // "ListKind" 2 marks a list without a member roster (an announcement list); anything else is ordinary.
    auto it = list->snapshot.values.find("listkind");
    const bool noRoster = it != list->snapshot.values.end() && it->second.type == VB_TYPE_DWORD
                          && it->second.number == 2;
    info->kind = noRoster ? 2 : 1;
    // A list without a roster is addressed by its membership rules, which are its plug-in's configuration.
    info->configTemplate = noRoster ? VB_LIST_MEMBERSHIP_TEMPLATE : 0;
    std::strncpy(info->title, noRoster ? "Announcements" : "Mailing List", sizeof info->title - 1);
    return 1;
}

_tMembershipConfig* LoadMailingListMembershipConfiguration(_tMailingList* list)
{
    if (!list) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (uint32_t e = intercept(list->server, "LoadMailingListMembershipConfiguration", nullptr, nullptr)) {
        SetLastError(e);
        return nullptr;
    }
    std::vector<std::string> names;
    if (uint32_t e = list->server->connector->propertyNames(list->ref(), kMembershipSection, names)) {
        SetLastError(e);
        return nullptr;
    }
    auto* config = new _tMembershipConfig;
    for (const std::string& name : names) {
        Value v;
        if (list->server->connector->getProperty(list->ref(), kMembershipSection, name, v) != 0
            || v.type != VB_TYPE_STRING)
            continue;
        config->loaded[fold(name)] = {name, v.text, true};
    }
    config->current = config->loaded;
    SetLastError(0);
    return config;
}

int EditMailingListMembershipConfiguration(_tMembershipConfig* config, const char* name, const char* value)
{
    if (!config || !validObjectName(name))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    auto& entry = config->current[fold(name)];
    if (entry.name.empty())
        entry.name = name;
    entry.present = value != nullptr; // a null value removes the rule
    entry.value = value ? value : "";
    return 1;
}

int GetMailingListMembershipRules(const _tMembershipConfig* config, char* buffer, uint32_t* size)
{
    if (!config || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    std::vector<std::string> items;
    for (const auto& [key, entry] : config->current) {
        if (!entry.present || entry.value.empty())
            continue;
        items.push_back(entry.name);
        items.push_back(entry.value);
    }
    return copyMultiOut(items, buffer, size);
}

int ChangedMailingListMembershipConfiguration(const _tMembershipConfig* config)
{
    if (!config)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    SetLastError(0);
    for (const auto& [key, entry] : config->current) {
        auto it = config->loaded.find(key);
        const bool wasPresent = it != config->loaded.end() && it->second.present;
        if (entry.present != wasPresent || (entry.present && entry.value != it->second.value))
            return 1;
    }
    return 0;
}

int SaveMailingListMembershipConfiguration(_tMailingList* list, _tMembershipConfig* config)
{
    if (!list || !config)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(list->server, "SaveMailingListMembershipConfiguration", nullptr, nullptr))
        return failWith(e);
    Connector& c = *list->server->connector;
    if (uint32_t e = c.begin())
        return failWith(e);
    for (const auto& [key, entry] : config->current) {
        auto it = config->loaded.find(key);
        const bool wasPresent = it != config->loaded.end() && it->second.present;
        uint32_t e = 0;
        if (entry.present && (!wasPresent || entry.value != it->second.value)) {
            Value v;
            v.type = VB_TYPE_STRING;
            v.text = entry.value;
            e = c.setProperty(list->ref(), kMembershipSection, entry.name, v);
        } else if (!entry.present && wasPresent) {
            e = c.deleteProperty(list->ref(), kMembershipSection, entry.name);
        }
        if (e) {
            c.rollback();
            return failWith(e);
        }
    }
    if (uint32_t e = c.commit())
        return failWith(e);
    config->loaded = config->current;
    return 1;
}

void FreeMailingListMembershipConfiguration(_tMembershipConfig* config)
{
    delete config;
}

} // extern "C"
