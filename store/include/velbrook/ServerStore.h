/*
 * ServerStore: opening a configuration, server-wide properties, server constants, mail services,
 * manual routes, the alias mapping and the traffic report.
 */
#ifndef VELBROOK_SERVERSTORE_H
#define VELBROOK_SERVERSTORE_H

#include "StoreBase.h"

VB_BEGIN_DECLS

/* ---- opening ----------------------------------------------------------------------------------
 * location: a SQLite file path (created with its schema, mode 0600, when missing), a PostgreSQL
 * connection URI ("postgresql://..."), or null for the default store: $VELBROOK_STORE when set, else
 * $XDG_DATA_HOME/velbrook/config.db (~/.local/share/velbrook/config.db).
 * A file that is not a store fails with VB_ERROR_BAD_FILE; a store the caller may only read opens
 * read-only, and every write then fails with VB_ERROR_ACCESS_DENIED. */
VB_STORE_API _tMailServer* OpenMailServer(const char* location);
VB_STORE_API void CloseMailServer(_tMailServer* server);
/* The path or URI the handle was opened on (owned by the handle). */
VB_STORE_API const char* GetMailServerLocation(_tMailServer* server);

/* ---- writes that failed -----------------------------------------------------------------------
 * Every write made through a handle that fails (server, domain, mailbox and mailing-list properties
 * and list elements) is remembered on the server handle, oldest first, with the error code, even when
 * the dialog that made it says nothing (some deliberately close with OK). A host asks after each dialog
 * it opened and tells the administrator what was not saved:
 *
 *     _tFailedWrite failed[16];
 *     uint32_t count = 16;
 *     while (TakeFailedMailServerWrites(server, failed, &count) && count) { ...show them...; count = 16; }
 *
 * writes null: *count receives how many are remembered and nothing is forgotten. Otherwise up to
 * *count of them are copied out and forgotten, and *count receives how many were copied. At most
 * VB_MAX_FAILED_WRITES are kept; later ones are counted in the last entry's "more" field. */
#define VB_MAX_FAILED_WRITES 1000u
typedef struct _tFailedWrite {
    uint32_t error;      /* the last-error code of the write */
    uint32_t more;       /* further failures not kept (only in the last entry kept) */
    char object[256];    /* "" for the server, else the name of the domain, mailbox or mailing list */
    char section[256];   /* "" for the server's own settings and for objects */
    char name[256];      /* the property written */
} _tFailedWrite;
VB_STORE_API int TakeFailedMailServerWrites(_tMailServer* server, _tFailedWrite* writes, uint32_t* count);

/* ---- server properties ------------------------------------------------------------------------
 * section: null or "" for the server's own settings, else a group or service key ("SMTPRA").
 * buffer may be null to ask for the size. *size is the buffer's size in bytes on entry and the
 * value's size on return; a buffer too small fails with VB_ERROR_MORE_DATA and *size = size needed.
 * type, when not null, receives the stored type. A number read with a 4-byte buffer is the usual
 * form. */
VB_STORE_API int GetMailServerProperty(_tMailServer* server, const char* section, const char* name,
                                       void* buffer, uint32_t* size, uint32_t* type);
/* type: VB_TYPE_STRING (size = length + 1), VB_TYPE_DWORD (size 4) or VB_TYPE_MULTI_STRING. */
VB_STORE_API int SetMailServerProperty(_tMailServer* server, const char* section, uint32_t type,
                                       const char* name, const void* data, uint32_t size);
/* Removes a property; VB_ERROR_FILE_NOT_FOUND when there was none. */
VB_STORE_API int DeleteMailServerProperty(_tMailServer* server, const char* section, const char* name);
/* Multi-string of the property names of one section (VB_ERROR_MORE_DATA rules as above). */
VB_STORE_API int EnumMailServerProperties(_tMailServer* server, const char* section, char* buffer,
                                          uint32_t* size);
/* Multi-string of the sections that hold at least one property ("" for the server's own first). */
VB_STORE_API int EnumMailServerSections(_tMailServer* server, char* buffer, uint32_t* size);

/* Subnet-list properties (such as section "SMTPRA", name "TrustedSubnets"): a multi-string with one IPv4
 * subnet per element, "a.b.c.d/nn" (or "a.b.c.d/m.m.m.m"), optionally followed by a comma and a comment
 * in double quotes with inner double quotes doubled: 10.0.0.0/8,"head office". An element without a
 * comment has an empty one. `velbrook-store set --list` writes one element per argument, the subnet
 * list editor writes and reads this format, and it also reads a text written by EncodeIp4SubnetList. */

