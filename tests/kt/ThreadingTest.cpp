#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "kt/StreamSocket.h"
#include "kt/Thread.h"

namespace {

using Clock = std::chrono::steady_clock;

// Cancel must wake a body that blocks in a socket read or a sleep, at once.
TEST(Thread, CancelWakesABlockedReadAndSleep) {
    KT::CStreamSocket a, b;
    ASSERT_TRUE(KT::CStreamSocket::CreatePair(a, b));
    std::atomic<int> readResult{-1}, sleepResult{-1};
    std::atomic<int> calls{0};
    std::atomic<bool> sleeping{false};
    KT::CThread reader("kt-reader", KT::CThread::GetPriority(), [&] {
        ++calls;
        KT::CSlice<unsigned char> buf(16);
        readResult = a.Read(buf);
        return true;
    });
    KT::CThread sleeper("kt-sleeper", 0, [&] {
        sleeping = true;
        sleepResult = KT::CThread::Sleep(60000);
        return true;
    });
    ASSERT_TRUE(reader.Run());
    ASSERT_TRUE(sleeper.Run());
    EXPECT_FALSE(reader.Run());
    while (calls.load() == 0 || !sleeping.load())  // both bodies entered
        std::this_thread::yield();

    auto start = Clock::now();
    reader.Cancel();
    sleeper.Cancel();
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(readResult.load(), 0);
    EXPECT_EQ(sleepResult.load(), 0);
    EXPECT_EQ(calls.load(), 1);
    EXPECT_FALSE(reader.IsRunning());
    EXPECT_TRUE(KT::CThread::Sleep(1));  // off a CThread it simply sleeps
}

}  // namespace
