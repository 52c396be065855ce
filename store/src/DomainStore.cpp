// Domains: properties, enumeration, synonyms, aliases and counts.
#include <algorithm>
#include <unordered_set>
#include <atomic>
#include <cstring>

#include "Objects_p.h"
#include "toolkit/Utf8_p.h"
#include "velbrook/DomainStore.h"
#include "velbrook/ListStore.h"

using namespace vb;

struct _tDomain : OpenObject {};

struct _tDomainEnum {
    std::vector<std::string> names;
    size_t at = 0;
};

namespace vb {

bool validObjectName(const char* name)
{
    if (!name || !*name)
        return false;
    const size_t n = std::strlen(name);
    if (n > 255)
        return false;
    for (size_t i = 0; i < n; ++i)
        if (static_cast<unsigned char>(name[i]) < 0x20 || name[i] == 0x7f)
            return false;
    return vbtoolkit::isValidUtf8(std::string_view(name, n));
}

uint32_t defaultDomain(_tMailServer* server, ObjectRef& domain)
{
    Value v;
    if (server->connector->getProperty(ObjectRef{}, "", "DefaultDomain", v) == 0 && v.type == VB_TYPE_STRING
        && !v.text.empty())
        if (server->connector->findObject(Kind::Domain, 0, v.text, domain) == 0)
            return 0;
    return server->connector->firstObject(Kind::Domain, 0, domain);
}

uint32_t resolveDomain(_tMailServer* server, const std::string& domainName, ObjectRef& domain)
{
    if (domainName.empty())
        return defaultDomain(server, domain);
    return server->connector->findObject(Kind::Domain, 0, domainName, domain);
}

bool splitAddress(const char* address, std::string& local, std::string& domain)
{
    if (!address)
        return false;
    const std::string a = address;
    const size_t at = a.find_last_of('@');
    if (at == std::string::npos) {
        local = a;
        domain.clear();
    } else {
        local = a.substr(0, at);
        domain = a.substr(at + 1);
        if (domain.empty())
            return false; // "user@" names no domain; it is not the default domain's user
    }
    return !local.empty();
}

// ---- shared property access -----------------------------------------------------------------------

static uint32_t effectiveScanner(OpenObject& o, const std::string& key, Value& out);

int getObjectProperty(OpenObject& o, const char* operation, const char* name, void* buffer, uint32_t* size,
                      uint32_t* type)
{
    if (!validObjectName(name) || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    bool force = false;
    if (uint32_t e = intercept(o.server, operation, nullptr, name, &force))
        return failWith(e);
    const std::string key = fold(name);
    if (o.ref().kind == Kind::Mailbox && key.size() > 9 && key.compare(key.size() - 9, 9, "effective") == 0) {
        Value v;
        if (uint32_t e = effectiveScanner(o, key, v))
            return failWith(e);
        return copyValueOut(v, buffer, size, type, force);
    }
    auto it = o.snapshot.values.find(key);
    if (it == o.snapshot.values.end())
        return failWith(VB_ERROR_FILE_NOT_FOUND);
    return copyValueOut(it->second, buffer, size, type, force);
}

static int setObjectPropertyNow(OpenObject& o, const char* operation, uint32_t type, const char* name, const void* data,
                      uint32_t size)
{
    if (!validObjectName(name))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(o.server, operation, nullptr, name))
        return failWith(e);
    const std::string key = fold(name);
    // Values the store computes cannot be written.
    if ((o.ref().kind == Kind::Domain && key == "mailboxcount")
        || (o.ref().kind == Kind::Mailbox && key.size() > 9 && key.compare(key.size() - 9, 9, "effective") == 0))
        return failWith(VB_ERROR_ACCESS_DENIED);
    Value v;
    if (uint32_t e = parseValueIn(type, data, size, v))
        return failWith(e);
    if (o.ref().kind == Kind::Mailbox && trafficCounterIndex(name) >= 0 && v.type != VB_TYPE_DWORD)
        return failWith(VB_ERROR_INVALID_PARAMETER); // counters are numbers
    if (uint32_t e = o.server->connector->setProperty(o.ref(), "", name, v))
        return failWith(e);
    if (v.type == VB_TYPE_MULTI_STRING) {
        // The store keeps one element per name without regard to case.
        // A hash set of the folded keys keeps a list of 100 000 elements linear.
        std::vector<std::string> unique;
        std::unordered_set<std::string> keys;
        keys.reserve(v.items.size());
        for (const std::string& item : v.items) {
            if (keys.insert(fold(item)).second)
                unique.push_back(item);
        }
        v.items = std::move(unique);
    }
    o.snapshot.values[key] = std::move(v);
    return 1;
}

int lookupObjectList(OpenObject& o, const char* operation, const char* name, const char* element)
{
    if (!validObjectName(name) || !element)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(o.server, operation, nullptr, name))
        return failWith(e);
    if (uint32_t e = o.server->connector->listLookup(o.ref(), "", name, element))
        return failWith(e);
    return 1;
}

