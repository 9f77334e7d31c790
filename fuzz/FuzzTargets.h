#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace fpfuzz {

// Each target takes any bytes, drives one part of the library with them and
// aborts through FUZZ_CHECK when an answer is inconsistent; crashes and
// out-of-bounds accesses are left to the sanitizers. The same functions serve
// the libFuzzer programs and the corpus replay test.
using Target = int (*)(const uint8_t* data, size_t size);

int LinkReceive(const uint8_t* data, size_t size);
int PanelReceive(const uint8_t* data, size_t size);
int Addresses(const uint8_t* data, size_t size);
int Numbers(const uint8_t* data, size_t size);
int VarSets(const uint8_t* data, size_t size);
int LineKeys(const uint8_t* data, size_t size);

struct NamedTarget {
    const char* name;  // also the corpus directory under fuzz/corpus
    Target run;
};
constexpr NamedTarget kTargets[] = {
    {"link", LinkReceive}, {"panel", PanelReceive}, {"address", Addresses},
    {"number", Numbers},   {"varset", VarSets},     {"linekeys", LineKeys},
};

[[noreturn]] inline void Fail(const char* what, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: check failed: %s\n", file, line, what);
    std::abort();
}

}  // namespace fpfuzz

// Unlike assert, stays on in optimised builds.
#define FUZZ_CHECK(cond)                               \
    do {                                               \
        if (!(cond))                                   \
            ::fpfuzz::Fail(#cond, __FILE__, __LINE__); \
    } while (0)
