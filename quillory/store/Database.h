#pragma once

#include <quillory/store/Statement.h>

#include <chrono>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// When the log has so many pages of 16 KB, the next commit carries them over into the file.
inline constexpr int kCheckpointPages = 1000;

// How long to wait for another process that is writing.
inline constexpr std::chrono::milliseconds kBusyTimeout{10000};

// Why a store can't be written, or created, with its name. Empty if it can.
std::string StoreObstacle(const std::string& path);

// A connection to the store's file, an SQLite database in WAL mode. A committed transaction is on
// the disk, and neither the end of the process nor a loss of power undoes it. Failures throw
// FileError, which names the file and the reason.
class Database {
public:
    // Opens the file, or makes it and its folder. `steps` lead from an empty database to the form
    // that the program knows, one after the other; an older file is brought up to that form. A file
    // that is not a store, can't be written, or has a form beyond these steps is left alone.
    Database(const std::string& path, std::span<const char* const> steps,
             std::chrono::milliseconds busyTimeout = kBusyTimeout);

    Statement Prepare(std::string_view sql) const;
    // Runs statements, separated by semicolons, that give no rows.
    void Execute(const std::string& sql) const;

    // Replaces kCheckpointPages from now on.
    void SetCheckpointPages(int pages) const;

    // Of the row that was added last.
    std::int64_t LastRowId() const;
    // Rows that the last statement added, changed or deleted.
    int Changes() const;

    // Another one after another connection has changed the store.
    std::int64_t Version() const { return NumberOf("PRAGMA data_version"); }

    const std::string& Path() const { return path_; }

private:
    struct Closer {
        void operator()(sqlite3* connection) const;
    };

    void Open();
    void CheckIsStore(std::size_t knownVersion) const;
    void UseLog(std::chrono::milliseconds busyTimeout) const;
    void Migrate(std::span<const char* const> steps) const;
    std::int64_t NumberOf(std::string_view sql) const;

    std::string path_;
    std::unique_ptr<sqlite3, Closer> connection_;
};

// Changes that Commit makes all together; without it, none is made. Only one process at a time has
// a transaction.
class Transaction {
public:
    explicit Transaction(const Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    const Database& database_;
    bool open_ = true;
};

}  // namespace quillory