static int addToObjectListNow(OpenObject& o, const char* operation, const char* name, const char* element)
{
    if (!validObjectName(name) || !element || !*element || std::strlen(element) > kMaxValueSize)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(o.server, operation, nullptr, name))
        return failWith(e);
    if (uint32_t e = o.server->connector->listAdd(o.ref(), "", name, element))
        return failWith(e);
    Value& v = o.snapshot.values[fold(name)];
    if (v.type != VB_TYPE_MULTI_STRING) {
        v = Value();
        v.type = VB_TYPE_MULTI_STRING;
    }
    v.items.emplace_back(element);
    return 1;
}

static int removeFromObjectListNow(OpenObject& o, const char* operation, const char* name, const char* element)
{
    if (!validObjectName(name) || !element)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(o.server, operation, nullptr, name))
        return failWith(e);
    if (uint32_t e = o.server->connector->listRemove(o.ref(), "", name, element))
        return failWith(e);
    auto it = o.snapshot.values.find(fold(name));
    if (it != o.snapshot.values.end()) {
        auto& items = it->second.items;
        const std::string key = fold(element);
        items.erase(std::remove_if(items.begin(), items.end(), [&](const std::string& s) { return fold(s) == key; }),
                    items.end());
    }
    return 1;
}

int setObjectProperty(OpenObject& o, const char* operation, uint32_t type, const char* name, const void* data,
                      uint32_t size)
{
    return noteWrite(setObjectPropertyNow(o, operation, type, name, data, size), o.server, o.ref().name, nullptr,
                     name);
}

int addToObjectList(OpenObject& o, const char* operation, const char* name, const char* element)
{
    return noteWrite(addToObjectListNow(o, operation, name, element), o.server, o.ref().name, nullptr, name);
}

int removeFromObjectList(OpenObject& o, const char* operation, const char* name, const char* element)
{
    return noteWrite(removeFromObjectListNow(o, operation, name, element), o.server, o.ref().name, nullptr, name);
}

// Effective scanner settings. The server's setting (no section) and the domain's setting of the same name
// ("SpamScannerType", "GreylistType", "VirusScannerType") each hold 0 (or nothing): leave it to the level
// below, 1: force scanning on, 2: force scanning off. The server's forcing wins over the domain's; when
// neither forces, the mailbox's own choice (non-zero: on) decides. The effective value is 1 or 0.
static uint32_t effectiveScanner(OpenObject& o, const std::string& key, Value& out)
{
    const std::string base = key.substr(0, key.size() - 9);
    if (base != "spamscannertype" && base != "greylisttype" && base != "virusscannertype")
        return VB_ERROR_FILE_NOT_FOUND;
    auto policy = [&](const ObjectRef& owner) -> uint32_t {
        Value v;
        if (o.server->connector->getProperty(owner, "", base, v) == 0 && v.type == VB_TYPE_DWORD)
            return v.number;
        return 0;
    };
    uint32_t decided = policy(ObjectRef{});
    if (decided != 1 && decided != 2) {
        ObjectRef domain;
        domain.id = o.ref().parent;
        domain.kind = Kind::Domain;
        decided = policy(domain);
    }
    out = Value();
    out.type = VB_TYPE_DWORD;
    if (decided == 1 || decided == 2) {
        out.number = decided == 1 ? 1 : 0;
        return 0;
    }
    auto it = o.snapshot.values.find(base);
    out.number = it != o.snapshot.values.end() && it->second.type == VB_TYPE_DWORD && it->second.number != 0;
    return 0;
}

} // namespace vb

namespace {

std::atomic<int> g_domainStoreUsers{0};

_tDomainEnum* startEnum(std::vector<std::string>&& names)
{
    auto* e = new _tDomainEnum;
    e->names = std::move(names);
    return e;
}

} // namespace

extern "C" {

int InitDomainStore(_tMailServer* server)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "InitDomainStore", nullptr, nullptr))
        return failWith(e);
    uint64_t count = 0;
    if (uint32_t e = server->connector->countObjects(Kind::Domain, 0, count))
        return failWith(e);
    ++g_domainStoreUsers;
    return 1;
}

