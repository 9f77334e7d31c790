#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/TempDir.h"
#include "tov/DataStore.h"

using namespace TOV;

namespace {

using fptest::TempDir;

std::string Slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

CParam Request(std::initializer_list<const char*> entries) {
    CParam req;
    for (const char* e : entries)
        req.AddParam(CParam(e));
    return req;
}

void DeclareUnit(CDataStore& s) {
    auto declare = [&s](const CVarDecl& d) { ASSERT_TRUE(s.Declare(d).Success()) << d.GetName(); };
    declare(CVarDecl("brightness").Default("5").Check(CValidator::Integer(0, 10)).Persistent());
    declare(CVarDecl("gain").Default("1.5").Check(CValidator::Real(0, 2)));
    declare(CVarDecl("mode")
                .Instances({"0", "1"})
                .Default("auto")
                .Persistent()
                .Check(CValidator::OneOf({"auto", "manual"})));
    declare(CVarDecl("host").Default("a").Check(CValidator::Pattern("[a-z]+")));
    declare(CVarDecl("even").Default("").Check(CValidator::Custom(
        [](const std::string& v) -> std::string { return v.size() % 2 ? "odd length" : ""; })));
    // port/"12" and port1/"2" both spell "port12".
    declare(CVarDecl("port").Instances({"1", "12"}).Default("p"));
    declare(CVarDecl("port1").Instances({"2"}).Default("q"));
    declare(CVarDecl("net.ip").Default("10.0.0.1"));
    declare(CVarDecl("net.dns.1").Default("8.8.8.8"));
}

std::string Value(const CDataStore& s, const std::string& name, const std::string& inst = "0") {
    return s.Read(name, COid(inst)).Val().GetValue();
}

// Runs each case in memory and on a temporary SQLite file.
class DataStoreTest : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        if (GetParam()) {
            ASSERT_TRUE(store.Open(dir.At("unit.db")).Success());
        }
        DeclareUnit(store);
    }
    TempDir dir;
    CDataStore store;
};

}  // namespace

TEST_P(DataStoreTest, RefusedWritesChangeNothingAndSayWhy) {
    // Bad values grouped by the reason the validator gives.
    struct Case {
        const char* name;
        std::vector<const char*> values;
        const char* why;
    } cases[] = {
        {"brightness", {"11"}, "out of range 0 to 10"},
        {"brightness", {"3x", " 3", ""}, "not an integer"},
        {"gain", {"nan", "0x1"}, "not a number"},
        {"gain", {"2.5"}, "out of range 0 to 2"},
        {"mode", {"off"}, "not one of the allowed values"},
        {"host", {"ab1"}, "does not match the required format"},
        {"even", {"abc"}, "odd length"},
    };
    EXPECT_EQ("Unknown variable nosuch", store.Write("t", "nosuch", COid("0"), "1").Msg());
    EXPECT_EQ("Unknown instance '7' of brightness",
              store.Write("t", "brightness", COid("7"), "1").Msg());
    for (const Case& c : cases) {
        for (const char* value : c.values) {
            std::string before = Value(store, c.name);
            CRet r = store.Write("t", c.name, COid("0"), value);
            EXPECT_FALSE(r.Success()) << c.name << "=" << value;
            EXPECT_EQ(std::string("Invalid value '") + value + "' for " + c.name + ": " + c.why,
                      r.Msg());
            EXPECT_EQ(before, Value(store, c.name));
        }
    }
    EXPECT_TRUE(store.Write("t", "gain", COid(".0"), "1e-1").Success());
    EXPECT_EQ("1e-1", Value(store, "gain"));
    EXPECT_TRUE(store.Write("t", "mode", COid("1"), "manual").Success());
    EXPECT_EQ("manual", Value(store, "mode", "1"));
    EXPECT_EQ("auto", Value(store, "mode", "0"));
    EXPECT_EQ("auto", store.Read("mode", COid("1"), false).Val().GetValue());  // the default
}

TEST_P(DataStoreTest, TransactionsApplyAllOrNothing) {
    CTxn bad;
    bad.Add("brightness", COid("0"), "7");
    bad.Add("mode", COid("0"), "manual");
    bad.Add("mode", COid("1"), "broken");
    EXPECT_EQ("Invalid value 'broken' for mode: not one of the allowed values",
              store.Apply("t", bad).Msg());
    EXPECT_EQ("5", Value(store, "brightness"));
    EXPECT_EQ("auto", Value(store, "mode"));

    CTxn good;
    good.Add("brightness", COid("0"), "7");
    good.Add("mode", COid("1"), "manual");
    EXPECT_TRUE(store.Apply("t", good).Success());
    EXPECT_EQ("7", Value(store, "brightness"));
    EXPECT_EQ("manual", Value(store, "mode", "1"));
}

