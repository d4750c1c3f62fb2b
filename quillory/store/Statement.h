#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace quillory {

// One statement of SQL, prepared. Everything that fails throws FileError with the database's name.
class Statement {
public:
    // `name` is the database's file, for messages.
    Statement(sqlite3* connection, const std::string& name, std::string_view sql);

    // Parameters are counted from 1. Texts and bytes are not copied: they have to stay until the
    // statement has run.
    Statement& Bind(int parameter, std::int64_t number);
    Statement& BindText(int parameter, std::string_view utf8);
    Statement& BindBytes(int parameter, std::string_view bytes);
    Statement& BindNull(int parameter);

    // True with the next row at hand. False, and ready to be bound and run again, without one.
    bool Step();
    // Runs the statement to its end, without looking at rows.
    void Run();

    // Columns of the row at hand are counted from 0. The views hold until the next Step.
    std::int64_t Number(int column) const;
    std::string_view Bytes(int column) const;  // of a text, too; empty for null

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