/* List properties: a multi-valued property whose elements are changed one at a time. Reading the
 * property with GetMailServerProperty yields a multi-string (type 7) in insertion order; writing it
 * with type 7 replaces the whole list. Elements compare without regard to ASCII case.
 * Lookup: non-zero when present (last error VB_ERROR_NOT_FOUND otherwise).
 * AddTo: VB_ERROR_ALREADY_EXISTS when present.  RemoveFrom: VB_ERROR_NOT_FOUND when absent.
 *
 * E-mail address lists of the server: list properties of section "AddressLists" named after the list
 * ("Whitelist", "Blacklist", "PreferredSenders"), lower-case addresses or patterns ("*@example.com");
 * the text property "AddressListNames" of that section, when present, names the known lists (separated
 * by ", ;"). Domains and mailboxes keep theirs the same way as their own list properties.
 * "MobileCarriers" (no section, text): the path of the wireless carrier table, a file of
 * "id<TAB>name" lines that CIdToStringMap::Load reads. */
VB_STORE_API int LookupMailServerListProperty(_tMailServer* server, const char* section,
                                              const char* name, const char* element);
VB_STORE_API int AddToMailServerListProperty(_tMailServer* server, const char* section,
                                             const char* name, const char* element);
VB_STORE_API int RemoveFromMailServerListProperty(_tMailServer* server, const char* section,
                                                  const char* name, const char* element);

/* ---- constants and the machine -----------------------------------------------------------------
 * "MachineName" (text), "HostName" (text), "HostAddresses" (multi-string of the host's IPv4
 * addresses): taken from this host unless the store records an override for a server managed from
 * elsewhere, as properties of the same names in section "Machine" (which also holds the number
 * "RemotelyManaged"). Same buffer rules as GetMailServerProperty. */
VB_STORE_API int GetMailServerConstant(_tMailServer* server, const char* name, void* buffer,
                                       uint32_t* size, uint32_t* type);
/* Records that critical properties changed: the server property "CriticalPropertiesChanged" (no section)
 * receives the time (seconds since 1970), which a running server watches. */
VB_STORE_API int IndicateNewMailServerCriticalProperties(_tMailServer* server);

typedef struct _tConfigConnectorInfo {
    uint32_t cbSize;        /* set to sizeof (20) by the caller */
    uint32_t connectorType; /* 0: the embedded (local) store; 1: PostgreSQL */
    uint32_t version;       /* schema version */
    uint32_t flags;         /* 1: read-only */
    uint32_t clustered;     /* non-zero when the connector serves a cluster of mail servers */
} _tConfigConnectorInfo;
VB_STORE_API int GetConfigConnectorInfo(_tMailServer* server, _tConfigConnectorInfo* info);

/* Non-zero when the recorded machine name is this host's, or none is recorded. */
VB_STORE_API int IsLocalMachine(_tMailServer* server);
/* Non-zero when the store records that the server is managed from elsewhere. */
VB_STORE_API int IsRemotelyManaged(_tMailServer* server);

/* ---- mail services -----------------------------------------------------------------------------
 * States: 1 stopped, 2 start pending, 3 stop pending, 4 running, 5 continue pending,
 * 6 pause pending, 7 paused. */
#define VB_SERVICE_STOPPED 1u
#define VB_SERVICE_START_PENDING 2u
#define VB_SERVICE_STOP_PENDING 3u
#define VB_SERVICE_RUNNING 4u
#define VB_SERVICE_CONTINUE_PENDING 5u
#define VB_SERVICE_PAUSE_PENDING 6u
#define VB_SERVICE_PAUSED 7u

/* Multi-string of service names ("SMTPRA", ...). Each service's section holds "DisplayName". */
VB_STORE_API int GetMailServiceList(_tMailServer* server, char* buffer, uint32_t* size);
VB_STORE_API int IsMailServiceInstalled(_tMailServer* server, const char* service);
VB_STORE_API int GetMailServiceStatus(_tMailServer* server, const char* service, uint32_t* state);
VB_STORE_API int StartMailService(_tMailServer* server, const char* service);
VB_STORE_API int StopMailService(_tMailServer* server, const char* service);
/* Installs (or re-describes) a service. controller: "builtin" (its state is kept in the store; a start
 * or stop stays pending for the number "PendingMilliseconds" of the service's section, 1000 when
 * absent, before it completes) or "systemd" (unit: the systemd unit, whose ActiveState gives the
 * state; start and stop run systemctl without waiting). state: the initial state of a builtin service.
 * displayName, when not null, is written as "DisplayName" in the service's section. */
