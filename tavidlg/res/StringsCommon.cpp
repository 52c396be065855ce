// Texts of the entry frame, the access layer and the shared base classes.
#include "res/StringIds.h"
#include "res/StringTable.h"
#include "res/CommonStringIds.h"

namespace {

const TaviStringEntry kStrings[] = {
    // Error reporting
    {IDS_COMMON_ERROR_DETAIL, QT_TRANSLATE_NOOP("TaviStrings", "\nError: %1\n%2\n")},
    {IDS_COMMON_LIST_MANAGER_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Mail list manager error")},
    {IDS_COMMON_MAILBOX_MANAGER_ERROR, QT_TRANSLATE_NOOP("TaviStrings", "Mailbox manager error")},
    {IDS_COMMON_SERVICE_START_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Could not start %1 service")},
    {IDS_COMMON_SERVICE_STOP_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Could not stop %1 service")},
    {IDS_COMMON_MAILBOX_LIMIT, QT_TRANSLATE_NOOP("TaviStrings", "You cannot create any more mailboxes in this domain.")},
    {IDS_COMMON_MAILLIST_LIMIT, QT_TRANSLATE_NOOP("TaviStrings", "You cannot create any more mail lists in this domain.")},
    {IDS_COMMON_PROPERTY_TOO_LARGE, QT_TRANSLATE_NOOP("TaviStrings", "The property is too large.")},
    {IDS_COMMON_SET_PROPERTY_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Could not set the '%1' mail server property.")},
    {IDS_COMMON_UPDATE_PROPERTY_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Failed to update property %1!s!, error %2!d!.")},
    // Our own
    {IDS_TAVI_MESSAGE_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Velbrook Mail Server")},
    {IDS_TAVI_RANGE_UINT, QT_TRANSLATE_NOOP("TaviStrings", "Enter a whole number from %1 to %2.")},
    {IDS_TAVI_PARSE_UINT, QT_TRANSLATE_NOOP("TaviStrings", "Enter a whole number of at least 0.")},
    {IDS_TAVI_NO_HELP, QT_TRANSLATE_NOOP("TaviStrings", "Help topic %1 is not installed.")},
    {IDS_TAVI_CLOSE, QT_TRANSLATE_NOOP("TaviStrings", "Close")},
    {IDS_TAVI_APPLY_NOW, QT_TRANSLATE_NOOP("TaviStrings", "&Apply Now")},
    {IDS_TAVI_WORKING, QT_TRANSLATE_NOOP("TaviStrings", "Working...")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
