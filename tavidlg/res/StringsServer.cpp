// Texts of the server settings dialogs (agents, quotas, calendaring, service control, traffic
// counters) and of the file log dialog.
#include "res/StringTable.h"

namespace {

const TaviStringEntry kStrings[] = {
    // Traffic counters
    {54799, "Mailbox Report Save As:"},
    {54800, "Mailbox Report Save Failed"},
    {54801, "Failed to save the report as \"%1\".  The error code returned was %2!d!."},
    {54802, "Failed to generate the report.   The error code returned was %1!d!."},
    // Quotas and service control
    {55396, "unknown"},
    {55399, "Mailboxes contain: %ukB (%u messages)\r\n(as of %s)"},
    {55400, "stopped"},
    {55401, "running"},
    {55402, "starting"},
    {55403, "stopping"},
    {55404, "resuming"},
    {55405, "pausing"},
    {55406, "paused"},
    // Agents
    {57403, "A UNC path is required"},
    {57404, "When using a clustered configuration, you should specify a UNC path for the server agent.  "
            "Otherwise, the program may be inaccessible to the other mail servers in the cluster.\n\n You "
            "should only specify a drive letter if using the Registry connector."},
    // Our own
    {60100, "CSV File (*.CSV)"},
    {60101, "All Files (*.*)"},
    {60102, "Generating the mailbox report..."},
    {60103, "Saving the mailbox report..."},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
