// Mail services: each names its controller, "builtin" (state kept in the store) or "systemd".
#include <cstring>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Handle_p.h"
#include "Util_p.h"
#include "velbrook/ServerStore.h"

using namespace vb;

namespace {

const ObjectRef kServer{};
constexpr uint32_t kDefaultPendingMs = 1000;

// Runs systemctl with the arguments (no shell); returns its exit status, or -1 when it could not run.
int runSystemctl(const std::vector<std::string>& args, std::string* output)
{
    std::vector<char*> argv;
    static char prog[] = "systemctl";
    argv.push_back(prog);
    for (const std::string& a : args)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);

    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0)
        return -1;
    const pid_t pid = ::fork();
    if (pid < 0) {
        ::close(fds[0]);
        ::close(fds[1]);
        return -1;
    }
    if (pid == 0) {
        ::dup2(fds[1], STDOUT_FILENO);
        const int devnull = ::open("/dev/null", O_RDWR);
        if (devnull >= 0) {
            ::dup2(devnull, STDIN_FILENO);
            ::dup2(devnull, STDERR_FILENO);
        }
        ::execvp("systemctl", argv.data());
        ::_exit(127);
    }
    ::close(fds[1]);
    char buf[512];
    ssize_t n;
    while ((n = ::read(fds[0], buf, sizeof buf)) > 0 || (n < 0 && errno == EINTR))
        if (n > 0 && output && output->size() < 65536)
            output->append(buf, size_t(n));
    ::close(fds[0]);
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

uint32_t systemdState(const std::string& unit, uint32_t& state)
{
    std::string out;
    if (runSystemctl({"show", "--property=LoadState,ActiveState", "--", unit}, &out) != 0)
        return VB_ERROR_SERVICE_REQUEST_TIMEOUT;
    std::string load, active;
    size_t at = 0;
    while (at < out.size()) {
        size_t end = out.find('\n', at);
        if (end == std::string::npos)
            end = out.size();
        const std::string line = out.substr(at, end - at);
        if (line.rfind("LoadState=", 0) == 0)
            load = line.substr(10);
        else if (line.rfind("ActiveState=", 0) == 0)
            active = line.substr(12);
        at = end + 1;
    }
    if (load == "not-found" || active.empty())
        return VB_ERROR_SERVICE_DOES_NOT_EXIST;
    if (active == "active" || active == "reloading")
        state = VB_SERVICE_RUNNING;
    else if (active == "activating")
        state = VB_SERVICE_START_PENDING;
    else if (active == "deactivating" || active == "maintenance")
        state = VB_SERVICE_STOP_PENDING;
    else
        state = VB_SERVICE_STOPPED; // inactive, failed
    return 0;
}

// The state of a builtin service as of now: a pending start or stop completes once its time is up.
uint32_t builtinState(const ServiceRecord& r)
{
    if (r.pendingState == 0)
        return r.state;
    return nowMs() < r.pendingUntilMs ? r.pendingState : r.finalState;
}

uint32_t pendingMs(_tMailServer* server, const std::string& service)
{
    Value v;
    if (server->connector->getProperty(kServer, service, "PendingMilliseconds", v) == 0 && v.type == VB_TYPE_DWORD)
        return v.number;
    return kDefaultPendingMs;
}

uint32_t stateOf(_tMailServer* server, const ServiceRecord& r, uint32_t& state)
{
    if (r.controller == "systemd")
        return systemdState(r.unit.empty() ? r.name : r.unit, state);
    state = builtinState(r);
    return 0;
}

// Whether a service in this state may be started (or stopped): 0, or why not.
uint32_t mayControl(uint32_t state, bool start)
{
    if (start && (state == VB_SERVICE_RUNNING || state == VB_SERVICE_START_PENDING))
        return VB_ERROR_SERVICE_ALREADY_RUNNING;
    if (!start && (state == VB_SERVICE_STOPPED || state == VB_SERVICE_STOP_PENDING))
        return VB_ERROR_SERVICE_NOT_ACTIVE;
    if (state != VB_SERVICE_RUNNING && state != VB_SERVICE_STOPPED && state != VB_SERVICE_PAUSED)
        return VB_ERROR_SERVICE_CANNOT_ACCEPT_CTRL;
    return 0;
}

uint32_t controlSystemd(const ServiceRecord& r, bool start)
{
    uint32_t state = 0;
    const std::string unit = r.unit.empty() ? r.name : r.unit;
    if (uint32_t e = systemdState(unit, state))
        return e;
    if (uint32_t e = mayControl(state, start))
        return e;
    const int rc = runSystemctl({start ? "start" : "stop", "--no-block", "--", unit}, nullptr);
    if (rc == 0)
        return 0;
    if (rc == 4)
        return VB_ERROR_ACCESS_DENIED;
    if (rc == 5)
        return VB_ERROR_SERVICE_DOES_NOT_EXIST;
    return VB_ERROR_SERVICE_REQUEST_TIMEOUT;
}

