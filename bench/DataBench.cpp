// The embedded data engine: how long a write takes to reach a sink as an
// event, and durable writes per second against SQLite's own single-row
// inserts on the same file system with the same journal and sync settings.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "bench/BenchSupport.h"
#include "tov/DataStore.h"
#include "tov/ManagedEventSink.h"
#include "tov/TovClient.h"
#include "tov/VarDecl.h"

namespace {

using fpbench::Clock;
using fpbench::Nanos;

// A scratch directory for the files of one benchmark, removed afterwards.
// FP_BENCH_DIR chooses the file system (default: the temporary directory).
class ScratchDir {
public:
    ScratchDir() {
        const char* base = getenv("FP_BENCH_DIR");
        std::string pattern =
            std::string(base ? base : (getenv("TMPDIR") ? getenv("TMPDIR") : "/tmp")) +
            "/fp-bench-XXXXXX";
        std::vector<char> buf(pattern.begin(), pattern.end());
        buf.push_back('\0');
        if (mkdtemp(buf.data()))
            path_ = buf.data();
    }
    ~ScratchDir() {
        if (!path_.empty())
            std::system(("rm -rf '" + path_ + "'").c_str());
    }
    std::string File(const std::string& name) const { return path_ + "/" + name; }
    bool Ok() const { return !path_.empty(); }

private:
    std::string path_;
};

class EventClock : public TOV::IManagedEventSink {
public:
    void HandleEvent(const std::string&, const TOV::COid&, const std::string&, const std::string&,
                     const TOV::CParam&) override {
        at.store(Clock::now().time_since_epoch().count());
        seen.fetch_add(1);
    }
    std::atomic<Clock::rep> at{0};
    std::atomic<int> seen{0};
};

// From SendOp to the sink's HandleEvent on the engine's delivery thread, in
// memory (0) or with the variable kept in a SQLite file (1).
void BM_WriteToEvent(benchmark::State& state) {
    ScratchDir dir;
    TOV::CDataStore store;
    const bool durable = state.range(0) == 1;
    if (durable && !store.Open(dir.File("store.db")).Success()) {
        state.SkipWithError("cannot open the data file");
        return;
    }
    store.Declare(TOV::CVarDecl("bench.value").Default("0").Persistent(durable));
    TOV::CTovClient client(store);
    EventClock sink;
    client.AddManagedEventHandler("bench.value", &sink, "0");
    std::vector<double> samples;
    unsigned n = 0;
    for (auto _ : state) {
        const int before = sink.seen.load();
        const auto t0 = Clock::now();
        client.SendOp("bench", "bench.value", "0", std::to_string(++n));
        while (sink.seen.load() == before)
            std::this_thread::yield();
        samples.push_back(Nanos(t0, Clock::time_point(Clock::duration(sink.at.load()))) / 1000);
    }
    client.RemoveManagedEventHandler("bench.value", &sink, "0");
    state.counters["median_us"] = fpbench::Percentile(samples, 0.5);
    state.counters["p99_us"] = fpbench::Percentile(samples, 0.99);
}
BENCHMARK(BM_WriteToEvent)->ArgName("durable")->Arg(0)->Arg(1)->UseRealTime();

// SQLite alone: one row replaced per transaction, WAL, full sync, the
// statement prepared once.
class RawSqlite {
public:
    explicit RawSqlite(const std::string& path) {
        if (sqlite3_open(path.c_str(), &db_) != SQLITE_OK)
            return;
        sqlite3_exec(db_,
                     "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
                     "CREATE TABLE vars(name TEXT NOT NULL, instance TEXT NOT NULL,"
                     " value TEXT NOT NULL, PRIMARY KEY(name, instance));",
                     nullptr, nullptr, nullptr);
        sqlite3_prepare_v2(db_, "INSERT OR REPLACE INTO vars VALUES('bench.value','0',?)", -1,
                           &insert_, nullptr);
    }
    ~RawSqlite() {
        sqlite3_finalize(insert_);
        sqlite3_close(db_);
    }
    bool Insert(const std::string& value) {
        if (!insert_)
            return false;
        sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_bind_text(insert_, 1, value.c_str(), -1, SQLITE_TRANSIENT);
        const bool ok = sqlite3_step(insert_) == SQLITE_DONE;
        sqlite3_reset(insert_);
        return sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK && ok;
    }

private:
    sqlite3* db_ = nullptr;
    sqlite3_stmt* insert_ = nullptr;
};

// Durable writes through the client, alternating in batches with raw inserts
// into a second file in the same directory.
void BM_DurableWrites(benchmark::State& state) {
    ScratchDir dir;
    TOV::CDataStore store;
    if (!dir.Ok() || !store.Open(dir.File("store.db")).Success()) {
        state.SkipWithError("cannot open the data file");
        return;
    }
    store.Declare(TOV::CVarDecl("bench.value").Default("0").Persistent());
    TOV::CTovClient client(store);
    RawSqlite raw(dir.File("raw.db"));
    constexpr int kBatch = 10;
    double libNs = 0, rawNs = 0;
    unsigned n = 0;
    for (auto _ : state) {
        auto t0 = Clock::now();
        for (int i = 0; i < kBatch; ++i)
            if (!client.SendOp("bench", "bench.value", "0", std::to_string(++n)).Success())
                state.SkipWithError("write refused");
        auto t1 = Clock::now();
        for (int i = 0; i < kBatch; ++i)
            if (!raw.Insert(std::to_string(++n)))
                state.SkipWithError("raw insert failed");
        auto t2 = Clock::now();
        libNs += Nanos(t0, t1);
        rawNs += Nanos(t1, t2);
    }
    const double writes = static_cast<double>(state.iterations()) * kBatch;
    state.counters["lib_per_s"] = writes / (libNs / 1e9);
    state.counters["sqlite_per_s"] = writes / (rawNs / 1e9);
    state.counters["x_sqlite_time"] = libNs / rawNs;
}
BENCHMARK(BM_DurableWrites)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
