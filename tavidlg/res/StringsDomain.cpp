// Texts of the domain sheet, its pages and the server aliases dialog.
#include "res/DomainStringIds.h"
#include "res/StringTable.h"

#include <QCoreApplication>

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_DOMAIN_CANNOT_OPEN, QT_TRANSLATE_NOOP("TaviStrings", "Cannot open domain %1.")},
    {IDS_DOMAIN_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "%1 on ")},
    {IDS_DOMAIN_STATUS,
     QT_TRANSLATE_NOOP("TaviStrings", "Domain size: %ukB (%u messages) in %u mailboxes\r\n(Last verified: %s).")},
    {IDS_DOMAIN_MAILBOX_NOTE, QT_TRANSLATE_NOOP("TaviStrings", "NOTE - there are currently %1 mailboxes in the domain.")},
    {IDS_DOMAIN_LIST_NOTE, QT_TRANSLATE_NOOP("TaviStrings", "NOTE - there are currently %1 mail lists in the domain.")},
    {IDS_DOMAIN_MULTILEVEL_WARNING,
     QT_TRANSLATE_NOOP("TaviStrings", "Warning!  Any existing mailbox directories will be inaccessible.\nPlease use "
                                      "the TVCVTDIR utility to convert existing mailbox directories.")},
    {IDS_DOMAIN_UNC_MAILBOX_ROOT,
     QT_TRANSLATE_NOOP("TaviStrings",
                       "When using a clustered configuration, you should specify a UNC path for the mailbox root "
                       "directory.  Otherwise, the directory may be inaccessible to the other mail servers in the "
                       "cluster.\n\n You should only specify a drive letter if using the Registry connector.")},
    {IDS_DOMAIN_UNC_LIST_ROOT,
     QT_TRANSLATE_NOOP("TaviStrings",
                       "When using a clustered configuration, you should specify a UNC path for the mail list root "
                       "directory.  Otherwise, the directory may be inaccessible to the other mail servers in the "
                       "cluster.\n\n You should only specify a drive letter if using the Registry connector.")},
    {IDS_DOMAIN_SET_MAX_MAILBOXES, QT_TRANSLATE_NOOP("TaviStrings", "Cannot set MaxMailboxes.")},
    {IDS_DOMAIN_SET_MAX_LISTS, QT_TRANSLATE_NOOP("TaviStrings", "Cannot set MaxMailLists.")},
    {IDS_DOMAIN_SET_QUOTA_LIMIT, QT_TRANSLATE_NOOP("TaviStrings", "Cannot set quota limit")},
    {IDS_DOMAIN_SET_QUOTA_TRIGGER, QT_TRANSLATE_NOOP("TaviStrings", "Cannot set quota warning level")},
    {IDS_DOMAIN_SET_QUOTA_REAL_TIME, QT_TRANSLATE_NOOP("TaviStrings", "Cannot set quota real time tracking")},
    {IDS_DOMAIN_UNLIMITED, QT_TRANSLATE_NOOP("TaviStrings", "unlimited")},
    {IDS_DOMAIN_QUOTA_DEFAULT, QT_TRANSLATE_NOOP("TaviStrings", "default")},
    {IDS_DOMAIN_QUOTA_NONE, QT_TRANSLATE_NOOP("TaviStrings", "none")},
    {IDS_DOMAIN_NO_ADDRESS, QT_TRANSLATE_NOOP("TaviStrings", "<none>")},
    {IDS_DOMAIN_BAD_HOST, QT_TRANSLATE_NOOP("TaviStrings", "Bad domain name or IP address")},
    {IDS_DOMAIN_RETRY_REQUESTED,
     QT_TRANSLATE_NOOP("TaviStrings", "The mail server has been asked to reattempt delivery to %1 now.")},
    {IDS_DOMAIN_RETRY_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Cannot ask the mail server to reattempt delivery to %1.")},
    {IDS_DOMAIN_STATISTICS_SINCE, QT_TRANSLATE_NOOP("TaviStrings", "Statistics Since: %s")},
    {IDS_DOMAIN_SYNONYM_INVALID,
     QT_TRANSLATE_NOOP("TaviStrings", "\"%1\" is not a valid domain name. A synonym is a name such as mail.example.com.")},
    {IDS_DOMAIN_SYNONYM_TAKEN, QT_TRANSLATE_NOOP("TaviStrings", "%1 is already a synonym of the domain %2.")},
    {IDS_DOMAIN_SYNONYM_IS_DOMAIN, QT_TRANSLATE_NOOP("TaviStrings", "%1 is a domain of this server and cannot be a synonym.")},
    {IDS_DOMAIN_SYNONYM_DUPLICATE, QT_TRANSLATE_NOOP("TaviStrings", "%1 is already a synonym of this domain.")},
    {IDS_DOMAIN_SYNONYM_ADD_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Cannot add the synonym %1.")},
    {IDS_DOMAIN_SYNONYM_REMOVE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Cannot remove the synonym %1.")},
    {IDS_DOMAIN_SYNONYM_PROMPT, QT_TRANSLATE_NOOP("TaviStrings", "&Synonym (another name of this domain):")},
    {IDS_DOMAIN_ALIASES_UNREADABLE, QT_TRANSLATE_NOOP("TaviStrings", "Cannot read the alias names of the domain %1.")},
    {IDS_DOMAIN_ALIAS_COUNT, QT_TRANSLATE_NOOP("TaviStrings", "%1 of %2 alias names")},
    {IDS_DOMAIN_SYNONYM_UNREADABLE, QT_TRANSLATE_NOOP("TaviStrings", "Cannot read the synonyms of the domain %1.")},

    {IDS_ALIAS_DUPLICATE, QT_TRANSLATE_NOOP("TaviStrings", "The alias %1 is already in the list.")},
    {IDS_ALIAS_INVALID,
     QT_TRANSLATE_NOOP("TaviStrings", "Enter an alias and the address it stands for. Neither may be empty, longer than "
                                      "255 characters, or contain blanks, commas, double quotes or control characters.")},
    {IDS_ALIAS_LOAD_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Cannot read the server's aliases.")},
    {IDS_ALIAS_SAVE_FAILED, QT_TRANSLATE_NOOP("TaviStrings", "Cannot save the server's aliases.")},
    {IDS_ALIAS_IMPORT_ERRORS,
     QT_TRANSLATE_NOOP("TaviStrings", "There were %1 errors when processing the file.\n\nPress OK to keep the %2 "
                                      "aliases that were read, or Cancel to keep the list as it was.")},
    {IDS_ALIAS_IO_ERRORS, QT_TRANSLATE_NOOP("TaviStrings", "There were I/O errors when processing the file %1.")},
    {IDS_ALIAS_COUNT, QT_TRANSLATE_NOOP("TaviStrings", "%1 aliases")},
    {IDS_ALIAS_FILTER_CSV, QT_TRANSLATE_NOOP("TaviStrings", "Comma-separated values")},
    {IDS_ALIAS_FILTER_ALL, QT_TRANSLATE_NOOP("TaviStrings", "All files")},
    {IDS_ALIAS_COUNT_FILTERED, QT_TRANSLATE_NOOP("TaviStrings", "%1 of %2 aliases")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
