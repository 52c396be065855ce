// Texts of the server settings dialogs (directories, agents, quotas, calendaring, service control,
// traffic counters) and of the file log dialog.
#include "res/StringTable.h"
#include "res/ServerStringIds.h"

namespace {

const TaviStringEntry kStrings[] = {
    // Traffic counters
    {IDS_SERVER_REPORT_SAVE_AS, QT_TRANSLATE_NOOP("TaviStrings", "Mailbox Report Save As:")},
    {IDS_SERVER_REPORT_SAVE_FAILED_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Mailbox Report Save Failed")},
    {IDS_SERVER_REPORT_SAVE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Failed to save the report as \"%1\".  The error code returned was %2!d!.")},
    {IDS_SERVER_REPORT_GENERATE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Failed to generate the report.   The error code returned was %1!d!.")},
    // Quotas and service control
    {IDS_SERVER_UNKNOWN, QT_TRANSLATE_NOOP("TaviStrings", "unknown")},
    {IDS_SERVER_QUOTA_USAGE, QT_TRANSLATE_NOOP("TaviStrings", "Mailboxes contain: %ukB (%u messages)\r\n(as of %s)")},
    {IDS_SERVER_STATE_STOPPED, QT_TRANSLATE_NOOP("TaviStrings", "stopped")},
    {IDS_SERVER_STATE_RUNNING, QT_TRANSLATE_NOOP("TaviStrings", "running")},
    {IDS_SERVER_STATE_STARTING, QT_TRANSLATE_NOOP("TaviStrings", "starting")},
    {IDS_SERVER_STATE_STOPPING, QT_TRANSLATE_NOOP("TaviStrings", "stopping")},
    {IDS_SERVER_STATE_RESUMING, QT_TRANSLATE_NOOP("TaviStrings", "resuming")},
    {IDS_SERVER_STATE_PAUSING, QT_TRANSLATE_NOOP("TaviStrings", "pausing")},
    {IDS_SERVER_STATE_PAUSED, QT_TRANSLATE_NOOP("TaviStrings", "paused")},
    // Directories
    {IDS_SERVER_LOCAL_OR_UNC_PATH, QT_TRANSLATE_NOOP("TaviStrings", "You must specify a local drive or a UNC path for this value.")},
    // Agents
    {IDS_SERVER_UNC_REQUIRED, QT_TRANSLATE_NOOP("TaviStrings", "A UNC path is required")},
    {IDS_SERVER_UNC_REMINDER, QT_TRANSLATE_NOOP("TaviStrings", "When using a clustered configuration, you should specify a UNC path for the server agent.  "
            "Otherwise, the program may be inaccessible to the other mail servers in the cluster.\n\n You "
            "should only specify a drive letter if using the Registry connector.")},
    // Our own
    {IDS_SERVER_FILTER_CSV, QT_TRANSLATE_NOOP("TaviStrings", "CSV File (*.CSV)")},
    {IDS_SERVER_FILTER_ALL, QT_TRANSLATE_NOOP("TaviStrings", "All Files (*.*)")},
    {IDS_SERVER_GENERATING_REPORT, QT_TRANSLATE_NOOP("TaviStrings", "Generating the mailbox report...")},
    {IDS_SERVER_SAVING_REPORT, QT_TRANSLATE_NOOP("TaviStrings", "Saving the mailbox report...")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
