// Opening a configuration, server properties, constants and the machine.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Handle_p.h"
#include "Util_p.h"
#include "velbrook/ServerStore.h"

using namespace vb;

namespace {

const ObjectRef kServer{};
// Where a store records the machine it describes when the server is managed from elsewhere.
const char* const kMachineSection = "Machine";
constexpr size_t kMaxNameLength = 255;

bool validName(const char* name)
{
    return name && *name && std::strlen(name) <= kMaxNameLength;
}

bool validSection(const char* section)
{
    return !section || std::strlen(section) <= kMaxNameLength;
}

int mkdirs(const std::string& dir)
{
    if (dir.empty())
        return 0;
    struct stat st {};
    if (::stat(dir.c_str(), &st) == 0)
        return S_ISDIR(st.st_mode) ? 0 : -1;
    const size_t slash = dir.find_last_of('/');
    if (slash != std::string::npos && slash > 0)
        if (mkdirs(dir.substr(0, slash)) != 0)
            return -1;
    return ::mkdir(dir.c_str(), 0700) == 0 || errno == EEXIST ? 0 : -1;
}

std::string defaultLocation()
{
    if (const char* s = std::getenv("VELBROOK_STORE"); s && *s)
        return s;
    std::string base;
    if (const char* x = std::getenv("XDG_DATA_HOME"); x && *x == '/')
        base = x;
    else if (const char* h = std::getenv("HOME"); h && *h)
        base = std::string(h) + "/.local/share";
    else
        return std::string();
    return base + "/velbrook/config.db";
}

std::string thisMachineName()
{
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0)
        return std::string();
    std::string n = name;
    const size_t dot = n.find('.');
    return dot == std::string::npos ? n : n.substr(0, dot);
}

std::string thisHostName()
{
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0)
        return std::string();
    addrinfo hints{};
    hints.ai_flags = AI_CANONNAME;
    hints.ai_family = AF_UNSPEC;
    addrinfo* info = nullptr;
    std::string result = name;
    if (::getaddrinfo(name, nullptr, &hints, &info) == 0 && info) {
        if (info->ai_canonname && *info->ai_canonname)
            result = info->ai_canonname;
        ::freeaddrinfo(info);
    }
    return result;
}

std::vector<std::string> thisHostAddresses()
{
    std::vector<std::string> addresses, loopback;
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0)
        return addresses;
    for (ifaddrs* a = list; a; a = a->ifa_next) {
        if (!a->ifa_addr || a->ifa_addr->sa_family != AF_INET || !(a->ifa_flags & IFF_UP))
            continue;
        char text[INET_ADDRSTRLEN] = {};
        const auto* in = reinterpret_cast<const sockaddr_in*>(a->ifa_addr);
        if (!::inet_ntop(AF_INET, &in->sin_addr, text, sizeof text))
            continue;
        auto& target = (a->ifa_flags & IFF_LOOPBACK) ? loopback : addresses;
        bool seen = false;
        for (const std::string& s : target)
            seen = seen || s == text;
        if (!seen)
            target.emplace_back(text);
    }
    ::freeifaddrs(list);
    return addresses.empty() ? loopback : addresses;
}

} // namespace

int vb::noteWrite(int rc, _tMailServer* server, const std::string& object, const char* section, const char* name)
{
    if (rc || !server)
        return rc;
    const uint32_t error = GetLastError();
    std::lock_guard lock(server->failedMutex);
    auto& failed = server->failedWrites;
    if (failed.size() >= VB_MAX_FAILED_WRITES) {
        ++failed.back().more;
    } else {
        _tFailedWrite w{};
        w.error = error;
        std::snprintf(w.object, sizeof w.object, "%s", object.c_str());
        std::snprintf(w.section, sizeof w.section, "%s", section ? section : "");
        std::snprintf(w.name, sizeof w.name, "%s", name ? name : "");
        failed.push_back(w);
    }
    SetLastError(error);
    return rc;
}

