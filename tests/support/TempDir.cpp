#include "tests/support/TempDir.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace fptest {

TempDir::TempDir(const std::string& prefix) {
    std::string name = "/tmp/" + prefix + "-XXXXXX";
    if (!::mkdtemp(&name[0]))
        ADD_FAILURE() << "no temporary directory";
    path_ = name;
}

TempDir::~TempDir() {
    std::system(("rm -rf " + path_).c_str());
}

std::string TempDir::Read(const std::string& name) const {
    return ReadFile(At(name));
}

std::string TempDir::Write(const std::string& name, const std::string& text) const {
    std::ofstream(At(name)) << text;
    return At(name);
}

std::string ReadFile(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

}  // namespace fptest
