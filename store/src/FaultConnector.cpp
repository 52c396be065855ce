#include "FaultConnector.h"

#include "Handle_p.h"
#include "Util_p.h"
#include "velbrook/StoreTesting.h"

namespace vb {

bool FaultConnector::matches(const Fault& f, const char* section, const char* name) const
{
    if (f.section && !equalsFolded(*f.section, sv(section)))
        return false;
    if (f.name && !equalsFolded(*f.name, sv(name)))
        return false;
    return true;
}

void FaultConnector::injectFault(const char* operation, const char* section, const char* name, uint32_t code,
                                 uint32_t times)
{
    std::lock_guard lock(m_mutex);
    Fault f;
    f.operation = fold(sv(operation));
    if (section)
        f.section = std::string(section);
    if (name)
        f.name = std::string(name);
    f.code = code;
    f.remaining = times;
    f.unlimited = times == 0;
    m_faults.push_back(std::move(f));
}

void FaultConnector::forceMoreData(const char* section, const char* name, uint32_t times)
{
    std::lock_guard lock(m_mutex);
    Fault f;
    if (section)
        f.section = std::string(section);
    if (name)
        f.name = std::string(name);
    f.code = VB_ERROR_MORE_DATA;
    f.remaining = times;
    f.unlimited = times == 0;
    m_moreData.push_back(std::move(f));
}

void FaultConnector::overrideInfo(const ConnectorInfo* info)
{
    std::lock_guard lock(m_mutex);
    if (info)
        m_info = *info;
    else
        m_info.reset();
}

uint32_t FaultConnector::callCount(const char* operation) const
{
    std::lock_guard lock(m_mutex);
    auto it = m_calls.find(fold(sv(operation)));
    return it == m_calls.end() ? 0 : it->second;
}

void FaultConnector::clear()
{
    std::lock_guard lock(m_mutex);
    m_faults.clear();
    m_moreData.clear();
    m_info.reset();
    m_calls.clear();
}

ConnectorInfo FaultConnector::info() const
{
    std::lock_guard lock(m_mutex);
    return m_info ? *m_info : m_inner->info();
}

uint32_t FaultConnector::intercept(const char* operation, const char* section, const char* name,
                                   bool* forceMoreData)
{
    std::lock_guard lock(m_mutex);
    const std::string op = fold(sv(operation));
    ++m_calls[op];
    for (auto it = m_faults.begin(); it != m_faults.end(); ++it) {
        if (it->operation != op || !matches(*it, section, name))
            continue;
        const uint32_t code = it->code;
        if (!it->unlimited && --it->remaining == 0)
            m_faults.erase(it);
        return code;
    }
    // The more-data path applies to every read that fills a caller's buffer.
    if (forceMoreData && op.rfind("get", 0) == 0) {
        for (auto it = m_moreData.begin(); it != m_moreData.end(); ++it) {
            if (!matches(*it, section, name))
                continue;
            *forceMoreData = true;
            if (!it->unlimited && --it->remaining == 0)
                m_moreData.erase(it);
            break;
        }
    }
    return 0;
}

FaultConnector& faults(_tMailServer* server)
{
    if (!server->faultsInstalled) {
        server->connector = std::make_unique<FaultConnector>(std::move(server->connector));
        server->faultsInstalled = true;
    }
    return static_cast<FaultConnector&>(*server->connector);
}

} // namespace vb

using namespace vb;

extern "C" {

int VbInjectFault(_tMailServer* server, const char* operation, const char* section, const char* name,
                  uint32_t code, uint32_t times)
{
    if (!server || !operation || !*operation)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    faults(server).injectFault(operation, section, name, code, times);
    return 1;
}

int VbForceMoreData(_tMailServer* server, const char* section, const char* name, uint32_t times)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    faults(server).forceMoreData(section, name, times);
    return 1;
}

int VbOverrideConnectorInfo(_tMailServer* server, const _tConfigConnectorInfo* info)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (!info) {
        faults(server).overrideInfo(nullptr);
        return 1;
    }
    ConnectorInfo i;
    i.connectorType = info->connectorType;
    i.schemaVersion = info->version;
    i.readOnly = (info->flags & 1u) != 0;
    i.clustered = info->clustered != 0;
    faults(server).overrideInfo(&i);
    return 1;
}

uint32_t VbCallCount(_tMailServer* server, const char* operation)
{
    if (!server || !operation)
        return 0;
    return faults(server).callCount(operation);
}

void VbClearFaults(_tMailServer* server)
{
    if (server)
        faults(server).clear();
}

} // extern "C"
