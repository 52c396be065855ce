#include "SieveFilterPlugin.h"

#include "SieveFilterDlg.h"

#include "entry/EntryFrame.h"

extern "C" SIEVEFILTERPLUGIN_API int EditSieveMailboxConfiguration(TaviOwner owner, _tMailbox* mailbox)
{
    if (!mailbox)
        return -1;
    return runDialog<CSieveFilterDlg>(owner, mailbox);
}