// A builtin service's state is checked and changed inside one write transaction, so that of two
// simultaneous starts exactly one succeeds.
uint32_t controlBuiltin(_tMailServer* server, const char* service, bool start)
{
    ServiceRecord r;
    uint32_t e = server->connector->getService(service, r);
    if (!e)
        e = mayControl(builtinState(r), start);
    if (e)
        return e;
    const uint32_t ms = pendingMs(server, r.name);
    const uint32_t target = start ? VB_SERVICE_RUNNING : VB_SERVICE_STOPPED;
    if (ms == 0) {
        r.state = target;
        r.pendingState = 0;
    } else {
        r.state = builtinState(r);
        r.pendingState = start ? VB_SERVICE_START_PENDING : VB_SERVICE_STOP_PENDING;
        r.finalState = target;
        r.pendingUntilMs = nowMs() + ms;
    }
    return server->connector->putService(r);
}

int control(_tMailServer* server, const char* service, bool start)
{
    ServiceRecord r;
    if (uint32_t e = server->connector->getService(service, r))
        return failWith(e);
    if (r.controller == "systemd") {
        if (uint32_t e = controlSystemd(r, start))
            return failWith(e);
        return 1;
    }
    if (uint32_t e = server->connector->begin())
        return failWith(e);
    return endTransaction(server, controlBuiltin(server, service, start));
}

} // namespace

extern "C" {

int GetMailServiceList(_tMailServer* server, char* buffer, uint32_t* size)
{
    if (!server || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    bool force = false;
    if (uint32_t e = intercept(server, "GetMailServiceList", nullptr, nullptr, &force))
        return failWith(e);
    std::vector<ServiceRecord> services;
    if (uint32_t e = server->connector->services(services))
        return failWith(e);
    Value v;
    v.type = VB_TYPE_MULTI_STRING;
    for (const ServiceRecord& r : services)
        v.items.push_back(r.name);
    return copyValueOut(v, buffer, size, nullptr, force);
}

int IsMailServiceInstalled(_tMailServer* server, const char* service)
{
    if (!server || !service || !*service)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "IsMailServiceInstalled", nullptr, service))
        return failWith(e);
    ServiceRecord r;
    if (uint32_t e = server->connector->getService(service, r))
        return failWith(e);
    SetLastError(0);
    return 1;
}

int GetMailServiceStatus(_tMailServer* server, const char* service, uint32_t* state)
{
    if (!server || !service || !*service || !state)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetMailServiceStatus", nullptr, service))
        return failWith(e);
    ServiceRecord r;
    if (uint32_t e = server->connector->getService(service, r))
        return failWith(e);
    if (uint32_t e = stateOf(server, r, *state))
        return failWith(e);
    return 1;
}

int StartMailService(_tMailServer* server, const char* service)
{
    if (!server || !service || !*service)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "StartMailService", nullptr, service))
        return failWith(e);
    return control(server, service, true);
}

int StopMailService(_tMailServer* server, const char* service)
{
    if (!server || !service || !*service)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "StopMailService", nullptr, service))
        return failWith(e);
    return control(server, service, false);
}

int VbRegisterMailService(_tMailServer* server, const char* service, const char* displayName,
                          const char* controller, const char* unit, uint32_t state)
{
    if (!server || !service || !*service || std::strlen(service) > 255 || !controller
        || (std::strcmp(controller, "builtin") != 0 && std::strcmp(controller, "systemd") != 0))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (state < VB_SERVICE_STOPPED || state > VB_SERVICE_PAUSED)
        state = VB_SERVICE_STOPPED;
    if (uint32_t e = intercept(server, "VbRegisterMailService", nullptr, service))
        return failWith(e);
    if (uint32_t e = server->connector->begin())
        return failWith(e);
    ServiceRecord r;
    r.name = service;
    r.controller = controller;
    r.unit = unit ? unit : "";
    r.state = state;
    uint32_t e = server->connector->putService(r);
    if (!e && displayName) {
        Value v;
        v.type = VB_TYPE_STRING;
        v.text = displayName;
        e = server->connector->setProperty(kServer, service, "DisplayName", v);
    }
    return endTransaction(server, e);
}

int VbRemoveMailService(_tMailServer* server, const char* service)
{
    if (!server || !service || !*service)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "VbRemoveMailService", nullptr, service))
        return failWith(e);
    if (uint32_t e = server->connector->removeService(service))
        return failWith(e);
    return 1;
}

} // extern "C"
