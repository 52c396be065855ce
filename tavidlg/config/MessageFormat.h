// Message inserts as the string table writes them: %1 ... %9, optionally followed by a printf-style
// format between exclamation marks (%1!s!, %2!d!), and %% for a percent sign. Inserted texts are never
// scanned again, so an insert that contains "%1" stays as it is.
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>
#include <QStringList>

TAVI_EXPORT QString TaviFormat(const QString& format, const QStringList& inserts);
