// Texts of the entry frame, the access layer, the shared base classes and the directories dialog.
#include "res/StringIds.h"
#include "res/StringTable.h"

namespace {

const TaviStringEntry kStrings[] = {
    // Error reporting
    {55242, "\nError: %1\n%2\n"},
    {55336, "Mail list manager error"},
    {55344, "Mailbox manager error"},
    {55407, "Could not start %1 service"},
    {55408, "Could not stop %1 service"},
    {55631, "You cannot create any more mailboxes in this domain."},
    {55632, "You cannot create any more mail lists in this domain."},
    {55638, "The property is too large."},
    {57388, "Could not set the '%1' mail server property."},
    {57420, "Failed to update property %1!s!, error %2!d!."},
    // Directories
    {55651, "You must specify a local drive or a UNC path for this value."},
    // Our own
    {IDS_TAVI_MESSAGE_CAPTION, "Velbrook Mail Server"},
    {IDS_TAVI_RANGE_UINT, "Enter a whole number from %1 to %2."},
    {IDS_TAVI_PARSE_UINT, "Enter a whole number of at least 0."},
    {IDS_TAVI_NO_HELP, "Help topic %1 is not installed."},
    {IDS_TAVI_CLOSE, "Close"},
    {IDS_TAVI_APPLY_NOW, "&Apply Now"},
    {IDS_TAVI_WORKING, "Working..."},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
