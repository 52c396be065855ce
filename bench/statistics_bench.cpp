// The large demonstration domain and the statistics queries, each against a raw SQLite baseline run on the
// same machine in the same run ("ratio" = store time / raw time):
//  - seeding: VbSeedLargeDemoDomain against raw prepared INSERTs of the same rows (object, full name, three
//    numbers, traffic counters) in one transaction on a store of the same schema;
//  - each statistic: the store's call against the plainest raw query that touches the same rows once
//    (a count, a sum, one scan of the mailbox sizes, the top rows of the size index).
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <sqlite3.h>
#include <unistd.h>

#include "velbrook/DemoConfiguration.h"
#include "velbrook/DomainStore.h"
#include "velbrook/ServerStatistics.h"
#include "velbrook/ServerStore.h"

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::time_point a, Clock::time_point b) { return std::chrono::duration<double>(b - a).count(); }

struct Store {
    std::string dir, path;
    _tMailServer* server = nullptr;
    sqlite3* raw = nullptr;

    Store()
    {
        char pattern[] = "/tmp/vbstats-XXXXXX";
        if (!::mkdtemp(pattern))
            std::abort();
        dir = pattern;
        path = dir + "/config.db";
        server = OpenMailServer(path.c_str());
        if (!server || sqlite3_open(path.c_str(), &raw) != SQLITE_OK)
            std::abort();
        sqlite3_busy_timeout(raw, 5000);
        sqlite3_exec(raw, "PRAGMA synchronous = NORMAL", nullptr, nullptr, nullptr);
    }
    ~Store()
    {
        sqlite3_close(raw);
        CloseMailServer(server);
        std::error_code ec;
        std::filesystem::remove_all(dir, ec);
    }
};