extern "C" {

_tMailServer* OpenMailServer(const char* location)
{
    std::string path = location && *location ? std::string(location) : defaultLocation();
    if (path.empty()) {
        SetLastError(VB_ERROR_PATH_NOT_FOUND);
        return nullptr;
    }
    if (path.rfind("postgresql://", 0) == 0 || path.rfind("postgres://", 0) == 0) {
        SetLastError(VB_ERROR_NOT_SUPPORTED); // the clustered connector is not built yet
        return nullptr;
    }
    if (!location || !*location) {
        const size_t slash = path.find_last_of('/');
        if (slash != std::string::npos && slash > 0 && mkdirs(path.substr(0, slash)) != 0) {
            SetLastError(VB_ERROR_PATH_NOT_FOUND);
            return nullptr;
        }
    }
    uint32_t error = 0;
    std::unique_ptr<Connector> c = openSqliteConnector(path, error);
    if (!c) {
        SetLastError(error ? error : VB_ERROR_STORE_FAILURE);
        return nullptr;
    }
    auto* server = new _tMailServer;
    server->location = path;
    // Resolved once, so that a symbolic link or a later chdir never points the key somewhere else.
    if (char* real = ::realpath(path.c_str(), nullptr)) {
        server->keyPath = std::string(real) + ".key";
        std::free(real);
    } else {
        server->keyPath = path + ".key";
    }
    server->connector = std::move(c);
    SetLastError(0);
    return server;
}

void CloseMailServer(_tMailServer* server)
{
    delete server;
}

const char* GetMailServerLocation(_tMailServer* server)
{
    return server ? server->location.c_str() : nullptr;
}

int GetMailServerProperty(_tMailServer* server, const char* section, const char* name, void* buffer,
                          uint32_t* size, uint32_t* type)
{
    if (!server || !validName(name) || !validSection(section) || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    bool force = false;
    if (uint32_t e = intercept(server, "GetMailServerProperty", section, name, &force))
        return failWith(e);
    Value v;
    if (uint32_t e = server->connector->getProperty(kServer, sv(section), name, v))
        return failWith(e);
    return copyValueOut(v, buffer, size, type, force);
}

static int setMailServerPropertyNow(_tMailServer* server, const char* section, uint32_t type, const char* name,
                          const void* data, uint32_t size)
{
    if (!server || !validName(name) || !validSection(section))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "SetMailServerProperty", section, name))
        return failWith(e);
    Value v;
    if (uint32_t e = parseValueIn(type, data, size, v))
        return failWith(e);
    if (uint32_t e = server->connector->setProperty(kServer, sv(section), name, v))
        return failWith(e);
    return 1;
}

static int deleteMailServerPropertyNow(_tMailServer* server, const char* section, const char* name)
{
    if (!server || !validName(name) || !validSection(section))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "DeleteMailServerProperty", section, name))
        return failWith(e);
    if (uint32_t e = server->connector->deleteProperty(kServer, sv(section), name))
        return failWith(e);
    return 1;
}

int EnumMailServerProperties(_tMailServer* server, const char* section, char* buffer, uint32_t* size)
{
    if (!server || !validSection(section) || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "EnumMailServerProperties", section, nullptr))
        return failWith(e);
    std::vector<std::string> names;
    if (uint32_t e = server->connector->propertyNames(kServer, sv(section), names))
        return failWith(e);
    return copyMultiOut(names, buffer, size);
}

int EnumMailServerSections(_tMailServer* server, char* buffer, uint32_t* size)
{
    if (!server || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "EnumMailServerSections", nullptr, nullptr))
        return failWith(e);
    std::vector<std::string> sections;
    if (uint32_t e = server->connector->sectionNames(sections))
        return failWith(e);
    return copyMultiOut(sections, buffer, size);
}

int LookupMailServerListProperty(_tMailServer* server, const char* section, const char* name, const char* element)
{
    if (!server || !validName(name) || !validSection(section) || !element)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "LookupMailServerListProperty", section, name))
        return failWith(e);
    if (uint32_t e = server->connector->listLookup(kServer, sv(section), name, element))
        return failWith(e);
    return 1;
}

static int addToMailServerListPropertyNow(_tMailServer* server, const char* section, const char* name, const char* element)
{
    if (!server || !validName(name) || !validSection(section) || !element || !*element)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (std::strlen(element) > kMaxValueSize)
        return failWith(VB_ERROR_PROPERTY_TOO_LARGE);
    if (uint32_t e = intercept(server, "AddToMailServerListProperty", section, name))
        return failWith(e);
    if (uint32_t e = server->connector->listAdd(kServer, sv(section), name, element))
        return failWith(e);
    return 1;
}

static int removeFromMailServerListPropertyNow(_tMailServer* server, const char* section, const char* name,
                                     const char* element)
{
    if (!server || !validName(name) || !validSection(section) || !element)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "RemoveFromMailServerListProperty", section, name))
        return failWith(e);
    if (uint32_t e = server->connector->listRemove(kServer, sv(section), name, element))
        return failWith(e);
    return 1;
}

