#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace quillory {

// One prepared statement of SQL. Failures throw FileError with the name of the database.
class Statement {
public:
    // `name` is the database's file, for messages.
    Statement(sqlite3* connection, const std::string& name, std::string_view sql);

    // Parameters are counted from 1. Texts and bytes are not copied; they must stay until the
    // statement has run.
    Statement& Bind(int parameter, std::int64_t number);
    Statement& BindText(int parameter, std::string_view utf8);
    Statement& BindBytes(int parameter, std::string_view bytes);
    Statement& BindNull(int parameter);

    // True if there is a next row, which Number and Bytes then read. Else the statement can be
    // bound and run again.
    bool Step();
    // Runs the statement to its end and ignores its rows.
    void Run();

    // Columns are counted from 0. The views hold until the next Step.
    std::int64_t Number(int column) const;
    std::string_view Bytes(int column) const;  // of a blob or a text; empty for null

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    void Check(int result) const;
    void PrepareToBind();

    std::string name_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
    bool running_ = false;
};

}  // namespace quillory
