// The libFuzzer entry points of one fuzzer program; FP_FUZZ_TARGET names the
// function it drives.
#include <log4cpp/Category.hh>
#include <log4cpp/Priority.hh>

#include <csignal>

#include "fuzz/FuzzTargets.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    std::signal(SIGPIPE, SIG_IGN);
    // Every log line is formatted, so format mistakes show, but none is kept:
    // no appender is attached.
    log4cpp::Category::getRoot().setPriority(log4cpp::Priority::DEBUG);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return fpfuzz::FP_FUZZ_TARGET(data, size);
}
