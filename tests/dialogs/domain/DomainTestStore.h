// Reading and writing a domain's properties straight through the store, for the domain page tests.
#pragma once

#include <QString>

#include <optional>

#include <velbrook/DomainStore.h>

namespace DomainTestStore {

inline std::optional<quint32> number(_tMailServer* server, const char* domain, const char* name)
{
    _tDomain* d = OpenDomain(server, domain);
    if (!d)
        return std::nullopt;
    uint32_t value = 0, size = 4;
    const bool read = GetDomainProperty(d, name, &value, &size, nullptr) != 0;
    CloseDomain(d);
    return read ? std::optional<quint32>(value) : std::nullopt;
}

inline bool setNumber(_tMailServer* server, const char* domain, const char* name, quint32 value)
{
    _tDomain* d = OpenDomain(server, domain);
    const uint32_t v = value;
    const bool ok = d && SetDomainProperty(d, VB_TYPE_DWORD, name, &v, 4);
    if (d)
        CloseDomain(d);
    return ok;
}

inline QString text(_tMailServer* server, const char* domain, const char* name)
{
    _tDomain* d = OpenDomain(server, domain);
    char value[512] = {};
    uint32_t size = sizeof value;
    if (d && !GetDomainProperty(d, name, value, &size, nullptr))
        value[0] = '\0';
    if (d)
        CloseDomain(d);
    return QString::fromUtf8(value);
}

} // namespace DomainTestStore
