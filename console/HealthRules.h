// Configuration health: the dangerous or broken settings the console warns about, each one rule.
#pragma once

#include <QList>
#include <QString>

#include <velbrook/StoreBase.h>

struct HealthWarning {
    QString id;          // stable name of the rule ("openRelay", ...), used in object names
    QString text;        // what is wrong and why it matters, translated
    QString fixEntry;    // the library entry point whose dialog fixes it
    QString fixLabel;    // the text of the button that opens it, translated
};

// Every rule that fires on this server, in a fixed order. Directories are looked at on disk only when
// the store belongs to this machine.
QList<HealthWarning> checkConfigurationHealth(_tMailServer* server);
