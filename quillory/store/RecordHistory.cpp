#include <quillory/store/Clock.h>
#include <quillory/store/RecordHistory.h>
#include <quillory/text/SearchText.h>

namespace quillory {
namespace {

constexpr std::string_view kKeep =
    "INSERT INTO record_history"
    " (record, edit, change, replaced, control_number, title, title_key, type, bytes)"
    " SELECT id, ?2, ?3, ?4, control_number, title, title_key, type, bytes"
    " FROM records WHERE id = ?1";
constexpr std::string_view kReplace =
    "UPDATE records SET control_number = ?2, title = ?3, title_key = ?4, type = ?5, bytes = ?6,"
    " changed = ?7 WHERE id = ?1";
constexpr std::string_view kPutBack =
    "UPDATE records SET (control_number, title, title_key, type, bytes, changed) ="
    " (SELECT control_number, title, title_key, type, bytes, ?2 FROM record_history WHERE id = ?1)"
    " WHERE id = (SELECT record FROM record_history WHERE id = ?1)";

}  // namespace

RecordHistory::RecordHistory(const Database& database)
    : database_(database), keep_(database.Prepare(kKeep)), replace_(database.Prepare(kReplace)) {}

std::int64_t RecordHistory::NextEdit() const {
    Statement last = database_.Prepare("SELECT coalesce(max(edit), 0) FROM record_history");
    return (last.Step() ? last.Number(0) : 0) + 1;
}

bool RecordHistory::Replace(std::int64_t id, const NewRecord& record, std::int64_t edit,
                            std::string_view change) {
    const std::int64_t now = SecondsNow();
    keep_.Bind(1, id).Bind(2, edit).BindText(3, change).Bind(4, now).Run();
    if (database_.Changes() == 0) return false;
    const std::string folded = Folded(record.summary.title);
    replace_.Bind(1, id)
        .BindText(2, record.summary.controlNumber)
        .BindText(3, record.summary.title)
        .BindText(4, TitleKeyOf(folded))
        .BindText(5, record.summary.type)
        .BindBytes(6, record.bytes)
        .Bind(7, now)
        .Run();
    return true;
}

std::vector<FormerRecord> RecordHistory::VersionsOf(std::int64_t id) const {
    Statement row = database_.Prepare(
        "SELECT edit, replaced, change, bytes FROM record_history WHERE record = ?"
        " ORDER BY id DESC");
    row.Bind(1, id);
    std::vector<FormerRecord> versions;
    while (row.Step()) {
        versions.push_back(
            {row.Number(0), row.Number(1), std::string(row.Bytes(2)), std::string(row.Bytes(3))});
    }
    return versions;
}

std::vector<std::int64_t> RecordHistory::RecordsOfLastEdit() const {
    Statement row = database_.Prepare(
        "SELECT record FROM record_history WHERE edit = (SELECT max(edit) FROM record_history)"
        " ORDER BY id");
    std::vector<std::int64_t> records;
    while (row.Step()) records.push_back(row.Number(0));
    return records;
}

bool RecordHistory::Undo(std::int64_t id) {
    Statement last = database_.Prepare("SELECT max(id) FROM record_history WHERE record = ?");
    const std::int64_t version = last.Bind(1, id).Step() ? last.Number(0) : 0;
    if (version == 0) return false;
    database_.Prepare(kPutBack).Bind(1, version).Bind(2, SecondsNow()).Run();
    database_.Prepare("DELETE FROM record_history WHERE id = ?").Bind(1, version).Run();
    return true;
}

}  // namespace quillory
