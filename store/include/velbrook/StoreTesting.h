/*
 * Fault injection, for tests: makes chosen operations of one open configuration fail with chosen codes
 * or take the more-data path, in front of the real database.
 */
#ifndef VELBROOK_STORETESTING_H
#define VELBROOK_STORETESTING_H

#include "ServerStore.h"

VB_BEGIN_DECLS

/* operation: the name of a store function ("GetMailServerProperty", "SetMailServerProperty",
 * "GetMailServerConstant", "GetMailServiceStatus", "StartMailService", "StopMailService",
 * "SaveManualRoutes", "GetDomainProperty", "SetDomainProperty", "OpenDomain", ...).
 * section, name: match the property's section and name (or the service, domain, mailbox or list name)
 * without regard to case; null matches any. times: how many calls fail before the fault is spent;
 * 0 means every call. The failing call sets the last error to code and does nothing else. */
VB_STORE_API int VbInjectFault(_tMailServer* server, const char* operation, const char* section,
                               const char* name, uint32_t code, uint32_t times);
/* The next `times` reads of the property (times 0: every read) fail with VB_ERROR_MORE_DATA and report the real size, as if
 * the caller's buffer were too small, whatever its size. */
VB_STORE_API int VbForceMoreData(_tMailServer* server, const char* section, const char* name,
                                 uint32_t times);
/* Makes GetConfigConnectorInfo report this record (a clustered connector, say); null restores. */
VB_STORE_API int VbOverrideConnectorInfo(_tMailServer* server, const _tConfigConnectorInfo* info);
/* Number of calls of an operation made through this handle since fault injection was first used on it
 * (any of these functions, VbCallCount included, starts it) or the counters were cleared: the way to
 * assert that a write did not happen. */
VB_STORE_API uint32_t VbCallCount(_tMailServer* server, const char* operation);
VB_STORE_API void VbClearFaults(_tMailServer* server);

VB_END_DECLS

#endif