VB_STORE_API int VbRegisterMailService(_tMailServer* server, const char* service, const char* displayName,
                                       const char* controller, const char* unit, uint32_t state);
VB_STORE_API int VbRemoveMailService(_tMailServer* server, const char* service);

/* ---- manual routes -----------------------------------------------------------------------------
 * Lists allocated by the Alloc functions and freed by the Free functions of this library only. */
typedef struct _tManualRouteMx {
    struct _tManualRouteMx* next;
    char* host;          /* at most 256 characters */
    uint32_t port;       /* 0: the standard port 25 */
    uint32_t preference; /* 0 to 65535, lower first */
} _tManualRouteMx;

#define VB_ROUTE_ADDITIONAL 0u
#define VB_ROUTE_FORCE 1u
#define VB_ROUTE_DEFAULT 2u

typedef struct _tManualRoute {
    struct _tManualRoute* next;
    char* domainMask;
    uint32_t rule;           /* VB_ROUTE_* */
    _tManualRouteMx* hosts;  /* null when the mask has no hosts */
} _tManualRoute;

/* *first receives the table in its stored order (null when empty). */
VB_STORE_API int LoadManualRoutes(_tMailServer* server, _tManualRoute** first);
/* Replaces the whole table in one transaction. */
VB_STORE_API int SaveManualRoutes(_tMailServer* server, const _tManualRoute* first);
/* Frees the route and every route after it, with their host lists. */
VB_STORE_API void FreeManualRoutes(_tManualRoute* first);
VB_STORE_API _tManualRoute* AllocManualRoute(const char* domainMask, uint32_t rule);
VB_STORE_API _tManualRouteMx* AllocManualRouteMx(const char* host, uint32_t port, uint32_t preference);
VB_STORE_API void FreeManualRouteMxs(_tManualRouteMx* first);

/* ---- server alias mapping ---------------------------------------------------------------------- */
typedef struct _tAliasMapping {
    struct _tAliasMapping* next;
    char* alias;   /* the alias address or domain */
    char* target;  /* what it maps to */
} _tAliasMapping;

VB_STORE_API int LoadAliasMapping(_tMailServer* server, _tAliasMapping** first);
VB_STORE_API int SaveAliasMapping(_tMailServer* server, const _tAliasMapping* first);
VB_STORE_API _tAliasMapping* AllocAliasMapping(const char* alias, const char* target);
VB_STORE_API void FreeAliasMapping(_tAliasMapping* first);

VB_END_DECLS

#ifdef __cplusplus
#include <memory>

/* Report thresholds; a mailbox is listed when one of its counters is greater than its threshold
 * (thresholds of 0 are ignored; all 0 lists every mailbox). */
struct _tTrafficStatistics {
    uint32_t rcptCommands;
    uint32_t smtpBytesReceived;
    uint32_t smtpBytesSent;
    uint32_t reserved; /* always 0 */
    uint32_t imapBytesSent;
    uint32_t imapBytesReceived;
    uint32_t popBytesSent;
    uint32_t popBytesReceived;
};

/* Traffic report over the mailboxes of a server. Generate selects (in SQL) the mailboxes over the
 * thresholds; Save streams them as RFC 4180 CSV with a header row. Both fail with the thread's last
 * error set. A progress callback, when set, is called now and then with the rows done and the rows
 * expected (0 when unknown); returning false cancels with VB_ERROR_CANCELLED. */
class VB_STORE_API CTrafficReport {
public:
    using Progress = bool (*)(void* context, uint64_t done, uint64_t total);

    explicit CTrafficReport(_tMailServer* server);
    ~CTrafficReport();
    CTrafficReport(const CTrafficReport&) = delete;
    CTrafficReport& operator=(const CTrafficReport&) = delete;

    void SetProgress(Progress progress, void* context);
    /* name: a domain to report on, or null / "" for every domain of the server. */
    bool Generate(const char* name, _tTrafficStatistics thresholds);
    bool Save(const char* fileName);
    /* Rows selected by the last Generate. */
    uint64_t RowCount() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
#endif

#endif
