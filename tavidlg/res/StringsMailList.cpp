// Texts of the mailing-list sheet and its pages.
#include "res/MailListStringIds.h"
#include "res/StringTable.h"

#include <QtGlobal>

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_MAILLIST_CANNOT_OPEN, QT_TRANSLATE_NOOP("TaviStrings", "Cannot open mail list %1.")},
    {IDS_MAILLIST_NO_PLUGIN_INFO, QT_TRANSLATE_NOOP("TaviStrings", "Cannot get information about the plugin for %1.")},
    {IDS_MAILLIST_CANNOT_SET, QT_TRANSLATE_NOOP("TaviStrings", "Cannot set mail list property %1")},
    {IDS_MAILLIST_NO_MODERATOR_TO_SEND,
     QT_TRANSLATE_NOOP("TaviStrings", "You have specified that only the moderator(s) may send\nmessages to this list, "
                                      "but you have not specified the\nmoderator's address(es).")},
    {IDS_MAILLIST_NO_MODERATOR_TO_CONTROL,
     QT_TRANSLATE_NOOP("TaviStrings", "You have specified that the moderator controls certain aspects of the mail "
                                      "list, but you have not specified the moderator's address.")},
    {IDS_MAILLIST_BAD_SIZE, QT_TRANSLATE_NOOP("TaviStrings", "Maximum message size is invalid.")},
    {IDS_MAILLIST_NO_BOUNCE_ADDRESS,
     QT_TRANSLATE_NOOP("TaviStrings", "You have indicated that non-delivery reports should be sent\nto a specific mail "
                                      "address, but you have not supplied that address.\nThis can result in some mail "
                                      "systems rejecting messages\nsent through this mailing list.\nAre you sure you "
                                      "want this to happen?")},
    {IDS_MAILLIST_NO_BOUNCE_ADDRESS_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Missing address for non-delivery reports")},
    {IDS_MAILLIST_AGENT_UNC,
     QT_TRANSLATE_NOOP("TaviStrings", "When using a clustered configuration, you should specify a UNC path for the mail "
                                      "list agent.  Otherwise, the program may be inaccessible to the other mail "
                                      "servers in the cluster.\n\n You should only specify a drive letter if using the "
                                      "Registry connector.")},
    {IDS_MAILLIST_PROCESSOR_AGENT_UNC,
     QT_TRANSLATE_NOOP("TaviStrings", "When using a clustered configuration, you should specify a UNC path for the mail "
                                      "list processor agent.  Otherwise, the program may be inaccessible to the other "
                                      "mail servers in the cluster.\n\n You should only specify a drive letter if using "
                                      "the Registry connector.")},
    {IDS_MAILLIST_UNC_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "A UNC path is required")},
    {IDS_MAILLIST_CANNOT_READ_MEMBERS, QT_TRANSLATE_NOOP("TaviStrings", "Cannot read the members of mail list %1.")},
    {IDS_MAILLIST_BAD_ADDRESS, QT_TRANSLATE_NOOP("TaviStrings", "\"%1\" is not a valid mail address.")},
    {IDS_MAILLIST_ALREADY_MEMBER, QT_TRANSLATE_NOOP("TaviStrings", "%1 is already a member of this list.")},
    {IDS_MAILLIST_CANNOT_ADD_MEMBER, QT_TRANSLATE_NOOP("TaviStrings", "Cannot add %1 to the mail list.")},
    {IDS_MAILLIST_CANNOT_REMOVE_MEMBER, QT_TRANSLATE_NOOP("TaviStrings", "Cannot remove %1 from the mail list.")},
    {IDS_MAILLIST_IMPORT_BAD_LINES,
     QT_TRANSLATE_NOOP("TaviStrings", "%1 lines of the file cannot be imported:\n%2\nImport the other %3 members?")},
    {IDS_MAILLIST_IMPORT_FAILED,
     QT_TRANSLATE_NOOP("TaviStrings", "The members could not be imported (line %1: %2). No member was added.")},
    {IDS_MAILLIST_IMPORTING, QT_TRANSLATE_NOOP("TaviStrings", "Importing members from %1...")},
    {IDS_MAILLIST_FILE_UNREADABLE, QT_TRANSLATE_NOOP("TaviStrings", "Cannot read the file %1.")},
    {IDS_MAILLIST_FILE_UNWRITABLE, QT_TRANSLATE_NOOP("TaviStrings", "Cannot write the file %1.")},
    {IDS_MAILLIST_MEMBER_COUNT, QT_TRANSLATE_NOOP("TaviStrings", "%1 of %2 members shown")},
    {IDS_MAILLIST_IMPORT_NOTHING, QT_TRANSLATE_NOOP("TaviStrings", "The file holds no member that can be imported:\n%1")},
    {IDS_MAILLIST_REMOVE_ONE, QT_TRANSLATE_NOOP("TaviStrings", "Remove %1 from the mail list?")},
    {IDS_MAILLIST_REMOVE_MANY, QT_TRANSLATE_NOOP("TaviStrings", "Remove the %1 selected members from the mail list?")},
    {IDS_MAILLIST_SELECTED_MEMBERS, QT_TRANSLATE_NOOP("TaviStrings", "the %1 selected members")},
    {IDS_MAILLIST_SCRIPT_ERRORS, QT_TRANSLATE_NOOP("TaviStrings", "The header script has errors:\n%1")},
    {IDS_MAILLIST_CANNOT_SAVE_CONFIG, QT_TRANSLATE_NOOP("TaviStrings", "Cannot save the membership rules of %1.")},
    {IDS_MAILLIST_ARCHIVE_DIR_NEEDED,
     QT_TRANSLATE_NOOP("TaviStrings", "Enter the directory in which the web archive is kept.")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
