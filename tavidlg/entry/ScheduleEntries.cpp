// Entry points of the delivery schedule and routing dialogs.
#include "entry/EntryFrame.h"
#include "schedule/DeliveryScheduleMasterDlg.h"
#include "schedule/DialupScheduleDlg.h"
#include "schedule/ElTimeScheduleDlg.h"
#include "schedule/RoutingDlg.h"

extern "C" TAVIDLG_API int EditElapsedTimeSchedule(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CElTimeScheduleDlg>(owner, server);
}

extern "C" TAVIDLG_API int EditDialupSchedule(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CDialupScheduleDlg>(owner, server);
}

extern "C" TAVIDLG_API int ScheduleManagementDialog(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CDeliveryScheduleMasterDlg>(owner, server);
}

extern "C" TAVIDLG_API int EditRoutes(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CRoutingDlg>(owner, server);
}
