#pragma once

#include <quillory/store/Statement.h>

#include <chrono>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// Pages of 16 KB in the log, from which on a commit carries it over into the file.
inline constexpr int kCheckpointPages = 1000;

// How long to wait for another process that is writing.
inline constexpr std::chrono::milliseconds kBusyTimeout{10000};

// Why a store can't be written, or made where there is none, with its name; empty if it can.
std::string StoreObstacle(const std::string& path);

// A connection to the store's file, an SQLite database in WAL mode. A transaction that has been
// committed is on the disk: neither the end of the process nor that of the power undoes it.
// Everything that fails throws FileError, which names the file and the reason.
class Database {
public:
    // Opens the file, or makes it and its folder. `steps` lead from an empty database to the form
    // that the program knows, one after the other; an older file is brought up to it. A file that
    // is no store, can't be written, or has a form beyond these steps is left alone.
    Database(const std::string& path, std::span<const char* const> steps,
             std::chrono::milliseconds busyTimeout = kBusyTimeout);

    Statement Prepare(std::string_view sql) const;
    // Runs statements, separated by semicolons, that give no rows.
    void Execute(const std::string& sql) const;

    // As kCheckpointPages, from now on.
    void SetCheckpointPages(int pages) const;

    // Of the row that was added last.
    std::int64_t LastRowId() const;
    // Rows that the last statement added, changed or deleted.
    int Changes() const;

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

// Changes that become real together in Commit, or not at all. Only one process at a time has one.
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
