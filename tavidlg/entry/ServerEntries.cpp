// Entry points of the server settings dialogs.
#include "entry/EntryFrame.h"
#include "server/DirectoriesDlg.h"

extern "C" TAVIDLG_API int EditDirectories(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CDirectoriesDlg>(owner, server);
}
