#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace fptest {

// The whole of the file at path; empty when it is missing.
inline std::string ReadFile(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

// A fresh directory under /tmp for one test, removed with all it holds when
// this object goes.
class TempDir {
public:
    // The name starts with prefix, so a directory left by a crash says whose it is.
    explicit TempDir(const std::string& prefix = "fptest") : path_("/tmp/" + prefix + "-XXXXXX") {
        if (!::mkdtemp(&path_[0]))
            ADD_FAILURE() << "no temporary directory";
    }
    ~TempDir() { std::system(("rm -rf " + path_).c_str()); }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // The path of `name` inside the directory.
    std::string At(const std::string& name) const { return path_ + "/" + name; }
    // The whole of file `name`; empty when it is missing.
    std::string Read(const std::string& name) const { return ReadFile(At(name)); }
    // Writes file `name` and returns its path.
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(At(name)) << text;
        return At(name);
    }

private:
    std::string path_;
};

}  // namespace fptest
