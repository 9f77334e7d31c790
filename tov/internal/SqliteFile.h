#pragma once

#include <map>
#include <string>
#include <vector>

struct sqlite3;

namespace TOV {

// The SQLite file behind the persistent variables: one row per variable and
// instance, a format marker so that other SQLite files are recognised, WAL
// with synchronous commits so that a write is on disk once Save returns.
// Only the store uses it, under the store's lock.
class CSqliteFile {
public:
    struct Row_t {
        std::string name;
        std::string instance;
        std::string value;
    };

    CSqliteFile() = default;
    ~CSqliteFile();
    CSqliteFile(const CSqliteFile&) = delete;
    CSqliteFile& operator=(const CSqliteFile&) = delete;

    // Creates a missing (or empty) file; refuses a corrupt, unreadable or
    // foreign one without writing to it. Answers "" or the error message.
    std::string Open(const std::string& path);
    void Close();
    bool IsOpen() const { return db_ != nullptr; }
    const std::string& GetPath() const { return path_; }

    // Stored values of one variable, by instance.
    std::map<std::string, std::string> Load(const std::string& name);
    // Stores the rows in one transaction. Answers "" or the error message;
    // on failure nothing is stored.
    std::string Save(const std::vector<Row_t>& rows);

private:
    std::string Exec(const char* sql);
    std::string Error(const std::string& what) const;

    sqlite3* db_ = nullptr;
    std::string path_;
};

}  // namespace TOV
