// Texts of the list editors.
#include "res/ListStringIds.h"
#include "res/StringTable.h"

#include <QtGlobal>

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_LIST_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "List Editor")},
    {IDS_LIST_SELECT_PROMPT, QT_TRANSLATE_NOOP("TaviStrings", "<select a list>")},
    {IDS_LIST_SAVE_QUESTION, QT_TRANSLATE_NOOP("TaviStrings", "Do you want to save the current list before continuing?")},
    {IDS_LIST_LOAD_FAILED,
     QT_TRANSLATE_NOOP("TaviStrings", "The loading of the address list %1 failed with error %2. Try to close and "
                                      "reopen the list editor.")},
    {IDS_LIST_DUPLICATE,
     QT_TRANSLATE_NOOP("TaviStrings", "The item could not be added to the list because\nit duplicates an item "
                                      "already in the list. Modify\nthe item by pressing the 'Edit' button.")},
    {IDS_LIST_OPERATION_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "The operation failed with error code %1")},
    {IDS_LIST_NAME_EXISTS, QT_TRANSLATE_NOOP("TaviStrings", "The new name already exists.")},
    {IDS_LIST_VANISHED,
     QT_TRANSLATE_NOOP("TaviStrings", "An error has occurred and the selected string \"%1\"\nhas been removed from the list.")},
    {IDS_LIST_SAVE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Could not save the list.")},
    {IDS_LIST_UNKNOWN_LISTS, QT_TRANSLATE_NOOP("TaviStrings", "Could not determine the known lists.")},
    {IDS_LIST_FILTER_CSV, QT_TRANSLATE_NOOP("TaviStrings", "CSV (Comma delimited)")},
    {IDS_LIST_FILTER_ALL, QT_TRANSLATE_NOOP("TaviStrings", "All Files")},
    {IDS_LIST_IMPORTING, QT_TRANSLATE_NOOP("TaviStrings", "Importing %1...")},
    {IDS_LIST_IO_ERRORS, QT_TRANSLATE_NOOP("TaviStrings", "There were I/O errors when processing the file.")},
    {IDS_LIST_IMPORT_BAD_ROWS,
     QT_TRANSLATE_NOOP("TaviStrings", "%1 rows of the file could not be imported, on these lines: %2\n\n%3 entries "
                                      "were read. Press OK to add them to the list, or Cancel to import nothing.")},
    {IDS_LIST_IMPORT_MORE_LINES, QT_TRANSLATE_NOOP("TaviStrings", "%1 and %2 more")},
    {IDS_LIST_LOAD_DEFAULT_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "The default list could not be loaded.")},
    {IDS_LIST_ENTRY_COUNT, QT_TRANSLATE_NOOP("TaviStrings", "%1 entries")},
    {IDS_ADDR_CAPTION_SERVER, QT_TRANSLATE_NOOP("TaviStrings", "E-mail Address Lists on %1")},
    {IDS_ADDR_CAPTION_DOMAIN, QT_TRANSLATE_NOOP("TaviStrings", "Domain E-mail Address Lists on %1")},
    {IDS_ADDR_CAPTION_MAILBOX, QT_TRANSLATE_NOOP("TaviStrings", "Mailbox E-mail Address Lists on %1")},
    {IDS_ADDR_ADD_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Add E-mail Address")},
    {IDS_ADDR_EDIT_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Edit E-mail Address")},
    {IDS_ADDR_PROMPT, QT_TRANSLATE_NOOP("TaviStrings", "&Address or pattern:")},
    {IDS_ADDR_HINT,
     QT_TRANSLATE_NOOP("TaviStrings", "For example: jane@example.com, *@example.com (a whole domain),\n"
                                      "*@*.example.com (its subdomains too), sales*@example.com")},
    {IDS_ADDR_INVALID,
     QT_TRANSLATE_NOOP("TaviStrings", "\"%1\" is not an e-mail address or address pattern.\n\n%2")},
    {IDS_ADDR_EXPORTING, QT_TRANSLATE_NOOP("TaviStrings", "Exporting %1...")},
    {IDS_CARRIER_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Wireless Carriers on %1")},
    {IDS_CARRIER_LIST_NAME, QT_TRANSLATE_NOOP("TaviStrings", "Carriers")},
    {IDS_CARRIER_ADD_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Add Wireless Carrier")},
    {IDS_CARRIER_EDIT_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Edit Wireless Carrier")},
    {IDS_CARRIER_BAD_NAME,
     QT_TRANSLATE_NOOP("TaviStrings", "Enter the carrier's name (up to 64 characters, without tabs or \"<\").")},
    {IDS_CARRIER_BAD_GATEWAY,
     QT_TRANSLATE_NOOP("TaviStrings", "Enter the carrier's SMS gateway domain, such as txt.example.net: the domain "
                                      "that turns mail to number@domain into a text message.")},
    {IDS_CARRIER_NAME_TAKEN, QT_TRANSLATE_NOOP("TaviStrings", "A carrier named \"%1\" is already in the list.")},
    {IDS_CARRIER_WRITE_FAILED,
     QT_TRANSLATE_NOOP("TaviStrings", "The carrier table \"%1\" could not be written.")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
