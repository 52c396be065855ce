/*
 * A demonstration configuration: realistic server settings, mail services, domains with mailboxes and
 * mailing lists, and a route table, written into an open (normally new) store. The console writes it
 * when it creates the default store on first run. The host's addresses are recorded as two made-up ones
 * (section "Machine", "HostAddresses": 192.168.10.5 and 10.20.30.40), as for a server managed from
 * elsewhere.
 */
#ifndef VELBROOK_DEMOCONFIGURATION_H
#define VELBROOK_DEMOCONFIGURATION_H

#include "StoreBase.h"

VB_BEGIN_DECLS

/* Writes the demonstration configuration in one transaction; existing values of the same names are
 * overwritten, domains, mailboxes and lists that already exist are kept. Non-zero on success. */
VB_STORE_API int VbSeedDemoConfiguration(_tMailServer* server);

/* Called now and then during a long seeding with the mailboxes written so far; returning 0 cancels it. */
typedef int (*VbSeedProgress)(void* context, uint32_t done, uint32_t total);

/* Creates the domain (VB_ERROR_ALREADY_EXISTS when it is there already) with the given number of
 * mailboxes ("first.last", "first.last2", ...; a full name, a size, a message count, traffic counters,
 * and an own quota for one in fifty), in one transaction: on failure or cancel (VB_ERROR_CANCELLED)
 * nothing is kept. The domain has no mailbox limit and a default mailbox quota of 102400 kB with its
 * warning level at 92160 kB. Mailboxes seeded this way have no password. progress may be null. */
VB_STORE_API int VbSeedLargeDemoDomain(_tMailServer* server, const char* domain, uint32_t mailboxes,
                                       VbSeedProgress progress, void* context);

VB_END_DECLS

#endif