TEST_P(DataStoreTest, VariableSetsResolveLongestNameFirst) {
    CRet r = store.Query(Request({"brightness0", "port12", "port1", "mode", "gain0"}));
    ASSERT_TRUE(r.Success()) << r.Msg();
    // "port12" could be port/"12" or port1/"2": the longer name wins. "port1"
    // splits into port/"1" before it is read as the bare name port1. A bare
    // name answers every instance, in declaration order.
    EXPECT_EQ(r.Val().ToString(""),
              "brightness:\n  0: 5\nport1:\n  2: q\nport:\n  1: p\nmode:\n  0: auto\n  1: "
              "auto\ngain:\n  0: 1.5");

    CRet partial = store.Query(Request({"gain0", "nosuch0", "brightness9"}));
    EXPECT_FALSE(partial.Success());
    EXPECT_EQ("Unknown variables: nosuch0, brightness9", partial.Msg());
    EXPECT_EQ(partial.Val().ToString(""), "gain:\n  0: 1.5");

    ASSERT_TRUE(store.Write("t", "mode", COid("1"), "manual").Success());
    EXPECT_EQ(store.QueryByValue(Request({"mode", "brightness0"}), "manual").Val().ToString(""),
              "mode:\n  1: manual");
    EXPECT_EQ(store.Groups(Request({"net"}), COid(".0"), false).Val().ToString(""),
              "net.ip:\n  0: 10.0.0.1");
    EXPECT_EQ(2u, store.Groups(Request({"net"}), COid("*"), true).Val().Length());
}

INSTANTIATE_TEST_SUITE_P(MemoryAndFile, DataStoreTest, ::testing::Bool());

TEST(DataStoreFileTest, PersistentValuesSurviveReopening) {
    TempDir dir;
    const std::string file = dir.At("unit.db");
    {
        CDataStore s;
        ASSERT_TRUE(s.Open(file).Success());
        DeclareUnit(s);
        ASSERT_TRUE(s.Write("t", "brightness", COid("0"), "9").Success());
        ASSERT_TRUE(s.Write("t", "gain", COid("0"), "0.5").Success());  // not persistent
        CTxn txn;
        txn.Add("mode", COid("1"), "manual");
        ASSERT_TRUE(s.Apply("t", txn).Success());
    }
    CDataStore s;
    DeclareUnit(s);  // declaring before opening works too
    ASSERT_TRUE(s.Open(file).Success());
    EXPECT_EQ("9", Value(s, "brightness"));
    EXPECT_EQ("1.5", Value(s, "gain"));
    EXPECT_EQ("manual", Value(s, "mode", "1"));
    EXPECT_FALSE(s.Open(file).Success());
}

TEST(DataStoreFileTest, CorruptForeignAndUnreadableFilesAreRefusedUntouched) {
    TempDir dir;
    const std::string garbage = dir.At("garbage.db");
    {
        std::ofstream out(garbage, std::ios::binary);
        for (int i = 0; i < 4096; ++i)
            out.put(static_cast<char>(i * 7));
    }
    const std::string foreign = dir.At("foreign.db");
    sqlite3* db = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(foreign.c_str(), &db));
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(db, "CREATE TABLE t(x); INSERT INTO t VALUES(1);", nullptr,
                                      nullptr, nullptr));
    sqlite3_close(db);

    for (const std::string& path : {garbage, foreign}) {
        const std::string before = Slurp(path);
        CDataStore s;
        CRet r = s.Open(path);
        EXPECT_FALSE(r.Success());
        EXPECT_NE(std::string::npos, r.Msg().find(path)) << r.Msg();
        EXPECT_FALSE(s.IsDurable());
        EXPECT_EQ(before, Slurp(path));
    }
    CDataStore s;
    EXPECT_FALSE(s.Open(dir.At("missing/dir/unit.db")).Success());
}

// A child writes a stream of values, reporting each acknowledged one through a
// pipe, and is killed mid-stream; every reported value must be on disk.
TEST(DataStoreFileTest, AcknowledgedWritesSurviveSigkill) {
    TempDir dir;
    const std::string file = dir.At("crash.db");
    std::vector<std::string> slots;
    for (int i = 0; i < 400; ++i)
        slots.push_back(std::to_string(i));
    auto declare = [&](CDataStore& s) {
        return s.Declare(CVarDecl("counter").Instances(slots).Default("-1").Persistent()).Success();
    };
    int fds[2];
    ASSERT_EQ(0, pipe(fds));
    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        close(fds[0]);
        CDataStore s;
        if (!s.Open(file).Success() || !declare(s))
            _exit(2);
        for (int i = 0;; ++i) {
            if (!s.Write("t", "counter", COid(std::to_string(i % 400)), std::to_string(i))
                     .Success())
                _exit(3);
            if (write(fds[1], &i, sizeof i) != sizeof i)
                _exit(4);
        }
    }
    close(fds[1]);
    int last = -1, got = 0;
    while (last < 150 && read(fds[0], &got, sizeof got) == sizeof got)
        last = got;
    kill(pid, SIGKILL);
    while (read(fds[0], &got, sizeof got) == sizeof got)
        last = got;  // acknowledged just before the kill
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "child failed early: " << WEXITSTATUS(status);
    ASSERT_GE(last, 150);

    CDataStore s;
    ASSERT_TRUE(s.Open(file).Success());
    ASSERT_TRUE(declare(s));
    // Slot i%400 holds i, or a later value if the write after it also landed.
    for (int i = std::max(0, last - 399); i <= last; ++i)
        EXPECT_LE(i, std::stoi(Value(s, "counter", std::to_string(i % 400)))) << i;
}
