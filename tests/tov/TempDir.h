#pragma once

#include <stdlib.h>

#include <cstdlib>
#include <string>

namespace tovtest {

// A fresh folder for a test's database files, removed with its contents when
// the test is done.
struct TempDir {
    TempDir() {
        char tmpl[] = "/tmp/tovtestXXXXXX";
        path = mkdtemp(tmpl);
    }
    ~TempDir() { std::system(("rm -rf '" + path + "'").c_str()); }
    std::string File(const char* name) const { return path + "/" + name; }
    std::string path;
};

}  // namespace tovtest
