// Texts of the protection wizards.
#include "res/StringTable.h"
#include "res/WizardStringIds.h"

#include <QtGlobal>

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_WIZ_PAGE_TITLE, QT_TRANSLATE_NOOP("TaviStrings", "Velbrook Security")},
    {IDS_WIZ_SMTP_HEADER_TITLE, QT_TRANSLATE_NOOP("TaviStrings", "SMTP Security Wizard")},
    {IDS_WIZ_RELAY_HEADER_TITLE, QT_TRANSLATE_NOOP("TaviStrings", "Anti-Relay Wizard")},
    {IDS_WIZ_DOS_HEADER_TITLE, QT_TRANSLATE_NOOP("TaviStrings", "Anti Denial-of-Service Wizard")},
    {IDS_WIZ_UPDATE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Failed to update property \"%1\"")},
    {IDS_WIZ_LIST_ADD, QT_TRANSLATE_NOOP("TaviStrings", "Add new entry to the list")},
    {IDS_WIZ_LIST_DELETE, QT_TRANSLATE_NOOP("TaviStrings", "Delete selected entries")},
    {IDS_WIZ_LIST_UP, QT_TRANSLATE_NOOP("TaviStrings", "Move selected entry up the list")},
    {IDS_WIZ_LIST_DOWN, QT_TRANSLATE_NOOP("TaviStrings", "Move selected entry down the list")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
