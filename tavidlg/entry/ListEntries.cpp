// Entry points of the list editors: the e-mail address lists of the server, a domain and a mailbox, and
// the wireless carriers.
#include "common/EmailAddressListEditor.h"
#include "common/WirelessCarrierListEditor.h"

#include "entry/EntryFrame.h"

#include <velbrook/DomainStore.h>

#include <exception>

extern "C" TAVIDLG_API int EditServerEmailAddressLists(TaviOwner owner, _tMailServer* server, const char* listName)
{
    return runDialog<CEmailAddressListEditor>(owner, server, listName);
}

extern "C" TAVIDLG_API int EditServerWirelessCarrierListManager(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CWirelessCarrierListEditor>(owner, server);
}

extern "C" TAVIDLG_API int EditDomainEmailAddressLists(TaviOwner owner, _tMailServer* server, const char* domain,
                                                       const char* listName)
{
    // The domain is this call's: opened here (a failed open leaves the editor without lists) and closed
    // after the editor has gone, whatever it returned.
    _tDomain* opened = OpenDomain(server, domain);
    int result = -1;
    try {
        result = runDialog<CEmailAddressListEditor>(owner, server, opened, listName);
    } catch (...) {
        result = -1;
    }
    if (opened)
        CloseDomain(opened);
    return result;
}

extern "C" TAVIDLG_API int EditMailboxEmailAddressLists(TaviOwner owner, _tMailServer* server, _tMailbox* mailbox,
                                                        const char* listName)
{
    return runDialog<CEmailAddressListEditor>(owner, server, mailbox, listName);
}
