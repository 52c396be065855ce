// The traffic report: mailboxes over thresholds, selected in SQL and streamed to RFC 4180 CSV.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>

#include <unistd.h>

#include "Handle_p.h"
#include "Util_p.h"
#include "velbrook/ServerStore.h"

using namespace vb;

struct CTrafficReport::Private {
    _tMailServer* server = nullptr;
    std::weak_ptr<int> life; // of the server handle
    uint64_t id = 0;
    bool generated = false;
    uint64_t rows = 0;
    Progress progress = nullptr;
    void* context = nullptr;
};

namespace {

void appendField(std::string& out, std::string_view field)
{
    // A spreadsheet takes a field that starts with one of these for a formula: such a field is quoted
    // and led by an apostrophe, which shows it as text.
    const bool formula = !field.empty() && std::string_view("=+-@\t\r").find(field.front()) != std::string_view::npos;
    if (!formula && field.find_first_of(",\"\r\n") == std::string_view::npos) {
        out += field;
        return;
    }
    out += '"';
    if (formula)
        out += '\'';
    for (char c : field) {
        if (c == '"')
            out += '"';
        out += c;
    }
    out += '"';
}

struct FileCloser {
    void operator()(std::FILE* f) const
    {
        if (f)
            std::fclose(f);
    }
};

} // namespace

CTrafficReport::CTrafficReport(_tMailServer* server) : d(std::make_unique<Private>())
{
    d->server = server;
    if (server) {
        d->life = server->life;
        d->id = server->nextReportId++;
    }
}

CTrafficReport::~CTrafficReport()
{
    if (d->server && d->generated && !d->life.expired())
        d->server->connector->trafficDrop(d->id);
}

void CTrafficReport::SetProgress(Progress progress, void* context)
{
    d->progress = progress;
    d->context = context;
}

uint64_t CTrafficReport::RowCount() const
{
    return d->rows;
}

bool CTrafficReport::Generate(const char* name, _tTrafficStatistics thresholds)
{
    if (d->server && d->life.expired()) {
        SetLastError(VB_ERROR_INVALID_HANDLE);
        return false;
    }
    if (!d->server) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    if (uint32_t e = intercept(d->server, "CTrafficReport::Generate", nullptr, name)) {
        SetLastError(e);
        return false;
    }
    TrafficQuery q;
    if (name && *name) {
        ObjectRef domain;
        if (uint32_t e = d->server->connector->findObject(Kind::Domain, 0, name, domain)) {
            SetLastError(e);
            return false;
        }
        q.domain = domain.id;
    }
    // The record's fourth field is not a counter of the report.
    const uint32_t t[7] = {thresholds.rcptCommands,     thresholds.smtpBytesReceived, thresholds.smtpBytesSent,
                           thresholds.imapBytesSent,    thresholds.imapBytesReceived, thresholds.popBytesSent,
                           thresholds.popBytesReceived};
    std::memcpy(q.thresholds, t, sizeof t);
    d->generated = false;
    d->rows = 0;
    // The selection is one statement; while it runs the caller hears "working" (0 of 0) now and then
    // and may cancel it.
    std::function<bool()> keepGoing;
    if (d->progress)
        keepGoing = [this] { return d->progress(d->context, 0, 0); };
    if (uint32_t e = d->server->connector->trafficSelect(d->id, q, d->rows, keepGoing)) {
        d->rows = 0;
        SetLastError(e);
        return false;
    }
    d->generated = true;
    SetLastError(0);
    return true;
}

// Written to a temporary file beside the target (mode 0600: it names every mailbox) and renamed over it
// at the end, so that a failed or cancelled save never leaves half a report.
bool CTrafficReport::Save(const char* fileName)
{
    if (d->server && d->life.expired()) {
        SetLastError(VB_ERROR_INVALID_HANDLE);
        return false;
    }
    if (!d->server || !fileName || !*fileName) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    if (!d->generated) {
        SetLastError(VB_ERROR_INVALID_PARAMETER); // Generate comes first
        return false;
    }
    if (uint32_t e = intercept(d->server, "CTrafficReport::Save", nullptr, fileName)) {
        SetLastError(e);
        return false;
    }
    std::string temp = std::string(fileName) + ".XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0) {
        SetLastError(errno == EACCES || errno == EROFS ? VB_ERROR_ACCESS_DENIED : VB_ERROR_PATH_NOT_FOUND);
        return false;
    }
    std::unique_ptr<std::FILE, FileCloser> file(::fdopen(fd, "wb"));
    if (!file) {
        ::close(fd);
        ::unlink(temp.c_str());
        SetLastError(VB_ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    std::setvbuf(file.get(), nullptr, _IOFBF, 1 << 16);

    std::string line = "Mailbox,Domain,RCPT Commands,SMTP Bytes Received,SMTP Bytes Sent,IMAP Bytes Sent,"
                       "IMAP Bytes Received,POP Bytes Sent,POP Bytes Received\r\n";
    bool writeFailed = std::fwrite(line.data(), 1, line.size(), file.get()) != line.size();
    uint64_t done = 0;
    bool cancelled = false;
    char number[16];
    const uint32_t e = d->server->connector->trafficRows(d->id, [&](const TrafficRow& row) {
        line.clear();
        appendField(line, row.mailbox + "@" + row.domain);
        line += ',';
        appendField(line, row.domain);
        for (uint32_t c : row.counters) {
            const int n = std::snprintf(number, sizeof number, ",%u", c);
            line.append(number, size_t(n));
        }
        line += "\r\n";
        if (std::fwrite(line.data(), 1, line.size(), file.get()) != line.size()) {
            writeFailed = true;
            return false;
        }
        if (++done % 8192 == 0 && d->progress && !d->progress(d->context, done, d->rows)) {
            cancelled = true;
            return false;
        }
        return true;
    });
    if (!writeFailed && !cancelled && d->progress && !d->progress(d->context, done, d->rows))
        cancelled = true;
    if (std::fflush(file.get()) != 0)
        writeFailed = true;
    file.reset();
    uint32_t error = 0;
    if (cancelled)
        error = VB_ERROR_CANCELLED;
    else if (writeFailed)
        error = VB_ERROR_DISK_FULL;
    else if (e)
        error = e;
    else if (std::rename(temp.c_str(), fileName) != 0)
        error = VB_ERROR_ACCESS_DENIED;
    if (error) {
        ::unlink(temp.c_str());
        SetLastError(error);
        return false;
    }
    SetLastError(0);
    return true;
}
