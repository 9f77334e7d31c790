#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "kt/WakeUpTimer.h"
#include "tov/EventDispatcher.h"
#include "tov/TovClient.h"

using namespace TOV;

namespace {

// Records each call with the name of the thread it came on.
class Sink : public IManagedEventSink {
public:
    void HandleEvent(const std::string& name, const COid& oid, const std::string& user,
                     const std::string& value, const CParam& param) override {
        char thread[32] = {};
        pthread_getname_np(pthread_self(), thread, sizeof thread);
        if (removed.load())
            lateCalls++;
        std::lock_guard<std::mutex> lock(mutex);
        calls.push_back(name + "/" + oid.ToString() + "=" + value + " by " + user + " old " +
                        param["old"].GetValue() + " on " + thread);
        if (onEvent)
            onEvent();
    }
    std::vector<std::string> Calls() {
        std::lock_guard<std::mutex> lock(mutex);
        return calls;
    }
    std::mutex mutex;
    std::vector<std::string> calls;
    std::function<void()> onEvent;
    std::atomic<bool> removed{false};
    std::atomic<int> lateCalls{0};
};

struct EventsTest : ::testing::Test {
    void SetUp() override {
        CVarDecl level("level");
        level.Instances({"0", "1"}).Default("0").Check(CValidator::Integer());
        ASSERT_TRUE(store.Declare(level).Success());
    }
    CDataStore store;
};

}  // namespace

TEST_F(EventsTest, AcceptedChangesReachTheirSinksOnTheDeliveryThread) {
    CTovClient client(store);
    Sink a, b;
    ASSERT_TRUE(client.AddManagedEventHandler("level", &a, "0").Success());
    ASSERT_TRUE(client.AddManagedEventHandler("level", &b, "1").Success());
    EXPECT_FALSE(client.AddManagedEventHandler("level", &a, "0").Success());
    // A thread attaches once and detaches only what it attached.
    EXPECT_FALSE(client.DetachThread().Success());
    EXPECT_TRUE(client.AttachThread().Success());
    EXPECT_FALSE(client.AttachThread().Success());
    EXPECT_TRUE(client.DetachThread().Success());

    EXPECT_TRUE(client.SendOp("me", "level", COid("0"), "4").Success());
    EXPECT_FALSE(client.SendOp("me", "level", COid("0"), "x").Success());  // no event
    CTxn txn;
    txn.Add("level", COid("1"), "7");
    txn.Add("level", COid("1"), "8");
    EXPECT_TRUE(client.SendTxn("txn", txn).Success());
    ASSERT_TRUE(store.GetDispatcher().WaitIdle(10000));

    EXPECT_EQ(std::vector<std::string>{"level/0=4 by me old 0 on TOV-Delivery"}, a.Calls());
    EXPECT_EQ((std::vector<std::string>{"level/1=7 by txn old 0 on TOV-Delivery",
                                        "level/1=8 by txn old 7 on TOV-Delivery"}),
              b.Calls());
    EXPECT_TRUE(client.RemoveManagedEventHandler("level", &a, "0").Success());
    EXPECT_FALSE(client.RemoveManagedEventHandler("level", &a, "0").Success());
}

