// Writing the values a page or dialog changed: each is written only when it differs from the value as
// read, the remembered value follows a successful write, and a failed write is reported naming the
// property ("Could not set the '<name>' mail server property.") while the others are still written.
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>
#include <QStringList>

#include <velbrook/StoreBase.h>

// A number; true when nothing needed writing or the write succeeded.
TAVI_EXPORT bool writeChangedNumber(_tMailServer* server, const char* section, const char* name, quint32 value,
                                    quint32& read);
// A text, compared exactly (letter case counts).
TAVI_EXPORT bool writeChangedString(_tMailServer* server, const char* section, const char* name,
                                    const QString& value, QString& read);

// A list kept in a text property: entries separated by commas and white space on reading, joined with
// ", " on writing.
TAVI_EXPORT QStringList splitListText(const QString& text);
TAVI_EXPORT QString joinListText(const QStringList& entries);

// Reads a multi-string (or list) property; a property that does not exist is an empty list. Any other
// failure returns false with the reason in GetLastError().
TAVI_EXPORT bool readServerMultiString(_tMailServer* server, const char* section, const char* name,
                                       QStringList& values);
