// Texts of the delivery schedule and routing dialogs.
#include "res/ScheduleStringIds.h"
#include "res/StringTable.h"

#include <QtGlobal>

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_SCHED_INITIAL_ATTEMPT, QT_TRANSLATE_NOOP("TaviStrings", "<initial attempt>")},
    {IDS_SCHED_DAY, QT_TRANSLATE_NOOP("TaviStrings", "%d day ")},
    {IDS_SCHED_DAYS, QT_TRANSLATE_NOOP("TaviStrings", "%d days ")},
    {IDS_SCHED_HOUR, QT_TRANSLATE_NOOP("TaviStrings", "%d hour ")},
    {IDS_SCHED_HOURS, QT_TRANSLATE_NOOP("TaviStrings", "%d hours ")},
    {IDS_SCHED_MINUTE, QT_TRANSLATE_NOOP("TaviStrings", "%d minute")},
    {IDS_SCHED_MINUTES, QT_TRANSLATE_NOOP("TaviStrings", "%d minutes")},
    {IDS_SCHED_RETRY_FULL, QT_TRANSLATE_NOOP("TaviStrings", "The retry schedule is full.")},
    {IDS_SCHED_RETRY_SAVE_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Error saving delivery retry schedule")},
    {IDS_SCHED_WEEKDAY_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Weekday Delivery Schedule")},
    {IDS_SCHED_WEEKEND_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Weekend Delivery Schedule")},
    {IDS_SCHED_TOD_NONE, QT_TRANSLATE_NOOP("TaviStrings", "No delivery times")},
    {IDS_SCHED_TOD_DIALUP, QT_TRANSLATE_NOOP("TaviStrings", "%1 (dial-up)")},
    {IDS_SCHED_TOD_MORE, QT_TRANSLATE_NOOP("TaviStrings", "and %1 more")},
    {IDS_SCHED_DIALUP_DISCONNECTED, QT_TRANSLATE_NOOP("TaviStrings", "Disconnected")},
    {IDS_SCHED_DIALUP_CONNECTING, QT_TRANSLATE_NOOP("TaviStrings", "Connecting")},
    {IDS_SCHED_DIALUP_CONNECTED, QT_TRANSLATE_NOOP("TaviStrings", "Connected")},
    {IDS_SCHED_DIALUP_DISCONNECTING, QT_TRANSLATE_NOOP("TaviStrings", "Disconnecting")},
    {IDS_SCHED_DIALUP_UNKNOWN, QT_TRANSLATE_NOOP("TaviStrings", "Unknown")},
    {IDS_SCHED_DIALUP_CONNECT_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Could not connect the dial-up link")},
    {IDS_SCHED_DIALUP_DISCONNECT_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Could not disconnect the dial-up link")},
    {IDS_SCHED_MASK_SAVE_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Error saving Elapsed Time Schedule domain list")},
    {IDS_ROUTE_RULE_ADDITIONAL, QT_TRANSLATE_NOOP("TaviStrings", "Additional")},
    {IDS_ROUTE_RULE_FORCE, QT_TRANSLATE_NOOP("TaviStrings", "Force")},
    {IDS_ROUTE_RULE_DEFAULT, QT_TRANSLATE_NOOP("TaviStrings", "Default")},
    {IDS_ROUTE_NO_HOSTS, QT_TRANSLATE_NOOP("TaviStrings", "The following domain masks do not have routes associated with them.\n"
                                                          "These domain masks can not be saved.\n\n%1")},
    {IDS_ROUTE_MORE, QT_TRANSLATE_NOOP("TaviStrings", "<...more...>\n")},
    {IDS_ROUTE_SAVE_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Error saving manual route table")},
    {IDS_ROUTE_LOAD_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Error loading manual route table. The table cannot be changed.")},
    {IDS_ROUTE_HOSTS_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Could not keep the changed hosts; the hosts as they were are kept.")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
