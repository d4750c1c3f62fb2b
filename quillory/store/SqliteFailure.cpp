#include <quillory/store/SqliteFailure.h>

#include <cstring>
#include <sqlite3.h>

namespace quillory {
namespace {

std::string SystemReason(sqlite3* connection) {
    const int code = sqlite3_system_errno(connection);
    return code == 0 ? std::string() : std::string(": ") + std::strerror(code);
}

int CodeOf(sqlite3* connection) {
    constexpr int kPrimaryCode = 0xFF;
    return sqlite3_errcode(connection) & kPrimaryCode;
}

std::string ReasonOf(sqlite3* connection) {
    switch (CodeOf(connection)) {
        case SQLITE_FULL:
            return "can't be written: the disk is full";
        case SQLITE_CANTOPEN:
            return "can't be opened" + SystemReason(connection);
        case SQLITE_READONLY:
            return "can't be written" + SystemReason(connection);
        case SQLITE_IOERR:
            return "can't be read or written" + SystemReason(connection);
        case SQLITE_NOTADB:
            return "is not a database";
        case SQLITE_CORRUPT:
            return "is damaged: " + std::string(sqlite3_errmsg(connection));
        default:
            return sqlite3_errmsg(connection);
    }
}

}  // namespace

void ThrowSqliteFailure(sqlite3* connection, const std::string& name) {
    if (CodeOf(connection) == SQLITE_BUSY) {
        throw StoreBusy(name + ": is in use by another program that does not finish");
    }
    throw FileError(name + ": " + ReasonOf(connection));
}

}  // namespace quillory
