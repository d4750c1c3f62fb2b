#include <quillory/faults/Errors.h>
#include <quillory/store/SqliteFailure.h>
#include <quillory/store/Statement.h>

#include <sqlite3.h>

namespace quillory {
namespace {

// SQLite takes a null pointer for a null value, whatever the length.
const char* NeverNull(std::string_view bytes) {
    return bytes.data() == nullptr ? "" : bytes.data();
}

}  // namespace

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3* connection, const std::string& name, std::string_view sql)
    : name_(name) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()),
                                          &statement, nullptr);
    statement_.reset(statement);
    if (result != SQLITE_OK) ThrowSqliteFailure(connection, name_);
}

void Statement::Check(int result) const {
    if (result != SQLITE_OK) ThrowSqliteFailure(sqlite3_db_handle(statement_.get()), name_);
}

void Statement::PrepareToBind() {
    if (running_) sqlite3_reset(statement_.get());
    running_ = false;
}

Statement& Statement::Bind(int parameter, std::int64_t number) {
    PrepareToBind();
    Check(sqlite3_bind_int64(statement_.get(), parameter, number));
    return *this;
}

Statement& Statement::BindText(int parameter, std::string_view utf8) {
    PrepareToBind();
    Check(sqlite3_bind_text64(statement_.get(), parameter, NeverNull(utf8), utf8.size(),
                              SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

Statement& Statement::BindBytes(int parameter, std::string_view bytes) {
    PrepareToBind();
    Check(sqlite3_bind_blob64(statement_.get(), parameter, NeverNull(bytes), bytes.size(),
                              SQLITE_STATIC));
    return *this;
}

Statement& Statement::BindNull(int parameter) {
    PrepareToBind();
    Check(sqlite3_bind_null(statement_.get(), parameter));
    return *this;
}

bool Statement::Step() {
    running_ = true;
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) return true;
    running_ = false;
    if (result == SQLITE_DONE) {
        Check(sqlite3_reset(statement_.get()));
        return false;
    }
    try {
        Check(result);
    } catch (const FileError&) {
        sqlite3_reset(statement_.get());
        throw;
    }
    return false;
}

void Statement::Run() {
    while (Step()) {
    }
}

std::int64_t Statement::Number(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

std::string_view Statement::Bytes(int column) const {
    const void* bytes = sqlite3_column_blob(statement_.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return bytes == nullptr ? std::string_view()
                            : std::string_view(static_cast<const char*>(bytes), size);
}

}  // namespace quillory
