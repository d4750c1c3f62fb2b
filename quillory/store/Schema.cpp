#include <quillory/store/HomeFolder.h>
#include <quillory/store/Schema.h>

#include <array>
#include <filesystem>

namespace quillory {
namespace {

// No ID is given twice in either table. Times are seconds since 1970 UTC.

// Workforms that the user has made; IDs below 100 are those of the standard ones. A row without a
// block only keeps an ID for a name.
constexpr const char* kWorkforms = R"(
CREATE TABLE workforms (
    id      INTEGER PRIMARY KEY AUTOINCREMENT CHECK (id BETWEEN 100 AND 2147483647),
    name    BLOB NOT NULL UNIQUE,
    state   INTEGER NOT NULL,
    created INTEGER NOT NULL,
    changed INTEGER NOT NULL,
    crc     INTEGER,
    block   BLOB
) STRICT;
INSERT INTO sqlite_sequence (name, seq) VALUES ('workforms', 99);
)";

// Records in ISO 2709. The texts in the other columns are taken from the record, in UTF-8;
// title_key is the beginning of the title, folded.
constexpr const char* kRecords = R"(
CREATE TABLE records (
    id             INTEGER PRIMARY KEY AUTOINCREMENT,
    control_number TEXT NOT NULL,
    title          TEXT NOT NULL,
    title_key      TEXT NOT NULL,
    type           TEXT NOT NULL,
    added          INTEGER NOT NULL,
    changed        INTEGER NOT NULL,
    workform       INTEGER REFERENCES workforms (id) ON DELETE SET NULL,
    bytes          BLOB NOT NULL
) STRICT;
CREATE INDEX records_control_number ON records (control_number);
CREATE INDEX records_title ON records (title_key);
CREATE INDEX records_workform ON records (workform) WHERE workform IS NOT NULL;
)";

// What records were before they were changed, the oldest first. Changes that were made together
// have one number. The columns from control_number on are those of the record.
constexpr const char* kHistory = R"(
CREATE TABLE record_history (
    id             INTEGER PRIMARY KEY AUTOINCREMENT,
    record         INTEGER NOT NULL REFERENCES records (id) ON DELETE CASCADE,
    edit           INTEGER NOT NULL,
    change         TEXT NOT NULL,
    replaced       INTEGER NOT NULL,
    control_number TEXT NOT NULL,
    title          TEXT NOT NULL,
    title_key      TEXT NOT NULL,
    type           TEXT NOT NULL,
    bytes          BLOB NOT NULL
) STRICT;
CREATE INDEX record_history_record ON record_history (record);
CREATE INDEX record_history_edit ON record_history (edit);
)";

constexpr std::array<const char*, 3> kSteps{kWorkforms, kRecords, kHistory};

}  // namespace

std::span<const char* const> SchemaSteps() {
    return kSteps;
}

std::string StorePath() {
    return (HomeFolder() / "quillory.db").string();
}

Database OpenStore(const std::string& path) {
    return {path, SchemaSteps()};
}

std::optional<Database> OpenStoreIfThere(std::string& obstacle, const std::string& path) {
    obstacle.clear();
    std::error_code error;
    const auto kind = std::filesystem::status(path, error).type();
    if (kind == std::filesystem::file_type::not_found) return std::nullopt;
    obstacle = error ? path + ": can't be looked at: " + error.message() : StoreObstacle(path);
    if (!obstacle.empty()) return std::nullopt;
    return OpenStore(path);
}

}  // namespace quillory
