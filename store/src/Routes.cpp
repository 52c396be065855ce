// Manual routes and the server alias mapping: tables loaded and saved whole.
#include <cstdlib>
#include <cstring>

#include "Handle_p.h"
#include "velbrook/ServerStore.h"

using namespace vb;

namespace {

char* duplicate(const char* text)
{
    const size_t n = text ? std::strlen(text) : 0;
    auto* copy = static_cast<char*>(std::malloc(n + 1));
    if (copy) {
        if (n)
            std::memcpy(copy, text, n);
        copy[n] = '\0';
    }
    return copy;
}

constexpr size_t kMaxHostLength = 256;

} // namespace

extern "C" {

_tManualRoute* AllocManualRoute(const char* domainMask, uint32_t rule)
{
    if (!domainMask || rule > VB_ROUTE_DEFAULT) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto* r = static_cast<_tManualRoute*>(std::calloc(1, sizeof(_tManualRoute)));
    if (!r || !(r->domainMask = duplicate(domainMask))) {
        std::free(r);
        SetLastError(VB_ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    r->rule = rule;
    return r;
}

_tManualRouteMx* AllocManualRouteMx(const char* host, uint32_t port, uint32_t preference)
{
    if (!host || std::strlen(host) > kMaxHostLength || port > 65535 || preference > 65535) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto* m = static_cast<_tManualRouteMx*>(std::calloc(1, sizeof(_tManualRouteMx)));
    if (!m || !(m->host = duplicate(host))) {
        std::free(m);
        SetLastError(VB_ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    m->port = port;
    m->preference = preference;
    return m;
}

void FreeManualRouteMxs(_tManualRouteMx* first)
{
    while (first) {
        _tManualRouteMx* next = first->next;
        std::free(first->host);
        std::free(first);
        first = next;
    }
}

void FreeManualRoutes(_tManualRoute* first)
{
    while (first) {
        _tManualRoute* next = first->next;
        FreeManualRouteMxs(first->hosts);
        std::free(first->domainMask);
        std::free(first);
        first = next;
    }
}

int LoadManualRoutes(_tMailServer* server, _tManualRoute** first)
{
    if (!server || !first)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    *first = nullptr;
    if (uint32_t e = intercept(server, "LoadManualRoutes", nullptr, nullptr))
        return failWith(e);
    std::vector<Route> routes;
    if (uint32_t e = server->connector->loadRoutes(routes))
        return failWith(e);
    _tManualRoute** tail = first;
    for (const Route& r : routes) {
        _tManualRoute* route = AllocManualRoute(r.domainMask.c_str(), r.rule <= VB_ROUTE_DEFAULT ? r.rule : 0);
        if (!route) {
            FreeManualRoutes(*first);
            *first = nullptr;
            return failWith(VB_ERROR_NOT_ENOUGH_MEMORY);
        }
        *tail = route;
        tail = &route->next;
        _tManualRouteMx** htail = &route->hosts;
        for (const RouteHost& h : r.hosts) {
            _tManualRouteMx* mx = static_cast<_tManualRouteMx*>(std::calloc(1, sizeof(_tManualRouteMx)));
            if (!mx || !(mx->host = duplicate(h.host.c_str()))) {
                std::free(mx);
                FreeManualRoutes(*first);
                *first = nullptr;
                return failWith(VB_ERROR_NOT_ENOUGH_MEMORY);
            }
            mx->port = h.port;
            mx->preference = h.preference;
            *htail = mx;
            htail = &mx->next;
        }
    }
    return 1;
}

int SaveManualRoutes(_tMailServer* server, const _tManualRoute* first)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "SaveManualRoutes", nullptr, nullptr))
        return failWith(e);
    std::vector<Route> routes;
    for (const _tManualRoute* r = first; r; r = r->next) {
        if (!r->domainMask || r->rule > VB_ROUTE_DEFAULT)
            return failWith(VB_ERROR_INVALID_PARAMETER);
        Route route{r->domainMask, r->rule, {}};
        for (const _tManualRouteMx* h = r->hosts; h; h = h->next) {
            if (!h->host || std::strlen(h->host) > kMaxHostLength || h->port > 65535 || h->preference > 65535)
                return failWith(VB_ERROR_INVALID_PARAMETER);
            route.hosts.push_back(RouteHost{h->host, h->port, h->preference});
        }
        routes.push_back(std::move(route));
    }
    if (uint32_t e = server->connector->saveRoutes(routes))
        return failWith(e);
    return 1;
}

_tAliasMapping* AllocAliasMapping(const char* alias, const char* target)
{
    if (!alias || !target) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto* a = static_cast<_tAliasMapping*>(std::calloc(1, sizeof(_tAliasMapping)));
    if (!a || !(a->alias = duplicate(alias)) || !(a->target = duplicate(target))) {
        if (a)
            std::free(a->alias);
        std::free(a);
        SetLastError(VB_ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    return a;
}

void FreeAliasMapping(_tAliasMapping* first)
{
    while (first) {
        _tAliasMapping* next = first->next;
        std::free(first->alias);
        std::free(first->target);
        std::free(first);
        first = next;
    }
}

int LoadAliasMapping(_tMailServer* server, _tAliasMapping** first)
{
    if (!server || !first)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    *first = nullptr;
    if (uint32_t e = intercept(server, "LoadAliasMapping", nullptr, nullptr))
        return failWith(e);
    std::vector<AliasEntry> entries;
    if (uint32_t e = server->connector->loadAliasMapping(entries))
        return failWith(e);
    _tAliasMapping** tail = first;
    for (const AliasEntry& a : entries) {
        _tAliasMapping* m = AllocAliasMapping(a.alias.c_str(), a.target.c_str());
        if (!m) {
            FreeAliasMapping(*first);
            *first = nullptr;
            return failWith(VB_ERROR_NOT_ENOUGH_MEMORY);
        }
        *tail = m;
        tail = &m->next;
    }
    return 1;
}

int SaveAliasMapping(_tMailServer* server, const _tAliasMapping* first)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "SaveAliasMapping", nullptr, nullptr))
        return failWith(e);
    std::vector<AliasEntry> entries;
    for (const _tAliasMapping* a = first; a; a = a->next) {
        if (!a->alias || !a->target)
            return failWith(VB_ERROR_INVALID_PARAMETER);
        entries.push_back(AliasEntry{a->alias, a->target});
    }
    if (uint32_t e = server->connector->saveAliasMapping(entries))
        return failWith(e);
    return 1;
}

} // extern "C"
