// The server handle and the helpers every C operation shares.
#ifndef VB_STORE_HANDLE_P_H
#define VB_STORE_HANDLE_P_H

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "Connector.h"
#include "velbrook/MailToolkit.h"
#include "velbrook/ServerStore.h"

struct _tMailServer {
    std::string location;
    std::string keyPath; // the mailbox password key, beside the store's real path (resolved at open)
    std::unique_ptr<vb::Connector> connector; // the real one, or a fault injector wrapping it
    bool faultsInstalled = false;
    std::atomic<uint64_t> nextReportId{1};
    std::mutex failedMutex;
    std::vector<_tFailedWrite> failedWrites; // since the host last took them
    // Objects that depend on the handle keep a weak reference: expired once the handle is closed.
    std::shared_ptr<int> life = std::make_shared<int>(0);
};

namespace vb {

class FaultConnector;

// Returns the handle's fault injector, installing it in front of the real connector on first use.
FaultConnector& faults(_tMailServer* server);

// Sets the last error and returns 0, so that an operation can end with `return failWith(code);`.
inline int failWith(uint32_t code)
{
    SetLastError(code);
    return 0;
}

// Ends a transaction the operation opened with begin(): commits when error is 0, else rolls back.
// Returns what the C operation returns (1, or 0 with the last error set).
inline int endTransaction(_tMailServer* server, uint32_t error)
{
    if (error) {
        server->connector->rollback();
        return failWith(error);
    }
    if ((error = server->connector->commit()))
        return failWith(error);
    return 1;
}

// Runs the handle's interception for an operation: 0 when the operation may go on.
inline uint32_t intercept(_tMailServer* server, const char* operation, const char* section, const char* name,
                          bool* forceMoreData = nullptr)
{
    bool force = false;
    const uint32_t e = server->connector->intercept(operation, section, name, &force);
    if (forceMoreData)
        *forceMoreData = force;
    return e;
}

// Copies a value out under the buffer rules: size counts the terminating zero; a null buffer asks for the
// size; a buffer too small fails with VB_ERROR_MORE_DATA and *size = the size needed.
int copyValueOut(const Value& value, void* buffer, uint32_t* size, uint32_t* type, bool forceMoreData);
// Copies text (with its zero) or a multi-string under the same rules.
int copyTextOut(const std::string& text, char* buffer, uint32_t* size);
int copyMultiOut(const std::vector<std::string>& items, char* buffer, uint32_t* size);
// Fixed-size text output (size without update): VB_ERROR_MORE_DATA when it does not fit.
int copyTextFixed(const std::string& text, char* buffer, uint32_t size);
// Remembers, when rc is 0, the write that failed with the thread's last error on the handle (object: the
// domain, mailbox or list written, empty for the server). Returns rc.
int noteWrite(int rc, _tMailServer* server, const std::string& object, const char* section, const char* name);

// Parses what a caller hands to a Set operation. 0 on success, else the error code.
uint32_t parseValueIn(uint32_t type, const void* data, uint32_t size, Value& value);

// Largest value accepted, in bytes.
constexpr uint32_t kMaxValueSize = 16u * 1024u * 1024u;

} // namespace vb

#endif
