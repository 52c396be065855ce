// Every entry point of the dialog library, grouped as an administrator thinks of them. The console
// shows the rows whose entry point the loaded library exports; add a row when a new kind of argument
// is needed, nothing else.
#pragma once

#include <QString>

#include <vector>

enum class EntryArgs {
    None,        // (owner, server)
    Domain,      // (owner, server, domain name)
    DomainList,  // (owner, server, domain name, list name)
    Mailbox,     // (owner, server, local part, domain)
    MailList,    // (owner, server, list name, domain)
    Service,     // (owner, server, service name)
    ServiceControl, // (owner, server, service name, caption)
    ServerList,  // (owner, server, list name)
    MailboxList, // (owner, server, open mailbox, list name)
    LogFlags,    // (owner, server, caption, uint32_t* flags, uint32_t mask)
    SubnetList,  // (owner, server, section, property name, caption string id)
};

struct DialogRow {
    const char* group;
    const char* entryPoint;
    const char* title;
    EntryArgs args;
};

const std::vector<DialogRow>& dialogTable();
