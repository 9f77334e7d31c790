#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/FuzzTargets.h"

namespace {

// Every seed and every former finding of a target, run through the function
// its fuzzer drives; a failed check aborts with the file and line it names.
class CorpusReplay : public ::testing::TestWithParam<fpfuzz::NamedTarget> {};

TEST_P(CorpusReplay, EveryInputPassesTheTargetsChecks) {
    const std::filesystem::path dir = std::filesystem::path(FP_FUZZ_CORPUS) / GetParam().name;
    size_t replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(dir)) {
        std::ifstream in(entry.path(), std::ios::binary);
        const std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                         std::istreambuf_iterator<char>());
        SCOPED_TRACE(entry.path().string());
        EXPECT_EQ(GetParam().run(bytes.data(), bytes.size()), 0);
        ++replayed;
    }
    EXPECT_GT(replayed, 0u) << "no seeds in " << dir;
}

INSTANTIATE_TEST_SUITE_P(Fuzz, CorpusReplay, ::testing::ValuesIn(fpfuzz::kTargets),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