// The baseline of seeding: the same rows with raw statements, nothing else.
void rawSeed(Store& t, int mailboxes)
{
    CreateDomain(t.server, "raw.example");
    sqlite3_exec(t.raw, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt* o = nullptr;
    sqlite3_stmt* p = nullptr;
    sqlite3_stmt* c = nullptr;
    sqlite3_prepare_v2(t.raw, "INSERT INTO object(kind, parent, name_key, name) VALUES (2, (SELECT id FROM object "
                              "WHERE kind = 1 AND name_key = 'raw.example'), ?1, ?1)", -1, &o, nullptr);
    sqlite3_prepare_v2(t.raw, "INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                              "VALUES (?, '', ?, '', ?, ?, ?)", -1, &p, nullptr);
    sqlite3_prepare_v2(t.raw, "INSERT INTO traffic(mailbox, domain, c0, c1, c2, c3, c4, c5, c6) "
                              "VALUES (?1, 1, ?2, ?2, ?2, ?2, ?2, ?2, ?2)", -1, &c, nullptr);
    for (int i = 0; i < mailboxes; ++i) {
        const std::string local = "user" + std::to_string(i);
        sqlite3_bind_text(o, 1, local.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_step(o);
        sqlite3_reset(o);
        const sqlite3_int64 id = sqlite3_last_insert_rowid(t.raw);
        const char* names[] = {"fullname", "quotamsgsize", "quotanomsgs", "quotalimit"};
        for (int k = 0; k < (i % 50 == 7 ? 4 : 3); ++k) {
            sqlite3_bind_int64(p, 1, id);
            sqlite3_bind_text(p, 2, names[k], -1, SQLITE_STATIC);
            sqlite3_bind_text(p, 3, names[k], -1, SQLITE_STATIC);
            sqlite3_bind_int(p, 4, k == 0 ? 1 : 4);
            if (k == 0)
                sqlite3_bind_text(p, 5, local.c_str(), -1, SQLITE_TRANSIENT);
            else
                sqlite3_bind_int64(p, 5, (i * 7919) % 120000);
            sqlite3_step(p);
            sqlite3_reset(p);
        }
        sqlite3_bind_int64(c, 1, id);
        sqlite3_bind_int64(c, 2, i % 200000);
        sqlite3_step(c);
        sqlite3_reset(c);
    }
    sqlite3_finalize(o);
    sqlite3_finalize(p);
    sqlite3_finalize(c);
    sqlite3_exec(t.raw, "COMMIT", nullptr, nullptr, nullptr);
}

void BM_SeedLargeDomainRatio(benchmark::State& state)
{
    const int n = int(state.range(0));
    double storeS = 0, rawS = 0;
    for (auto _ : state) {
        Store a, b;
        const auto t0 = Clock::now();
        if (!VbSeedLargeDemoDomain(a.server, "large.example", uint32_t(n), nullptr, nullptr))
            state.SkipWithError("seeding failed");
        const auto t1 = Clock::now();
        rawSeed(b, n);
        const auto t2 = Clock::now();
        storeS += seconds(t0, t1);
        rawS += seconds(t1, t2);
    }
    state.counters["mailboxes_per_s"] = double(n) * double(state.iterations()) / storeS;
    state.counters["ratio"] = storeS / rawS;
}
BENCHMARK(BM_SeedLargeDomainRatio)->Arg(200000)->Iterations(1)->Unit(benchmark::kSecond);

// One statistic against its raw baseline, alternating so that both see the same cache.
template <class StoreCall>
void statisticRatio(benchmark::State& state, const char* rawSql, StoreCall&& call)
{
    // Built once for every statistic (the build is measured above), removed at exit.
    static Store store;
    static const bool seeded = VbSeedDemoConfiguration(store.server)
                               && VbSeedLargeDemoDomain(store.server, "large.example", uint32_t(state.range(0)),
                                                        nullptr, nullptr);
    if (!seeded)
        state.SkipWithError("seeding failed");
    Store* shared = &store;
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(shared->raw, rawSql, -1, &s, nullptr) != SQLITE_OK)
        state.SkipWithError(sqlite3_errmsg(shared->raw));
    double storeS = 0, rawS = 0;
    for (auto _ : state) {
        const auto t0 = Clock::now();
        if (!call(shared->server))
            state.SkipWithError("statistic failed");
        const auto t1 = Clock::now();
        int64_t sink = 0;
        while (sqlite3_step(s) == SQLITE_ROW)
            sink += sqlite3_column_int64(s, 0);
        sqlite3_reset(s);
        benchmark::DoNotOptimize(sink);
        const auto t2 = Clock::now();
        storeS += seconds(t0, t1);
        rawS += seconds(t1, t2);
    }
    sqlite3_finalize(s);
    state.counters["store_ms"] = 1000 * storeS / double(state.iterations());
    state.counters["raw_ms"] = 1000 * rawS / double(state.iterations());
    state.counters["ratio"] = storeS / rawS;
}

void BM_CountsRatio(benchmark::State& state)
{
    statisticRatio(state, "SELECT count(*) FROM object WHERE kind = 2", [](_tMailServer* s) {
        _tServerObjectCounts c{};
        return VbCountServerObjects(s, &c) != 0;
    });
}
void BM_QuotasRatio(benchmark::State& state)
{
    statisticRatio(state,
                   "SELECT count(*) FROM object o JOIN property p ON p.owner = o.id AND p.section_key = '' "
                   "AND p.name_key = 'quotamsgsize' WHERE o.kind = 2 AND p.value >= 102400",
                   [](_tMailServer* s) {
                       _tQuotaSummary q{};
                       return VbSummariseQuotas(s, &q) != 0;
                   });
}
void BM_TrafficRatio(benchmark::State& state)
{
    statisticRatio(state, "SELECT sum(c0), sum(c1), sum(c2), sum(c3), sum(c4), sum(c5), sum(c6) FROM traffic", [](_tMailServer* s) {
        uint64_t t[7] = {};
        return VbTotalTraffic(s, t) != 0;
    });
}
void BM_LargestRatio(benchmark::State& state)
{
    statisticRatio(state,
                   "SELECT owner, value FROM property WHERE name_key = 'quotamsgsize' AND type = 4 "
                   "ORDER BY value DESC LIMIT 20",
                   [](_tMailServer* s) {
                       std::vector<_tMailboxUsage> rows(20);
                       uint32_t n = 20;
                       return VbLargestMailboxes(s, rows.data(), &n) != 0;
                   });
}
BENCHMARK(BM_CountsRatio)->Arg(200000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QuotasRatio)->Arg(200000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TrafficRatio)->Arg(200000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LargestRatio)->Arg(200000)->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
