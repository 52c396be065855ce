#include "logging/DbLogConfigConnection.h"

#include "common/PlatformServices.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <libpq-fe.h>
#include <poll.h>

namespace {

QString trimmedMessage(const char* text)
{
    return QString::fromUtf8(text ? text : "").trimmed();
}

} // namespace

DbLogConnectionResult checkPostgresUri(const QString& uri)
{
    DbLogConnectionResult result;
    const QString trimmed = uri.trimmed();
    if (!trimmed.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive)
        && !trimmed.startsWith(QLatin1String("postgres://"), Qt::CaseInsensitive)) {
        result.outcome = DbLogConnectionResult::BadUri;
        result.detail = QCoreApplication::translate("TaviStrings",
            "A connection URI begins with \"postgresql://\", for example "
            "postgresql://velbrook@db.example.net:5432/maillog");
        return result;
    }
    char* error = nullptr;
    const QByteArray bytes = trimmed.toUtf8();
    PQconninfoOption* options = PQconninfoParse(bytes.constData(), &error);
    if (!options) {
        result.outcome = DbLogConnectionResult::BadUri;
        result.detail = error ? trimmedMessage(error)
                              : QCoreApplication::translate("TaviStrings", "The URI could not be understood.");
        PQfreemem(error);
        return result;
    }
    PQconninfoFree(options);
    result.outcome = DbLogConnectionResult::Connected;
    return result;
}

DbLogConnectionResult testPostgresConnection(const QString& uri, QWidget* owner, int timeoutMs)
{
    DbLogConnectionResult result = checkPostgresUri(uri);
    if (result.outcome != DbLogConnectionResult::Connected)
        return result;
    result.outcome = DbLogConnectionResult::Failed;
    const QByteArray bytes = uri.trimmed().toUtf8();
    PGconn* conn = PQconnectStart(bytes.constData());
    if (!conn) {
        result.detail = QCoreApplication::translate("TaviStrings", "Out of memory.");
        return result;
    }
    std::unique_ptr<CProgressReporter> progress;
    QElapsedTimer timer;
    timer.start();
    PostgresPollingStatusType status = PGRES_POLLING_WRITING;
    while (PQstatus(conn) != CONNECTION_BAD && status != PGRES_POLLING_OK && status != PGRES_POLLING_FAILED) {
        if (timer.elapsed() > timeoutMs) {
            result.detail = QCoreApplication::translate("TaviStrings", "No answer within %1 seconds.").arg(timeoutMs / 1000);
            PQfinish(conn);
            return result;
        }
        pollfd fd = {PQsocket(conn), short(status == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
        if (fd.fd >= 0 && ::poll(&fd, 1, 100) == 0) {
            // Still waiting: keep the window alive, and offer Cancel once it takes a moment.
            if (!progress && timer.elapsed() > 300)
                progress = platform().beginProgress(owner, QCoreApplication::translate("TaviStrings",
                                                        "Connecting to the database..."));
            if (progress && !progress->setProgress(timer.elapsed(), timeoutMs)) {
                result.outcome = DbLogConnectionResult::Cancelled;
                PQfinish(conn);
                return result;
            }
            continue;
        }
        status = PQconnectPoll(conn);
    }
    if (PQstatus(conn) == CONNECTION_OK) {
        result.outcome = DbLogConnectionResult::Connected;
        result.serverVersion = PQserverVersion(conn);
    } else {
        result.detail = trimmedMessage(PQerrorMessage(conn));
    }
    PQfinish(conn);
    return result;
}