int TermDomainStore(void)
{
    int users = g_domainStoreUsers.load();
    while (users > 0 && !g_domainStoreUsers.compare_exchange_weak(users, users - 1)) {
    }
    SetLastError(0);
    return 1; // a copied dependency may terminate after the one it was copied from
}

_tDomain* OpenDomain(_tMailServer* server, const char* name)
{
    if (!server || (name && *name && !validObjectName(name))) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (uint32_t e = intercept(server, "OpenDomain", nullptr, name)) {
        SetLastError(e);
        return nullptr;
    }
    std::string domainName = name ? name : "";
    if (domainName.empty()) {
        ObjectRef d;
        if (uint32_t e = defaultDomain(server, d)) {
            SetLastError(e);
            return nullptr;
        }
        domainName = d.name;
    }
    auto* domain = new _tDomain;
    domain->server = server;
    domain->life = server->life;
    if (uint32_t e = server->connector->loadSnapshot(Kind::Domain, "", domainName, domain->snapshot)) {
        delete domain;
        SetLastError(e);
        return nullptr;
    }
    SetLastError(0);
    return domain;
}

int CloseDomain(_tDomain* domain)
{
    if (!domain)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    delete domain;
    return 1;
}

int CreateDomain(_tMailServer* server, const char* name)
{
    if (!server || !validObjectName(name))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "CreateDomain", nullptr, name))
        return failWith(e);
    ObjectRef d;
    if (uint32_t e = server->connector->begin())
        return failWith(e);
    uint32_t e = server->connector->createObject(Kind::Domain, 0, name, d);
    if (!e) {
        Value zero;
        zero.type = VB_TYPE_DWORD;
        e = server->connector->setProperty(d, "", "MailboxCount", zero);
    }
    return endTransaction(server, e);
}

int DestroyDomain(_tMailServer* server, const char* name)
{
    if (!server || !validObjectName(name))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "DestroyDomain", nullptr, name))
        return failWith(e);
    ObjectRef d;
    if (uint32_t e = server->connector->findObject(Kind::Domain, 0, name, d))
        return failWith(e);
    if (uint32_t e = server->connector->destroyObject(d))
        return failWith(e);
    return 1;
}

int GetDomainProperty(_tDomain* domain, const char* name, void* buffer, uint32_t* size, uint32_t* type)
{
    if (gone(domain))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!domain)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return getObjectProperty(*domain, "GetDomainProperty", name, buffer, size, type);
}

int SetDomainProperty(_tDomain* domain, uint32_t type, const char* name, const void* data, uint32_t size)
{
    if (gone(domain))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!domain)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return setObjectProperty(*domain, "SetDomainProperty", type, name, data, size);
}

int LookupDomainListProperty(_tDomain* domain, const char* name, const char* element)
{
    if (gone(domain))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!domain)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return lookupObjectList(*domain, "LookupDomainListProperty", name, element);
}

int AddToDomainListProperty(_tDomain* domain, const char* name, const char* element)
{
    if (gone(domain))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!domain)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return addToObjectList(*domain, "AddToDomainListProperty", name, element);
}

int RemoveFromDomainListProperty(_tDomain* domain, const char* name, const char* element)
{
    if (gone(domain))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!domain)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return removeFromObjectList(*domain, "RemoveFromDomainListProperty", name, element);
}

_tDomainEnum* StartDomainEnumeration(_tMailServer* server)
{
    if (!server) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (uint32_t e = intercept(server, "StartDomainEnumeration", nullptr, nullptr)) {
        SetLastError(e);
        return nullptr;
    }
    std::vector<std::string> names;
    if (uint32_t e = server->connector->objectNames(Kind::Domain, 0, names)) {
        SetLastError(e);
        return nullptr;
    }
    return startEnum(std::move(names));
}

