#include <quillory/store/Clock.h>
#include <quillory/store/RecordStore.h>
#include <quillory/text/SearchText.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kInsert =
    "INSERT INTO records (control_number, title, title_key, type, workform, bytes, added, changed)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?7)";
constexpr std::string_view kRepeated =
    "SELECT count(*), min(id) FROM records AS late WHERE id BETWEEN ?1 AND ?2"
    " AND control_number <> '' AND EXISTS (SELECT 1 FROM records"
    " WHERE control_number = late.control_number AND id < late.id)";
constexpr std::string_view kSelect =
    "SELECT id, control_number, title, type, added, changed, workform, bytes FROM records";

void BindRecord(Statement& statement, const NewRecord& record, std::string_view titleKey) {
    const RecordSummary& summary = record.summary;
    statement.BindText(1, summary.controlNumber)
        .BindText(2, summary.title)
        .BindText(3, titleKey)
        .BindText(4, summary.type)
        .BindBytes(6, record.bytes)
        .Bind(7, SecondsNow());
    if (record.workform != 0) {
        statement.Bind(5, record.workform);
    } else {
        statement.BindNull(5);
    }
}

void ReadRow(const Statement& row, StoredRecord& record) {
    record.id = row.Number(0);
    record.summary.controlNumber = row.Bytes(1);
    record.summary.title = row.Bytes(2);
    record.summary.type = row.Bytes(3);
    record.added = row.Number(4);
    record.changed = row.Number(5);
    record.workform = static_cast<int>(row.Number(6));
    record.bytes = row.Bytes(7);
}

// Sorts after all texts that begin with `prefix`, since UTF-8 never has the byte 0xFF.
std::string EndOf(std::string_view prefix) {
    return std::string(prefix) + '\xFF';
}

// In a search, the plus sign keeps SQLite from using the index of the IDs.
std::string SqlFor(const RecordSelection& selection) {
    const bool isSearch = selection.controlNumber || selection.titlePrefix;
    std::string sql(kSelect);
    sql += isSearch ? " WHERE +id > ?1" : " WHERE id > ?1";
    if (selection.controlNumber) sql += " AND control_number = ?2";
    if (selection.titlePrefix) sql += " AND title_key >= ?3 AND title_key < ?4";
    return sql + (selection.titlePrefix ? " ORDER BY title_key, id" : " ORDER BY id");
}

}  // namespace

RecordStore::RecordStore(const Database& database)
    : database_(database), insert_(database.Prepare(kInsert)) {}

std::int64_t RecordStore::Add(const NewRecord& record) {
    const std::string folded = Folded(record.summary.title);
    BindRecord(insert_, record, TitleKeyOf(folded));
    insert_.Run();
    return database_.LastRowId();
}

IdRange RecordStore::AddAll(std::span<const NewRecord> records) {
    Transaction transaction(database_);
    IdRange ids;
    ids.first = Add(records.front());
    ids.last = ids.first;
    for (const NewRecord& record : records.subspan(1)) ids.last = Add(record);
    transaction.Commit();
    return ids;
}

RepeatedNumbersFound RecordStore::FindRepeatedNumbers(IdRange ids) const {
    Statement row = database_.Prepare(kRepeated);
    if (!row.Bind(1, ids.first).Bind(2, ids.last).Step()) return {};
    return {static_cast<std::uint64_t>(row.Number(0)), row.Number(1)};
}

bool RecordStore::Delete(std::int64_t id) {
    database_.Prepare("DELETE FROM records WHERE id = ?").Bind(1, id).Run();
    return database_.Changes() > 0;
}

std::optional<StoredRecord> RecordStore::Find(std::int64_t id) const {
    Statement row = database_.Prepare(std::string(kSelect) + " WHERE id = ?");
    if (!row.Bind(1, id).Step()) return std::nullopt;
    StoredRecord record;
    ReadRow(row, record);
    return record;
}

void RecordStore::Walk(const RecordSelection& selection,
                       const std::function<bool(StoredRecord& record)>& take) const {
    Statement row = database_.Prepare(SqlFor(selection));
    row.Bind(1, selection.after);
    const std::string number = TidyText(selection.controlNumber.value_or(""));
    const std::string prefix = Folded(selection.titlePrefix.value_or(""));
    const std::string_view key = TitleKeyOf(prefix);
    const std::string end = EndOf(key);
    if (selection.controlNumber) row.BindText(2, number);
    if (selection.titlePrefix) row.BindText(3, key).BindText(4, end);
    const bool isBeyondKey = key.size() < prefix.size();
    StoredRecord record;
    while (row.Step()) {
        ReadRow(row, record);
        if (isBeyondKey && !Folded(record.summary.title).starts_with(prefix)) continue;
        if (!take(record)) return;
    }
}

std::int64_t RecordStore::Count() const {
    Statement count = database_.Prepare("SELECT count(*) FROM records");
    return count.Step() ? count.Number(0) : 0;
}

// Without an order, SQLite reads the smallest index, which is far less than all records.
std::vector<std::int64_t> RecordStore::Ids() const {
    std::vector<std::int64_t> ids;
    Statement row = database_.Prepare("SELECT id FROM records");
    while (row.Step()) ids.push_back(row.Number(0));
    std::ranges::sort(ids);
    return ids;
}

std::vector<std::int64_t> RecordStore::IdsAfter(std::int64_t id) const {
    std::vector<std::int64_t> ids;
    Statement row = database_.Prepare("SELECT id FROM records WHERE id > ? ORDER BY id");
    row.Bind(1, id);
    while (row.Step()) ids.push_back(row.Number(0));
    return ids;
}

}  // namespace quillory
