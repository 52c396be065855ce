// Entry points of the logging dialogs.
#include "entry/EntryFrame.h"
#include "logging/FileLogConfigDlg.h"

extern "C" TAVIDLG_API int EditFileLogConfig(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CFileLogConfigDlg>(owner, server);
}
