// Entry points of the domain sheet and the server aliases dialog.
#include "domain/DomainSheet.h"
#include "entry/EntryFrame.h"
#include "server/AliasDlg.h"

#include <exception>

extern "C" TAVIDLG_API int EditDomain(TaviOwner owner, _tMailServer* server, const char* domain)
{
    if (!ensureApplication())
        return -1;
    try {
        COwnerWindow parent(owner);
        CDomainSheet sheet(parent.widget(), server, domain);
        // A domain that cannot be opened has been reported; no sheet is shown.
        if (!sheet.openDomain())
            return 2;
        return runModal(&sheet, parent);
    } catch (const std::exception&) {
        return -1;
    }
}

extern "C" TAVIDLG_API int EditAliases(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CAliasDlg>(owner, server);
}
