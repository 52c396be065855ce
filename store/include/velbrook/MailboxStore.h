/*
 * MailboxStore: mailboxes, their properties, aliases and passwords.
 * Passwords are kept encrypted with a key file private to the store's owner and read back as text.
 */
#ifndef VELBROOK_MAILBOXSTORE_H
#define VELBROOK_MAILBOXSTORE_H

#include "StoreBase.h"

VB_BEGIN_DECLS

typedef struct _tMailbox _tMailbox;

/* As InitDomainStore / TermDomainStore, for CMailboxStoreDependancy. */
VB_STORE_API int InitMailboxStore(_tMailServer* server);
VB_STORE_API int TermMailboxStore(void);

/* address: "local@domain", or a bare local part for the default domain. CreateMailbox fails with
 * VB_ERROR_MAILBOX_LIMIT when the domain's "MaxMailboxes" (4294967295: no limit) is reached, and with
 * VB_ERROR_MAILBOX_BAD_NAME for an empty or over-long local part.
 *
 * The mailbox properties "RCPTCommands", "SMTPBytesReceived", "SMTPBytesSent", "IMAPBytesSent",
 * "IMAPBytesReceived", "POPBytesSent" and "POPBytesReceived" are the traffic counters (numbers, 0 until
 * counted) that the traffic report filters on.
 *
 * Effective scanner settings: "SpamScannerTypeEffective", "GreylistTypeEffective" and
 * "VirusScannerTypeEffective" are read-only numbers (1 on, 0 off) computed on every read from the
 * property of the same name without "Effective" at three levels. The server's own (no section) and the
 * domain's each hold 0 or nothing (leave it to the level below), 1 (force scanning on) or 2 (force it
 * off); the server's forcing wins over the domain's; when neither forces, the mailbox's own choice
 * decides (non-zero: on). */
VB_STORE_API _tMailbox* OpenMailbox(_tMailServer* server, const char* address);
VB_STORE_API int CloseMailbox(_tMailbox* mailbox);
VB_STORE_API int CreateMailbox(_tMailServer* server, const char* address);
VB_STORE_API int DestroyMailbox(_tMailServer* server, const char* address);

VB_STORE_API int GetMailboxProperty(_tMailbox* mailbox, const char* name, void* buffer, uint32_t* size,
                                    uint32_t* type);
VB_STORE_API int SetMailboxProperty(_tMailbox* mailbox, uint32_t type, const char* name, const void* data,
                                    uint32_t size);
/* List properties such as "NoReplyTo", and the e-mail address lists "Whitelist", "Blacklist",
 * "PreferredSenders" (and those the mailbox's text property "AddressListNames" names), each element a
 * lower-case address or pattern. Writing a list property with type 7 replaces it whole. */
VB_STORE_API int LookupMailboxListProperty(_tMailbox* mailbox, const char* name, const char* element);
VB_STORE_API int AddToMailboxListProperty(_tMailbox* mailbox, const char* name, const char* element);
VB_STORE_API int RemoveFromMailboxListProperty(_tMailbox* mailbox, const char* name, const char* element);

VB_STORE_API int CreateMailboxAlias(_tMailbox* mailbox, const char* alias);
VB_STORE_API int DestroyMailboxAlias(_tMailbox* mailbox, const char* alias);
VB_STORE_API int GetMailboxAliasNames(_tMailbox* mailbox, char* buffer, uint32_t* size);

/* size in bytes including the terminating zero; VB_ERROR_MORE_DATA rules as for properties.
 *
 * Passwords are sealed with the key file beside the store's real path ("<store>.key", symbolic links
 * resolved when the store is opened), mode 0600. The key is created, atomically, only by the first
 * SetMailboxPassword of a store that holds no sealed password. It is never replaced: a missing key while
 * sealed passwords exist fails with VB_ERROR_MAILBOX_KEY_MISSING, a key the stored passwords do not open
 * with VB_ERROR_MAILBOX_PASSWORD_SEALED (also for SetMailboxPassword, so that nothing is sealed under a
 * second key), a key file readable by group or others with VB_ERROR_MAILBOX_KEY_UNSAFE.
 * GetMailboxManagerErrorString names the key file in these texts. */
VB_STORE_API int GetMailboxPassword(_tMailbox* mailbox, char* password, uint32_t* size);
VB_STORE_API int SetMailboxPassword(_tMailbox* mailbox, const char* password);

typedef struct _tMailboxPluginInfo {
    uint32_t cbSize;          /* 40, set by the caller */
    uint32_t kind;            /* 0: an ordinary mailbox */
    char module[24];          /* the plug-in's resource module, empty when none */
    uint32_t descriptionId;   /* string id of the plug-in's description */
    uint32_t reserved;
} _tMailboxPluginInfo;
VB_STORE_API int GetMailboxPluginInfo(_tMailbox* mailbox, _tMailboxPluginInfo* info);

VB_STORE_API int GetMailboxCount(_tMailServer* server, uint32_t* count);
VB_STORE_API int GetCalendaringMailboxCount(_tMailServer* server, uint32_t* count);
VB_STORE_API int CountCalendaringMailboxesInDomain(_tMailServer* server, const char* domain, uint32_t* count);

/* Text of a mailbox-store error code (codes with bits 0x20100000); 0 when there is none. */
VB_STORE_API int GetMailboxManagerErrorString(uint32_t code, char* text, uint32_t size);

VB_END_DECLS

#endif
