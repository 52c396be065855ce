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

VB_END_DECLS

#endif
