// Open domains, mailboxes and lists: a snapshot read in one round trip, writes that go straight through.
#ifndef VB_STORE_OBJECTS_P_H
#define VB_STORE_OBJECTS_P_H

#include "Handle_p.h"
#include "Util_p.h"

namespace vb {

struct OpenObject {
    _tMailServer* server = nullptr;
    std::weak_ptr<int> life; // of the server handle
    Snapshot snapshot;

    const ObjectRef& ref() const { return snapshot.object; }
};

// An object whose server handle was closed: every use but closing fails with VB_ERROR_INVALID_HANDLE.
inline bool gone(const OpenObject* o) { return o && o->life.expired(); }

// Property access shared by the three kinds; operation names are those of the C functions.
int getObjectProperty(OpenObject& o, const char* operation, const char* name, void* buffer, uint32_t* size,
                      uint32_t* type);
int setObjectProperty(OpenObject& o, const char* operation, uint32_t type, const char* name, const void* data,
                      uint32_t size);
int lookupObjectList(OpenObject& o, const char* operation, const char* name, const char* element);
int addToObjectList(OpenObject& o, const char* operation, const char* name, const char* element);
int removeFromObjectList(OpenObject& o, const char* operation, const char* name, const char* element);

// The default domain: "DefaultDomain" of the server when it names a domain, else the oldest domain.
uint32_t defaultDomain(_tMailServer* server, ObjectRef& domain);
// Splits "local@domain" (the last '@'); a bare local part is in the default domain.
uint32_t resolveDomain(_tMailServer* server, const std::string& domainName, ObjectRef& domain);
bool splitAddress(const char* address, std::string& local, std::string& domain);

// Names: valid UTF-8 of at most 255 bytes, no control characters, not empty.
bool validObjectName(const char* name);

} // namespace vb

#endif