int FindNextDomain(_tDomainEnum* e, char* name, uint32_t* size)
{
    if (!e || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (e->at >= e->names.size())
        return failWith(VB_ERROR_NO_MORE_ITEMS);
    if (!copyTextOut(e->names[e->at], name, size))
        return 0;
    if (name)
        ++e->at; // a size query does not move on
    return 1;
}

int CloseDomainEnumeration(_tDomainEnum* e)
{
    if (!e)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    delete e;
    return 1;
}

_tDomainEnum* StartDomainSynonymEnumeration(_tMailServer* server, const char* domain)
{
    if (!server || !validObjectName(domain)) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (uint32_t e = intercept(server, "StartDomainSynonymEnumeration", nullptr, domain)) {
        SetLastError(e);
        return nullptr;
    }
    ObjectRef d;
    std::vector<std::string> names;
    uint32_t e = server->connector->findObject(Kind::Domain, 0, domain, d);
    if (!e)
        e = server->connector->synonymNames(d.id, names);
    if (e) {
        SetLastError(e);
        return nullptr;
    }
    return startEnum(std::move(names));
}

int CreateDomainSynonym(_tMailServer* server, const char* domain, const char* synonym)
{
    if (!server || !validObjectName(domain) || !validObjectName(synonym))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "CreateDomainSynonym", nullptr, synonym))
        return failWith(e);
    ObjectRef d;
    if (uint32_t e = server->connector->findObject(Kind::Domain, 0, domain, d))
        return failWith(e);
    if (uint32_t e = server->connector->createSynonym(d.id, synonym))
        return failWith(e);
    return 1;
}

int DestroyDomainSynonym(_tMailServer* server, const char* synonym)
{
    if (!server || !validObjectName(synonym))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "DestroyDomainSynonym", nullptr, synonym))
        return failWith(e);
    if (uint32_t e = server->connector->destroySynonym(synonym))
        return failWith(e);
    return 1;
}

int ConvertDomainSynonym(_tMailServer* server, const char* synonym)
{
    if (!server || !validObjectName(synonym))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "ConvertDomainSynonym", nullptr, synonym))
        return failWith(e);
    if (uint32_t e = server->connector->convertSynonym(synonym))
        return failWith(e);
    return 1;
}

int GetDefaultDomainName(_tMailServer* server, char* name, uint32_t size)
{
    if (!server || !name)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetDefaultDomainName", nullptr, nullptr))
        return failWith(e);
    ObjectRef d;
    if (uint32_t e = defaultDomain(server, d))
        return failWith(e);
    return copyTextFixed(d.name, name, size);
}

int GetDomainFromAddress(_tMailServer* server, const char* address, char* name, uint32_t size)
{
    if (!server || !address || !*address || !name)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetDomainFromAddress", nullptr, address))
        return failWith(e);
    ObjectRef d;
    if (uint32_t e = server->connector->findDomainByProperty("IpAddress", address, d))
        return failWith(e);
    return copyTextFixed(d.name, name, size);
}

int AliasNamesSupported(_tMailServer* server)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    SetLastError(0);
    return 1;
}

int GetDomainAliasNames(_tMailServer* server, const char* domain, char* buffer, uint32_t* size)
{
    if (!server || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetDomainAliasNames", nullptr, domain))
        return failWith(e);
    ObjectRef d;
    if (uint32_t e = resolveDomain(server, domain ? domain : "", d))
        return failWith(e);
    std::vector<std::string> names;
    if (uint32_t e = server->connector->aliasNamesOfDomain(d.id, names))
        return failWith(e);
    return copyMultiOut(names, buffer, size);
}

int GetAliasPrincipalName(_tMailServer* server, const char* alias, char* name, uint32_t size)
{
    if (!server || !name)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    std::string local, domainName;
    if (!splitAddress(alias, local, domainName))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetAliasPrincipalName", nullptr, alias))
        return failWith(e);
    ObjectRef d, m;
    uint32_t e = resolveDomain(server, domainName, d);
    if (!e)
        e = server->connector->aliasOwner(d.id, local, m);
    if (e)
        return failWith(e);
    return copyTextFixed(m.name + "@" + d.name, name, size);
}

int CountMailboxesInDomain(_tMailServer* server, const char* domain, uint32_t* count)
{
    if (!server || !count)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "CountMailboxesInDomain", nullptr, domain))
        return failWith(e);
    ObjectRef d;
    uint64_t n = 0;
    uint32_t e = resolveDomain(server, domain ? domain : "", d);
    if (!e)
        e = server->connector->countObjects(Kind::Mailbox, d.id, n);
    if (e)
        return failWith(e);
    *count = uint32_t(std::min<uint64_t>(n, UINT32_MAX));
    return 1;
}

int CountMailingListsInDomain(_tMailServer* server, const char* domain, uint32_t* count)
{
    if (!server || !count)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "CountMailingListsInDomain", nullptr, domain))
        return failWith(e);
    ObjectRef d;
    uint64_t n = 0;
    uint32_t e = resolveDomain(server, domain ? domain : "", d);
    if (!e)
        e = server->connector->countObjects(Kind::MailingList, d.id, n);
    if (e)
        return failWith(e);
    *count = uint32_t(std::min<uint64_t>(n, UINT32_MAX));
    return 1;
}

} // extern "C"
