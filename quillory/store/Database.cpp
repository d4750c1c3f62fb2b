#include <quillory/faults/Errors.h>
#include <quillory/store/Database.h>
#include <quillory/store/SqliteFailure.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sqlite3.h>
#include <thread>
#include <unistd.h>

namespace quillory {
namespace {

constexpr std::int64_t kApplicationId = 0x7175696C;  // "quil", in the file's head

// Large pages and a large cache, since records come by the hundred thousand.
constexpr const char* kSettings =
    "PRAGMA page_size = 16384; PRAGMA cache_size = -131072;"
    "PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL";

void MakeFolderFor(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    std::error_code error;
    if (!folder.empty()) std::filesystem::create_directories(folder, error);
    if (error) throw FileError(folder.string() + ": can't be made: " + error.message());
}

bool CanWrite(const std::string& path) {
    return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

}  // namespace

// An open store has files beside it, so its folder must be writable, too.
std::string StoreObstacle(const std::string& path) {
    std::error_code unknown;
    const bool exists = std::filesystem::exists(path, unknown);
    const std::string folder = std::filesystem::absolute(path).parent_path().string();
    if (exists && !CanWrite(path)) return path + ": can't be written: " + std::strerror(errno);
    if (CanWrite(folder)) return {};
    const int reason = errno;
    return path + (exists ? ": its folder can't be written: " : ": can't be made: ") +
           std::strerror(reason);
}

void Database::Closer::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

Database::Database(const std::string& path, std::span<const char* const> steps,
                   std::chrono::milliseconds busyTimeout)
    : path_(path) {
    MakeFolderFor(path);
    Open();
    sqlite3_busy_timeout(connection_.get(), static_cast<int>(busyTimeout.count()));
    CheckIsStore(steps.size());
    Execute(kSettings);
    UseLog(busyTimeout);
    Migrate(steps);
}

void Database::Open() {
    const std::string obstacle = StoreObstacle(path_);
    if (!obstacle.empty()) throw FileError(obstacle);
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(path_.c_str(), &connection,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    connection_.reset(connection);
    if (result != SQLITE_OK) ThrowSqliteFailure(connection, path_);
    sqlite3_extended_result_codes(connection, 1);
}

// Only reads, so that a file of another program stays as it is. It reads in one transaction, since
// another process may be making the store.
void Database::CheckIsStore(std::size_t knownVersion) const {
    Execute("BEGIN");
    const std::int64_t version = NumberOf("PRAGMA user_version");
    const std::int64_t application = NumberOf("PRAGMA application_id");
    const bool isEmpty = NumberOf("SELECT count(*) FROM sqlite_schema") == 0;
    const bool isStrange =
        NumberOf("SELECT count(*) FROM sqlite_schema WHERE type NOT IN ('table', 'index')") != 0;
    Execute("COMMIT");
    if (application != kApplicationId && !isEmpty) {
        throw FileError(path_ + ": is a database, but not a store of quillory");
    }
    if (version > static_cast<std::int64_t>(knownVersion)) {
        throw FileError(path_ + ": was written by a newer quillory (form " +
                        std::to_string(version) + "; this one knows up to " +
                        std::to_string(knownVersion) + ")");
    }
    // What is read from a view, or done by a trigger, is not what a store holds.
    if (isStrange) {
        throw FileError(path_ + ": has views or triggers, which no store of quillory has");
    }
}

// SQLite itself does not wait here when several processes make the same store.
void Database::UseLog(std::chrono::milliseconds busyTimeout) const {
    constexpr std::chrono::milliseconds kPause{5};
    const auto end = std::chrono::steady_clock::now() + busyTimeout;
    for (;;) {
        try {
            Prepare("PRAGMA journal_mode = WAL").Run();
            return;
        } catch (const StoreBusy&) {
            if (std::chrono::steady_clock::now() >= end) throw;
        }
        std::this_thread::sleep_for(kPause);
    }
}

void Database::Migrate(std::span<const char* const> steps) const {
    const auto wanted = static_cast<std::int64_t>(steps.size());
    if (NumberOf("PRAGMA user_version") == wanted) return;
    Transaction transaction(*this);
    // Another process may have done it in the meantime.
    auto version = static_cast<std::size_t>(NumberOf("PRAGMA user_version"));
    while (version < steps.size()) Execute(steps[version++]);
    Execute("PRAGMA application_id = " + std::to_string(kApplicationId) +
            "; PRAGMA user_version = " + std::to_string(version));
    transaction.Commit();
}

Statement Database::Prepare(std::string_view sql) const {
    return {connection_.get(), path_, sql};
}

void Database::Execute(const std::string& sql) const {
    const int result = sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) ThrowSqliteFailure(connection_.get(), path_);
}

std::int64_t Database::NumberOf(std::string_view sql) const {
    Statement statement = Prepare(sql);
    return statement.Step() ? statement.Number(0) : 0;
}

void Database::SetCheckpointPages(int pages) const {
    sqlite3_wal_autocheckpoint(connection_.get(), pages);
}

std::int64_t Database::LastRowId() const {
    return sqlite3_last_insert_rowid(connection_.get());
}

int Database::Changes() const {
    return sqlite3_changes(connection_.get());
}

Transaction::Transaction(const Database& database) : database_(database) {
    database_.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!open_) return;
    try {
        database_.Execute("ROLLBACK");
    } catch (const FileError&) {  // SQLite has rolled back by itself
        open_ = false;
    }
}

void Transaction::Commit() {
    database_.Execute("COMMIT");
    open_ = false;
}

}  // namespace quillory
