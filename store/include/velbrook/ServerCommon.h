/*
 * ServerCommon: dial-up state and immediate retries of queued delivery.
 */
#ifndef VELBROOK_SERVERCOMMON_H
#define VELBROOK_SERVERCOMMON_H

#include "StoreBase.h"

VB_BEGIN_DECLS

#define VB_DIALUP_DISCONNECTED 0u
#define VB_DIALUP_CONNECTING 1u
#define VB_DIALUP_CONNECTED 2u
#define VB_DIALUP_DISCONNECTING 3u

#define VB_DIALUP_CONNECT 1u
#define VB_DIALUP_DISCONNECT 2u

VB_STORE_API int GetDialupStatus(_tMailServer* server, uint32_t* status);
VB_STORE_API int DialupAction(_tMailServer* server, uint32_t action);
/* Records a request to retry queued mail now for each name (domains or hosts); names ends with a
 * null pointer or an empty string, whichever comes first, and count bounds it. */
VB_STORE_API int InitiateRetry(_tMailServer* server, const char* const* names, uint32_t count);
/* Multi-string of the names of retry requests not yet taken by the server, oldest first. */
VB_STORE_API int GetPendingRetries(_tMailServer* server, char* buffer, uint32_t* size);

VB_END_DECLS

#endif