int SetMailServerProperty(_tMailServer* server, const char* section, uint32_t type, const char* name,
                          const void* data, uint32_t size)
{
    return noteWrite(setMailServerPropertyNow(server, section, type, name, data, size), server, {}, section, name);
}

int DeleteMailServerProperty(_tMailServer* server, const char* section, const char* name)
{
    return noteWrite(deleteMailServerPropertyNow(server, section, name), server, {}, section, name);
}

int AddToMailServerListProperty(_tMailServer* server, const char* section, const char* name, const char* element)
{
    return noteWrite(addToMailServerListPropertyNow(server, section, name, element), server, {}, section, name);
}

int RemoveFromMailServerListProperty(_tMailServer* server, const char* section, const char* name,
                                     const char* element)
{
    return noteWrite(removeFromMailServerListPropertyNow(server, section, name, element), server, {}, section, name);
}

int TakeFailedMailServerWrites(_tMailServer* server, _tFailedWrite* writes, uint32_t* count)
{
    if (!server || !count)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    std::lock_guard lock(server->failedMutex);
    auto& failed = server->failedWrites;
    if (!writes) {
        *count = uint32_t(failed.size());
    } else {
        const size_t n = std::min<size_t>(*count, failed.size());
        std::copy_n(failed.begin(), n, writes);
        failed.erase(failed.begin(), failed.begin() + ptrdiff_t(n));
        *count = uint32_t(n);
    }
    SetLastError(0);
    return 1;
}

int GetMailServerConstant(_tMailServer* server, const char* name, void* buffer, uint32_t* size, uint32_t* type)
{
    if (!server || !validName(name) || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    bool force = false;
    if (uint32_t e = intercept(server, "GetMailServerConstant", "CONSTANT", name, &force))
        return failWith(e);
    Value v;
    const uint32_t e = server->connector->getProperty(kServer, kMachineSection, name, v);
    if (e && e != VB_ERROR_FILE_NOT_FOUND)
        return failWith(e);
    if (e) {
        // Not recorded: the facts of this host.
        if (equalsFolded(name, "MachineName")) {
            v.type = VB_TYPE_STRING;
            v.text = thisMachineName();
        } else if (equalsFolded(name, "HostName")) {
            v.type = VB_TYPE_STRING;
            v.text = thisHostName();
        } else if (equalsFolded(name, "HostAddresses")) {
            v.type = VB_TYPE_MULTI_STRING;
            v.items = thisHostAddresses();
        } else {
            return failWith(VB_ERROR_FILE_NOT_FOUND);
        }
    }
    return copyValueOut(v, buffer, size, type, force);
}

int IndicateNewMailServerCriticalProperties(_tMailServer* server)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "IndicateNewMailServerCriticalProperties", nullptr, nullptr))
        return failWith(e);
    Value v;
    v.type = VB_TYPE_DWORD;
    v.number = uint32_t(std::time(nullptr));
    if (uint32_t e = server->connector->setProperty(kServer, "", "CriticalPropertiesChanged", v))
        return failWith(e);
    return 1;
}

int GetConfigConnectorInfo(_tMailServer* server, _tConfigConnectorInfo* info)
{
    if (!server || !info || info->cbSize < sizeof(_tConfigConnectorInfo))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetConfigConnectorInfo", nullptr, nullptr))
        return failWith(e);
    const ConnectorInfo i = server->connector->info();
    info->cbSize = sizeof(_tConfigConnectorInfo);
    info->connectorType = i.connectorType;
    info->version = i.schemaVersion;
    info->flags = i.readOnly ? 1u : 0u;
    info->clustered = i.clustered ? 1u : 0u;
    return 1;
}

int IsLocalMachine(_tMailServer* server)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "IsLocalMachine", nullptr, nullptr))
        return failWith(e);
    Value v;
    if (server->connector->getProperty(kServer, kMachineSection, "MachineName", v) != 0 || v.text.empty())
        return 1;
    SetLastError(0);
    return equalsFolded(v.text, thisMachineName()) ? 1 : 0;
}

int IsRemotelyManaged(_tMailServer* server)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "IsRemotelyManaged", nullptr, nullptr))
        return failWith(e);
    Value v;
    SetLastError(0);
    if (server->connector->getProperty(kServer, kMachineSection, "RemotelyManaged", v) != 0)
        return 0;
    return v.type == VB_TYPE_DWORD && v.number != 0 ? 1 : 0;
}

} // extern "C"
