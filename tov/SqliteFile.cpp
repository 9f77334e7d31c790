#include "tov/internal/SqliteFile.h"

#include <sqlite3.h>
#include <sys/stat.h>

namespace TOV {

namespace {

// Marks our files: "TOV1" in the header's application id, and a format row.
constexpr int kApplicationId = 0x544F5631;
constexpr const char* kFormat = "tov-store";
constexpr const char* kVersion = "1";

// Answers the single text of a one-row query, or fails.
bool QueryText(sqlite3* db, const char* sql, std::string& out, int& rc) {
    sqlite3_stmt* st = nullptr;
    rc = sqlite3_prepare_v2(db, sql, -1, &st, nullptr);
    if (rc != SQLITE_OK)
        return false;
    rc = sqlite3_step(st);
    bool ok = rc == SQLITE_ROW;
    if (ok) {
        const unsigned char* t = sqlite3_column_text(st, 0);
        out = t ? reinterpret_cast<const char*>(t) : "";
        rc = SQLITE_OK;
    } else if (rc == SQLITE_DONE) {
        out.clear();
        rc = SQLITE_OK;
        ok = true;
    }
    sqlite3_finalize(st);
    return ok;
}

}  // namespace

CSqliteFile::~CSqliteFile() {
    Close();
}

void CSqliteFile::Close() {
    if (db_)
        sqlite3_close_v2(db_);
    db_ = nullptr;
}

std::string CSqliteFile::Error(const std::string& what) const {
    return what + " '" + path_ + "': " + (db_ ? sqlite3_errmsg(db_) : "cannot open");
}

std::string CSqliteFile::Exec(const char* sql) {
    char* err = nullptr;
    if (sqlite3_exec(db_, sql, nullptr, nullptr, &err) == SQLITE_OK)
        return "";
    std::string msg = err ? err : sqlite3_errmsg(db_);
    sqlite3_free(err);
    return msg;
}

std::string CSqliteFile::Open(const std::string& path) {
    Close();
    path_ = path;
    struct stat st {};
    bool exists = ::stat(path.c_str(), &st) == 0;
    // A zero-length file is what a crash during creation leaves behind.
    bool fresh = !exists || st.st_size == 0;
    int flags = SQLITE_OPEN_READWRITE | (exists ? 0 : SQLITE_OPEN_CREATE);
    if (sqlite3_open_v2(path.c_str(), &db_, flags, nullptr) != SQLITE_OK) {
        std::string msg = Error("Cannot open data file");
        Close();
        return msg;
    }
    sqlite3_busy_timeout(db_, 2000);

    // Look before writing anything: a file that is not ours stays untouched.
    std::string text;
    int rc = SQLITE_OK;
    if (!QueryText(db_, "PRAGMA application_id", text, rc)) {
        std::string msg = rc == SQLITE_NOTADB || rc == SQLITE_CORRUPT
                              ? Error("Data file is corrupt or not a database")
                              : Error("Cannot read data file");
        Close();
        return msg;
    }
    if (!fresh) {
        std::string format;
        if (std::atoi(text.c_str()) != kApplicationId ||
            !QueryText(db_, "SELECT value FROM meta WHERE key='format'", format, rc) ||
            format != kFormat) {
            std::string msg = "Data file '" + path + "' belongs to another application";
            Close();
            return msg;
        }
        std::string check;
        if (!QueryText(db_, "PRAGMA quick_check", check, rc) || check != "ok") {
            std::string msg = Error("Data file is corrupt");
            Close();
            return msg;
        }
    }

    // WAL with a sync on every commit: an acknowledged write is on disk.
    std::string err = Exec("PRAGMA journal_mode=WAL");
    if (err.empty())
        err = Exec("PRAGMA synchronous=FULL");
    if (err.empty() && fresh) {
        err = Exec(
            "BEGIN;"
            "PRAGMA application_id=1414485553;"
            "CREATE TABLE meta(key TEXT PRIMARY KEY, value TEXT NOT NULL);"
            "CREATE TABLE vars(name TEXT NOT NULL, instance TEXT NOT NULL, value TEXT NOT NULL,"
            " PRIMARY KEY(name, instance));"
            "INSERT INTO meta VALUES('format','tov-store');"
            "INSERT INTO meta VALUES('version','1');"
            "COMMIT;");
    }
    if (!err.empty()) {
        std::string msg = "Cannot prepare data file '" + path + "': " + err;
        Close();
        return msg;
    }
    std::string version;
    if (!QueryText(db_, "SELECT value FROM meta WHERE key='version'", version, rc) ||
        version != kVersion) {
        Close();
        return "Data file '" + path + "' has an unsupported version '" + version + "'";
    }
    return "";
}

std::map<std::string, std::string> CSqliteFile::Load(const std::string& name) {
    std::map<std::string, std::string> out;
    if (!db_)
        return out;
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db_, "SELECT instance, value FROM vars WHERE name=?", -1, &st,
                           nullptr) != SQLITE_OK)
        return out;
    sqlite3_bind_text(st, 1, name.c_str(), -1, SQLITE_TRANSIENT);
    while (sqlite3_step(st) == SQLITE_ROW) {
        const unsigned char* i = sqlite3_column_text(st, 0);
        const unsigned char* v = sqlite3_column_text(st, 1);
        if (i && v)
            out[reinterpret_cast<const char*>(i)] = reinterpret_cast<const char*>(v);
    }
    sqlite3_finalize(st);
    return out;
}

std::string CSqliteFile::Save(const std::vector<Row_t>& rows) {
    if (!db_)
        return "Data file is not open";
    if (rows.empty())
        return "";
    std::string err = Exec("BEGIN IMMEDIATE");
    if (!err.empty())
        return "Cannot write data file '" + path_ + "': " + err;
    sqlite3_stmt* st = nullptr;
    bool ok = sqlite3_prepare_v2(db_, "INSERT OR REPLACE INTO vars VALUES(?,?,?)", -1, &st,
                                 nullptr) == SQLITE_OK;
    for (size_t i = 0; ok && i < rows.size(); ++i) {
        sqlite3_bind_text(st, 1, rows[i].name.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(st, 2, rows[i].instance.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(st, 3, rows[i].value.c_str(), -1, SQLITE_TRANSIENT);
        ok = sqlite3_step(st) == SQLITE_DONE;
        sqlite3_reset(st);
    }
    if (ok)
        err = Exec("COMMIT");
    else
        err = sqlite3_errmsg(db_);
    sqlite3_finalize(st);
    if (!ok || !err.empty()) {
        Exec("ROLLBACK");
        return "Cannot write data file '" + path_ + "': " + err;
    }
    return "";
}

}  // namespace TOV
