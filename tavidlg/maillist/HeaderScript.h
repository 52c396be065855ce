// The header script of a mailing list: one command per line that rewrites the headers of each message
// before it is distributed.
//   add Name: value      adds a header
//   set Name: value      replaces every header of that name (adds it when there is none)
//   remove Name          removes every header of that name
//   rename Name NewName  renames every header of that name
// Commands are matched without regard to case; blank lines and lines starting with '#' are ignored.
#pragma once

#include "entry/TaviGlobal.h"

#include <QList>
#include <QString>

namespace HeaderScript {

struct Error {
    int line = 0; // from 1
    QString message;
};

// Every line that is not a valid command, in order.
TAVI_EXPORT QList<Error> check(const QString& script);
// A header field name: printable ASCII characters other than the colon, at least one.
TAVI_EXPORT bool isHeaderName(const QString& name);

} // namespace HeaderScript
