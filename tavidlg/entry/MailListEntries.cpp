// Entry point of the mailing-list sheet.
#include "entry/EntryFrame.h"
#include "maillist/MailListSheet.h"

#include <memory>

extern "C" TAVIDLG_API int EditMailList(TaviOwner owner, _tMailServer* server, const char* domain, const char* list)
{
    if (!ensureApplication())
        return -1;
    try {
        COwnerWindow parent(owner);
        auto sheet = std::make_unique<CMailListSheet>(parent.widget(), server, domain, list);
        // A list that cannot be opened has been reported; the sheet is not shown.
        if (!sheet->openList())
            return 2;
        return runModal(sheet.get(), parent);
    } catch (const std::exception&) {
        return -1;
    }
}
