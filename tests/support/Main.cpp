#include <gtest/gtest.h>
#include <log4cpp/Category.hh>
#include <log4cpp/Priority.hh>

#include <csignal>

int main(int argc, char** argv) {
    // A peer that closes its end must surface as a failed write, not kill the run.
    std::signal(SIGPIPE, SIG_IGN);
    // Debug lines are part of what the tests check; nothing is printed unless a
    // test attaches a FP::Testing::LogCapture.
    log4cpp::Category::getRoot().setPriority(log4cpp::Priority::DEBUG);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
