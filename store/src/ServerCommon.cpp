// Dial-up state and immediate retries of queued delivery.
#include "Handle_p.h"
#include "velbrook/ServerCommon.h"

using namespace vb;

namespace {

const ObjectRef kServer{};

uint32_t dialupEnabled(_tMailServer* server, bool& enabled)
{
    Value v;
    const uint32_t e = server->connector->getProperty(kServer, "", "DialupEnabled", v);
    if (e && e != VB_ERROR_FILE_NOT_FOUND)
        return e;
    enabled = !e && v.type == VB_TYPE_DWORD && v.number != 0;
    return 0;
}

} // namespace

extern "C" {

int GetDialupStatus(_tMailServer* server, uint32_t* status)
{
    if (!server || !status)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetDialupStatus", nullptr, nullptr))
        return failWith(e);
    Value v;
    const uint32_t e = server->connector->getProperty(kServer, "Dialup", "State", v);
    if (e && e != VB_ERROR_FILE_NOT_FOUND)
        return failWith(e);
    *status = !e && v.type == VB_TYPE_DWORD && v.number <= VB_DIALUP_DISCONNECTING ? v.number : VB_DIALUP_DISCONNECTED;
    return 1;
}

// The store records the state the administrator asked for; the server's dialler acts on it.
int DialupAction(_tMailServer* server, uint32_t action)
{
    if (!server || (action != VB_DIALUP_CONNECT && action != VB_DIALUP_DISCONNECT))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "DialupAction", nullptr, nullptr))
        return failWith(e);
    bool enabled = false;
    if (uint32_t e = dialupEnabled(server, enabled))
        return failWith(e);
    if (action == VB_DIALUP_CONNECT && !enabled)
        return failWith(VB_ERROR_NOT_SUPPORTED);
    Value v;
    v.type = VB_TYPE_DWORD;
    v.number = action == VB_DIALUP_CONNECT ? VB_DIALUP_CONNECTED : VB_DIALUP_DISCONNECTED;
    if (uint32_t e = server->connector->setProperty(kServer, "Dialup", "State", v))
        return failWith(e);
    return 1;
}

int InitiateRetry(_tMailServer* server, const char* const* names, uint32_t count)
{
    if (!server || (!names && count > 0))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "InitiateRetry", nullptr, nullptr))
        return failWith(e);
    std::vector<std::string> list;
    for (uint32_t i = 0; i < count && names[i] && *names[i]; ++i)
        list.emplace_back(names[i]);
    if (list.empty())
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = server->connector->addRetries(list))
        return failWith(e);
    return 1;
}

int GetPendingRetries(_tMailServer* server, char* buffer, uint32_t* size)
{
    if (!server || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetPendingRetries", nullptr, nullptr))
        return failWith(e);
    std::vector<std::string> names;
    if (uint32_t e = server->connector->pendingRetries(names))
        return failWith(e);
    return copyMultiOut(names, buffer, size);
}

} // extern "C"
