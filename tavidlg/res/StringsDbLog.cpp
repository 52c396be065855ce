// Texts of the database log dialog.
#include "res/DbLogStrings.h"
#include "res/StringTable.h"

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_DBLOG_BAD_URI, QT_TRANSLATE_NOOP("TaviStrings", "The connection URI is not valid:\n\n%1")},
    {IDS_DBLOG_CONNECT_FAILED, QT_TRANSLATE_NOOP("TaviStrings",
        "Could not connect to the PostgreSQL database:\n\n%1\n\nCheck the host, port, database, user and "
        "password in the URI, and that the database server accepts connections from this server.")},
    {IDS_DBLOG_CONNECTED, QT_TRANSLATE_NOOP("TaviStrings",
        "The connection succeeded (PostgreSQL server version %1).")},
    {IDS_DBLOG_FILE_NOT_ABSOLUTE, QT_TRANSLATE_NOOP("TaviStrings",
        "Type the full path of the database log file, for example /var/lib/velbrook/eventlog.db.")},
    {IDS_DBLOG_FILE_NO_FOLDER, QT_TRANSLATE_NOOP("TaviStrings",
        "The folder \"%1\" does not exist. Create it first, or choose another folder for the database log file.")},
    {IDS_DBLOG_FILE_IS_FOLDER, QT_TRANSLATE_NOOP("TaviStrings",
        "\"%1\" is a folder. Type the path of a file in it.")},
    {IDS_DBLOG_NO_EVENTS, QT_TRANSLATE_NOOP("TaviStrings",
        "Choose at least one kind of event to log, or turn the database log off.")},
    {IDS_DBLOG_FILE_FILTER, QT_TRANSLATE_NOOP("TaviStrings", "SQLite databases")},
    {IDS_DBLOG_ALL_FILTER, QT_TRANSLATE_NOOP("TaviStrings", "All files")},
    {IDS_DBLOG_CHOOSE_FILE, QT_TRANSLATE_NOOP("TaviStrings", "Database Log File")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
