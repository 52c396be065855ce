// Store benchmarks. Point reads and writes of a server property are measured against a raw prepared
// SQLite statement on the same file in the same run, and reported as a ratio ("ratio" counter, aim <= 1.5).
// The traffic report is measured over one million mailboxes.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include <sqlite3.h>
#include <unistd.h>

#include "velbrook/DomainStore.h"
#include "velbrook/MailToolkit.h"
#include "velbrook/ServerStore.h"

namespace {

using Clock = std::chrono::steady_clock;

struct TempStore {
    std::string dir;
    std::string path;
    _tMailServer* server = nullptr;
    sqlite3* raw = nullptr;

    TempStore()
    {
        char pattern[] = "/tmp/vbbench-XXXXXX";
        if (!::mkdtemp(pattern))
            std::abort();
        dir = pattern;
        path = dir + "/config.db";
        server = OpenMailServer(path.c_str());
        if (!server || sqlite3_open(path.c_str(), &raw) != SQLITE_OK)
            std::abort();
        sqlite3_busy_timeout(raw, 5000);
        // The same durability as the store's own connection (WAL, synchronous NORMAL), for a fair baseline.
        sqlite3_exec(raw, "PRAGMA synchronous = NORMAL", nullptr, nullptr, nullptr);
    }
    ~TempStore()
    {
        sqlite3_close(raw);
        CloseMailServer(server);
        std::error_code ec;
        std::filesystem::remove_all(dir, ec);
    }
};

// Store time against raw-statement time, accumulated batch by batch in the same run.
struct RatioClock {
    double storeNs = 0;
    double rawNs = 0;
    int64_t ops = 0;

    // a..b timed the store's batch, b..c the raw statement's batch of the same size.
    void add(Clock::time_point a, Clock::time_point b, Clock::time_point c, int batch)
    {
        storeNs += std::chrono::duration<double, std::nano>(b - a).count();
        rawNs += std::chrono::duration<double, std::nano>(c - b).count();
        ops += batch;
    }

