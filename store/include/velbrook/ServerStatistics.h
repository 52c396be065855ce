/*
 * Server statistics: what the console's "Mail Server Statistics" window shows. Each operation is one
 * query, so that it stays quick on a store with a million mailboxes.
 *
 * Mailbox sizes are the mailbox property "QuotaMsgSize" (kB of messages) with "QuotaNoMsgs" (message
 * count). A mailbox's effective limit is its own "QuotaLimit", else its domain's "QuotaDefaultLimit", else
 * the server's "QuotaDomainDefaultLimit" (4294967295 at a level passes to the next; 0, or 4294967295 at
 * the server, means no limit); its warning level likewise from "QuotaTrigger", "QuotaDefaultTrigger" and
 * "QuotaDomainDefaultTrigger".
 */
#ifndef VELBROOK_SERVERSTATISTICS_H
#define VELBROOK_SERVERSTATISTICS_H

#include "StoreBase.h"

VB_BEGIN_DECLS

typedef struct _tServerObjectCounts {
    uint64_t domains;
    uint64_t mailboxes;
    uint64_t mailingLists;
} _tServerObjectCounts;

/* Counts of the server's domains, mailboxes and mailing lists. */
VB_STORE_API int VbCountServerObjects(_tMailServer* server, _tServerObjectCounts* counts);

typedef struct _tQuotaSummary {
    uint64_t limited;   /* mailboxes with an effective limit */
    uint64_t overQuota; /* size at or over the limit */
    uint64_t nearQuota; /* below the limit, at or over the warning level */
} _tQuotaSummary;

VB_STORE_API int VbSummariseQuotas(_tMailServer* server, _tQuotaSummary* summary);

/* Sums of the mailboxes' traffic counters, in the order of the traffic report's columns:
 * "RCPTCommands", "SMTPBytesReceived", "SMTPBytesSent", "IMAPBytesSent", "IMAPBytesReceived",
 * "POPBytesSent", "POPBytesReceived". */
VB_STORE_API int VbTotalTraffic(_tMailServer* server, uint64_t totals[7]);

typedef struct _tMailboxUsage {
    char address[512]; /* "local@domain"; cut short (still zero-terminated) if ever longer */
    uint32_t sizeKb;
    uint32_t messages;
} _tMailboxUsage;

/* The largest mailboxes (by "QuotaMsgSize", empty ones left out), largest first, ties by domain and
 * address. count: in, the room in rows (at most 1000 are returned); out, how many were written (rows may be null when *count is 0). */
VB_STORE_API int VbLargestMailboxes(_tMailServer* server, _tMailboxUsage* rows, uint32_t* count);

VB_END_DECLS

#endif