// Writers on several threads, a slow sink, and removal in the middle: once
// removal returns the sink must never be called again.
TEST_F(EventsTest, NoCallAfterRemovalWhileWritersRace) {
    CTovClient client(store);
    Sink sink;
    sink.onEvent = [] { std::this_thread::sleep_for(std::chrono::microseconds(200)); };
    ASSERT_TRUE(client.AddManagedEventHandler("level", &sink, "0").Success());
    std::atomic<bool> stop{false};
    std::vector<std::thread> writers;
    for (int w = 0; w < 3; ++w)
        writers.emplace_back([&, w] {
            CTovClient own(store);
            own.AttachThread();
            for (int i = 0; !stop.load(); ++i)
                own.SendOp("w", "level", COid(std::to_string(i % 2)), std::to_string(w * i));
            own.DetachThread();
        });
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (sink.Calls().size() < 20 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_GE(sink.Calls().size(), 20u) << "writers never reached the sink";
    ASSERT_TRUE(client.RemoveManagedEventHandler("level", &sink, "0").Success());
    sink.removed = true;
    for (int i = 0; i < 100; ++i)
        client.SendOp("me", "level", COid("0"), std::to_string(i));
    stop = true;
    for (auto& t : writers)
        t.join();
    ASSERT_TRUE(store.GetDispatcher().WaitIdle(10000));
    EXPECT_EQ(0, sink.lateCalls.load());
}

TEST_F(EventsTest, SinkMayRemoveItselfFromItsOwnCall) {
    CTovClient client(store);
    Sink sink;
    sink.onEvent = [&] { client.RemoveManagedEventHandler("level", &sink, "0"); };
    ASSERT_TRUE(client.AddManagedEventHandler("level", &sink, "0").Success());
    client.SendOp("me", "level", COid("0"), "1");
    client.SendOp("me", "level", COid("0"), "2");
    ASSERT_TRUE(store.GetDispatcher().WaitIdle(10000));
    EXPECT_EQ(1u, sink.Calls().size());
}

TEST_F(EventsTest, QueuedClientDeliversOnTheCallersThreadOnly) {
    CTovClient client(store, CTovClient::DELIVER_QUEUED);
    Sink kept, dropped;
    ASSERT_TRUE(client.AddManagedEventHandler("level", &kept, "0").Success());
    ASSERT_TRUE(client.AddManagedEventHandler("level", &dropped, "0").Success());
    pthread_setname_np(pthread_self(), "app-loop");
    client.SendOp("me", "level", COid("0"), "3");
    EXPECT_TRUE(client.WaitEvents(10000));
    EXPECT_TRUE(kept.Calls().empty());
    // Removal also drops what is already queued for the sink.
    ASSERT_TRUE(client.RemoveManagedEventHandler("level", &dropped, "0").Success());
    EXPECT_EQ(1u, client.DeliverEvents());
    EXPECT_EQ(std::vector<std::string>{"level/0=3 by me old 0 on app-loop"}, kept.Calls());
    EXPECT_TRUE(dropped.Calls().empty());
    EXPECT_EQ(0u, client.DeliverEvents());
}

// A wake-up ends a wait on another thread at once. A wait cannot see a wake
// that came before it began, so the waker repeats until the wait is over.
TEST(WakeUps, EndTimerAndQueueWaitsOnAnotherThread) {
    const auto wakeUntilDone = [](std::function<bool()> wait, std::function<void()> wake) {
        auto done = std::async(std::launch::async, wait);
        while (done.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready)
            wake();
        return done.get();
    };
    KT::CWakeUpTimer timer;
    EXPECT_TRUE(wakeUntilDone([&] { return timer.Wait(60000); }, [&] { timer.Wake(); }));
    CEventDispatcher queue(false);  // woken with nothing queued, the wait says so
    EXPECT_FALSE(
        wakeUntilDone([&] { return queue.WaitPending(60000); }, [&] { queue.WakeWaiters(); }));
}

TEST(ParamTest, TreesIndexAndRender) {
    CParam p;
    p["net"]["0"].Assign("on");
    p["net"]["1"].Assign("off");
    p.AddParam(CParam("loose"));
    p["net"].AddParam("0", CParam("replaced"));
    EXPECT_EQ("", p.GetKey(1));
    EXPECT_EQ("loose", p[1].GetValue());
    const CParam& c = p;
    EXPECT_TRUE(c["missing"].Empty());
    EXPECT_TRUE(c[7].Empty());
    EXPECT_EQ(2u, p.Length());  // reading through const adds nothing
    EXPECT_EQ(">net:\n>  0: replaced\n>  1: off\n>- loose", p.ToString(">"));
}