    void report(benchmark::State& state) const
    {
        state.counters["store_ns"] = storeNs / double(ops);
        state.counters["raw_ns"] = rawNs / double(ops);
        state.counters["ratio"] = storeNs / rawNs;
    }
};

void BM_PointReadRatio(benchmark::State& state)
{
    TempStore t;
    for (int i = 0; i < 200; ++i) {
        const std::string name = "Filler" + std::to_string(i);
        const std::string value = "/var/spool/velbrook/" + std::to_string(i);
        SetMailServerProperty(t.server, "SMTPRA", VB_TYPE_STRING, name.c_str(), value.c_str(),
                              uint32_t(value.size() + 1));
    }
    const char spool[] = "/var/spool/velbrook";
    SetMailServerProperty(t.server, "SMTPRA", VB_TYPE_STRING, "MailSpoolDir", spool, sizeof spool);
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v3(t.raw, "SELECT type, value FROM property WHERE owner = 0 AND section_key = ? AND name_key = ?",
                       -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr);
    RatioClock ratio;
    char buffer[261];
    for (auto _ : state) {
        constexpr int kBatch = 1000;
        auto a = Clock::now();
        for (int i = 0; i < kBatch; ++i) {
            uint32_t size = sizeof buffer;
            if (!GetMailServerProperty(t.server, "SMTPRA", "MailSpoolDir", buffer, &size, nullptr))
                state.SkipWithError("read failed");
            benchmark::DoNotOptimize(buffer);
        }
        auto b = Clock::now();
        for (int i = 0; i < kBatch; ++i) {
            // What any caller of a raw statement would do too: bind, step, copy the text out, reset.
            sqlite3_bind_text(s, 1, "smtpra", -1, SQLITE_STATIC);
            sqlite3_bind_text(s, 2, "mailspooldir", -1, SQLITE_STATIC);
            if (sqlite3_step(s) == SQLITE_ROW) {
                const int n = sqlite3_column_bytes(s, 1);
                std::memcpy(buffer, sqlite3_column_blob(s, 1), size_t(n));
                buffer[n] = '\0';
            }
            sqlite3_reset(s);
            benchmark::DoNotOptimize(buffer);
        }
        auto c = Clock::now();
        ratio.add(a, b, c, kBatch);
    }
    sqlite3_finalize(s);
    ratio.report(state);
}
BENCHMARK(BM_PointReadRatio)->Unit(benchmark::kMillisecond);

void BM_PointWriteRatio(benchmark::State& state)
{
    TempStore t;
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v3(t.raw,
                       "INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                       "VALUES (0, 'smtpra', 'timeoutraw', 'SMTPRA', 'TimeoutRaw', 4, ?) "
                       "ON CONFLICT(owner, section_key, name_key) DO UPDATE SET type = excluded.type, "
                       "value = excluded.value",
                       -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr);
    RatioClock ratio;
    uint32_t v = 0;
    for (auto _ : state) {
        constexpr int kBatch = 200;
        auto a = Clock::now();
        for (int i = 0; i < kBatch; ++i) {
            ++v;
            if (!SetMailServerProperty(t.server, "SMTPRA", VB_TYPE_DWORD, "Timeout", &v, 4))
                state.SkipWithError("write failed");
        }
        auto b = Clock::now();
        for (int i = 0; i < kBatch; ++i) {
            sqlite3_bind_int64(s, 1, ++v);
            sqlite3_step(s);
            sqlite3_reset(s);
        }
        auto c = Clock::now();
        ratio.add(a, b, c, kBatch);
    }
    sqlite3_finalize(s);
    ratio.report(state);
}
BENCHMARK(BM_PointWriteRatio)->Unit(benchmark::kMillisecond);

// One million mailboxes in ten domains with counters, loaded in one bulk transaction.
void fillBigStore(TempStore& t, int mailboxes)
{
    for (int d = 0; d < 10; ++d)
        CreateDomain(t.server, ("d" + std::to_string(d) + ".example").c_str());
    sqlite3_exec(t.raw, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt* o = nullptr;
    sqlite3_stmt* c = nullptr;
    sqlite3_prepare_v2(t.raw, "INSERT INTO object(kind, parent, name_key, name) VALUES (2, (SELECT id FROM object "
                              "WHERE kind = 1 AND name_key = ?1), ?2, ?2)", -1, &o, nullptr);
    sqlite3_prepare_v2(t.raw, "INSERT INTO traffic(mailbox, domain, c0, c1, c2, c3, c4, c5, c6) "
                              "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)", -1, &c, nullptr);
    sqlite3_stmt* parent = nullptr;
    sqlite3_prepare_v2(t.raw, "SELECT parent FROM object WHERE id = ?", -1, &parent, nullptr);
    uint32_t seed = 12345;
    auto rnd = [&] { return seed = seed * 1664525u + 1013904223u; };
    for (int i = 0; i < mailboxes; ++i) {
        const std::string domain = "d" + std::to_string(i % 10) + ".example";
        const std::string local = "user" + std::to_string(i);
        sqlite3_bind_text(o, 1, domain.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(o, 2, local.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_step(o);
        sqlite3_reset(o);
        const sqlite3_int64 id = sqlite3_last_insert_rowid(t.raw);
        sqlite3_bind_int64(c, 1, id);
        sqlite3_bind_int64(c, 2, 1 + i % 10);
        for (int k = 0; k < 7; ++k)
            sqlite3_bind_int64(c, 3 + k, rnd() % 100000);
        sqlite3_step(c);
        sqlite3_reset(c);
    }
    sqlite3_finalize(o);
    sqlite3_finalize(c);
    sqlite3_finalize(parent);
    sqlite3_exec(t.raw, "COMMIT", nullptr, nullptr, nullptr);
}

void BM_TrafficReportMillion(benchmark::State& state)
{
    TempStore t;
    const int mailboxes = int(state.range(0));
    const auto a = Clock::now();
    fillBigStore(t, mailboxes);
    state.counters["build_s"] = std::chrono::duration<double>(Clock::now() - a).count();
    const std::string file = t.dir + "/report.csv";
    double generateS = 0, saveS = 0;
    uint64_t rows = 0;
    int runs = 0;
    for (auto _ : state) {
        CTrafficReport report(t.server);
        _tTrafficStatistics thresholds{};
        thresholds.rcptCommands = 50000; // about half the mailboxes
        thresholds.popBytesReceived = 90000;
        const auto g = Clock::now();
        if (!report.Generate(nullptr, thresholds))
            state.SkipWithError("generate failed");
        const auto s = Clock::now();
        if (!report.Save(file.c_str()))
            state.SkipWithError("save failed");
        const auto e = Clock::now();
        generateS += std::chrono::duration<double>(s - g).count();
        saveS += std::chrono::duration<double>(e - s).count();
        rows = report.RowCount();
        ++runs;
    }
    state.counters["rows"] = double(rows);
    state.counters["generate_s"] = generateS / runs;
    state.counters["save_s"] = saveS / runs;
}
BENCHMARK(BM_TrafficReportMillion)->Arg(1000000)->Iterations(2)->Unit(benchmark::kSecond);

} // namespace

BENCHMARK_MAIN();
