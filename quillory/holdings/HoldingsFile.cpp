#include <quillory/exchange/Input.h>
#include <quillory/exchange/TextPlace.h>
#include <quillory/holdings/HoldingsFile.h>
#include <quillory/holdings/HoldingsJson.h>
#include <quillory/holdings/Trimmed.h>
#include <quillory/text/Charset.h>

#include <algorithm>
#include <memory>
#include <tuple>

namespace quillory {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kControlNumber = "001";
constexpr std::string_view kRecordNumber = "record";

std::string ReadAll(const std::string& path) {
    constexpr std::size_t kChunk = 1 << 16;
    Input input(path);
    std::string text;
    for (;;) {
        const std::string_view chunk = input.Peek(kChunk);
        if (chunk.empty()) return text;
        text += chunk;
        input.Skip(chunk.size());
    }
}

bool IsKey(std::string_view name) {
    return name == kControlNumber || name == kRecordNumber;
}

// Such as "001 zs0001" or "record 1".
std::string Key(std::string_view name, std::string_view value) {
    return std::string(name) + " " + std::string(value);
}

bool IsRecordNumber(std::string_view text) {
    return !text.empty() && text[0] != '0' && text.find_first_not_of("0123456789") == text.npos;
}

std::string Hint(const HoldingsSystem& system) {
    return system.HasElements() ? ", nor a place in its fields"
                                : ", which has places such as 852$h";
}

bool HasControls(std::string_view text) {
    return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

}  // namespace

HoldingsFile::HoldingsFile(const std::string& path, const HoldingsSystem& system)
    : name_(path), system_(system), text_(ReadAll(path)), rest_(text_) {
    if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
    isJson_ = rest_.starts_with('{');
    if (rest_.empty()) Refuse("an empty file");
    if (rest_.starts_with('[')) Refuse("a JSON array; wanted is one object a line");
    while (!rest_.empty()) {
        const std::string_view line = TakeLine();
        if (Trimmed(line).empty()) continue;
        if (const std::size_t at = FindInvalidUtf8(line); at != line.npos) {
            RefuseAt(line.substr(0, at), "not in UTF-8");
        }
        if (!isJson_ && columns_.empty()) {
            ReadHeader(line);
        } else {
            ReadRow(line);
        }
    }
    std::ranges::sort(rows_, {}, [](const Row& row) { return std::tie(row.key, row.line); });
}

std::string_view HoldingsFile::TakeLine() {
    ++line_;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string HoldingsFile::LineText() const {
    return name_ + ": line " + std::to_string(std::max<std::uint64_t>(line_, 1));
}

void HoldingsFile::Refuse(const std::string& reason) const {
    throw FileError(LineText() + ": " + reason);
}

void HoldingsFile::RefuseAt(std::string_view before, const std::string& reason) const {
    const std::uint64_t column = TextPlace().After(before).column;
    throw FileError(LineText() + ", column " + std::to_string(column) + ": " + reason);
}

void HoldingsFile::ReadHeader(std::string_view line) {
    std::size_t keys = 0;
    for (bool more = true; more;) {
        const std::size_t end = std::min(line.find('\t'), line.size());
        columns_.emplace_back(Trimmed(line.substr(0, end)));
        const std::string& name = columns_.back();
        if (IsKey(name)) {
            ++keys;
        } else if (!name.empty()) {
            ColumnOf(name);
        }
        more = end < line.size();
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    if (keys != 1) Refuse("one column must be the key, 001 or record");
}

// Each line is read twice: here to be checked, and again when its record comes.
void HoldingsFile::ReadRow(std::string_view line) {
    Cells cells = CellsOf(line);
    Row row{TakeKey(cells), line_, line, false};
    if (cells.empty()) Refuse("no value for " + row.key);
    zorby::CHoldingsDataRecord unused(system_.id);
    AddCopy(cells, unused);
    rows_.push_back(std::move(row));
}

HoldingsFile::Cells HoldingsFile::CellsOf(std::string_view line) const {
    if (!isJson_) return CellsOfTsv(line);
    Cells cells;
    const auto fault = ReadHoldingsObject(line, [&](std::string name, std::string value) {
        cells.push_back({std::move(name), std::move(value)});
    });
    if (!fault) return cells;
    if (!fault->at) Refuse(fault->reason);
    RefuseAt(line.substr(0, *fault->at), fault->reason);
}

HoldingsFile::Cells HoldingsFile::CellsOfTsv(std::string_view line) const {
    Cells cells;
    std::size_t start = 0;
    for (std::size_t column = 0; start <= line.size(); ++column) {
        const std::size_t end = std::min(line.find('\t', start), line.size());
        const std::string_view value = Trimmed(line.substr(start, end - start));
        if (!value.empty()) {
            const std::string_view before = line.substr(0, start);
            if (column >= columns_.size()) RefuseAt(before, "more cells than columns");
            if (columns_[column].empty()) RefuseAt(before, "a value in a column without a name");
            cells.push_back({columns_[column], std::string(value)});
        }
        start = end + 1;
    }
    return cells;
}

std::string HoldingsFile::TakeKey(Cells& cells) {
    std::string key;
    for (const Cell& cell : cells) {
        if (!IsKey(cell.name)) continue;
        if (!key.empty()) Refuse("more than one key");
        key = Key(cell.name, cell.value);
        if (cell.name == kControlNumber) continue;
        if (!IsRecordNumber(cell.value)) Refuse("\"" + cell.value + "\" is no number of a record");
        hasRecordNumbers_ = true;
    }
    if (key.empty()) Refuse("no key (001 or record)");
    std::erase_if(cells, [](const Cell& cell) { return IsKey(cell.name); });
    return key;
}

const HoldingsColumn& HoldingsFile::ColumnOf(const std::string& name) {
    if (const auto known = found_.find(name); known != found_.end()) return known->second;
    const auto column = FindColumn(system_, name);
    if (!column) {
        Refuse("\"" + name + "\" is no holdings element of " + system_.name + Hint(system_));
    }
    return found_[name] = *column;
}

void HoldingsFile::AddCopy(const Cells& cells, zorby::CHoldingsDataRecord& copy) {
    for (const auto& [name, value] : cells) {
        const HoldingsColumn& column = ColumnOf(name);
        if (HasControls(value)) Refuse(name + ": a control character");
        if (!AddValue(column, value, copy)) Refuse(name + ": no room for a further value");
    }
}

bool HoldingsFile::AddCopiesOf(const std::string& key, zorby::CHoldingsDataRecordList& copies) {
    const int before = copies.GetSize();
    auto row = std::ranges::lower_bound(rows_, key, {}, &Row::key);
    for (; row != rows_.end() && row->key == key; ++row) {
        Cells cells = CellsOf(row->text);
        TakeKey(cells);
        AddCopy(cells, *copies.AddEmptyAtEnd(system_.id));
        row->used = true;
    }
    return copies.GetSize() > before;
}

bool HoldingsFile::AddCopies(std::string_view controlNumber, std::uint64_t recordNumber,
                             zorby::CHoldingsDataRecordList& copies) {
    const bool byControlNumber =
        !controlNumber.empty() && AddCopiesOf(Key(kControlNumber, Trimmed(controlNumber)), copies);
    const bool byNumber =
        hasRecordNumbers_ && AddCopiesOf(Key(kRecordNumber, std::to_string(recordNumber)), copies);
    return byControlNumber || byNumber;
}

void HoldingsFile::TellUnused(
    const std::function<void(std::uint64_t line, const std::string& key)>& tell) const {
    std::vector<const Row*> unused;
    for (const Row& row : rows_) {
        if (!row.used) unused.push_back(&row);
    }
    std::ranges::sort(unused, {}, &Row::line);
    for (const Row* row : unused) tell(row->line, row->key);
}

}  // namespace quillory
