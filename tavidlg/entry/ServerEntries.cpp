// Entry points of the server settings dialogs.
#include "entry/EntryFrame.h"
#include "server/AgentsDlg.h"
#include "server/CalendaringDlg.h"
#include "server/DirectoriesDlg.h"
#include "server/QuotasDlg.h"
#include "server/ServiceDlg.h"
#include "server/TrafficCountersDlg.h"

extern "C" TAVIDLG_API int EditDirectories(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CDirectoriesDlg>(owner, server);
}

extern "C" TAVIDLG_API int EditAgents(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CAgentsDlg>(owner, server);
}

extern "C" TAVIDLG_API int EditQuotas(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CQuotasDlg>(owner, server);
}

extern "C" TAVIDLG_API int EditCalendaring(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CCalendaringDlg>(owner, server);
}

extern "C" TAVIDLG_API int ServiceControlDialog(TaviOwner owner, _tMailServer* server, const char* service,
                                                const char* caption)
{
    return runDialog<CServiceDlg>(owner, server, service, caption);
}

extern "C" TAVIDLG_API int EditTrafficCounters(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CTrafficCountersDlg>(owner, server);
}
