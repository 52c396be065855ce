// The test connection of the database log to a PostgreSQL database, given as a connection URI.
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>

class QWidget;

struct TAVI_EXPORT DbLogConnectionResult {
    enum Outcome { Connected, BadUri, Failed, Cancelled };
    Outcome outcome = Failed;
    QString detail;        // the reason, as the PostgreSQL client library words it
    int serverVersion = 0; // e.g. 150004 when connected
};

// Checks the URI's form only ("postgresql://" or "postgres://", then what libpq accepts).
TAVI_EXPORT DbLogConnectionResult checkPostgresUri(const QString& uri);
// Checks the form, then connects and disconnects. The window stays responsive while it waits: a
// progress box (with Cancel) appears over owner when the connection takes a moment. timeoutMs bounds
// the whole attempt.
TAVI_EXPORT DbLogConnectionResult testPostgresConnection(const QString& uri, QWidget* owner, int timeoutMs = 15000);
