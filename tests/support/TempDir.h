#pragma once

#include <string>

namespace fptest {

// A fresh directory under /tmp for one test, removed with all it holds when
// this object goes.
class TempDir {
public:
    // The name starts with prefix, so a directory left by a crash says whose it is.
    explicit TempDir(const std::string& prefix = "fptest");
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // The path of `name` inside the directory.
    std::string At(const std::string& name) const { return path_ + "/" + name; }
    // The whole of file `name`; empty when it is missing.
    std::string Read(const std::string& name) const;
    // Writes file `name` and returns its path.
    std::string Write(const std::string& name, const std::string& text) const;

private:
    std::string path_;
};

// The whole of the file at path; empty when it is missing.
std::string ReadFile(const std::string& path);

}  // namespace fptest
