#include <quillory/exchange/Input.h>
#include <quillory/exchange/TextPlace.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/HoldingsFile.h>
#include <quillory/holdings/HoldingsJson.h>
#include <quillory/holdings/NextBarCode.h>
#include <quillory/text/Charset.h>
#include <quillory/text/NearestNames.h>
#include <quillory/text/QmText.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <tuple>

namespace quillory {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kControlNumber = "001";
constexpr std::string_view kRecordNumber = "record";

std::string ReadFile(const std::string& path, std::uint64_t most) {
    Input input(path);
    return ReadWhole(input, most, "--memory allows more");
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

bool HasControls(std::string_view text) {
    return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

}  // namespace

HoldingsFile::HoldingsFile(const std::string& path, const HoldingsSystem& system,
                           std::uint64_t most)
    : name_(path), system_(system), text_(ReadFile(path, most)), rest_(text_) {
    if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
    isJson_ = rest_.starts_with('{');
    if (rest_.empty()) Refuse({FaultCode::kEmptyFile});
    if (rest_.starts_with('[')) Refuse({FaultCode::kHoldingsJsonArray});
    while (!rest_.empty()) {
        const std::string_view line = TakeLine();
        if (Trimmed(line).empty()) continue;
        if (const std::size_t at = FindInvalidUtf8(line); at != line.npos) {
            RefuseAt(line, at, {FaultCode::kHoldingsNotUtf8});
        }
        if (!isJson_ && columns_.empty()) {
            ReadHeader(line);
        } else {
            ReadRow(line);
        }
    }
    FindSharedBarCodes();
    std::ranges::stable_sort(doubts_, {}, &Doubt::line);
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

void HoldingsFile::Refuse(const Fault& fault) const {
    throw FileError(LineText(), fault);
}

void HoldingsFile::RefuseAt(std::string_view line, std::size_t offset, const Fault& fault) const {
    const std::uint64_t column = TextPlace().After(line.substr(0, offset)).column;
    throw FileError(LineText() + ", column " + std::to_string(column), fault);
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
    if (keys != 1) Refuse({FaultCode::kHoldingsKeyColumn});
}

// Each line is read twice: here to be checked, and again when its record comes.
void HoldingsFile::ReadRow(std::string_view line) {
    Cells cells = CellsOf(line);
    Row row{TakeKey(cells), line_, line};
    if (cells.empty()) Refuse({FaultCode::kHoldingsNoValue, {}, row.key});
    zorby::CHoldingsDataRecord unused(system_.id);
    AddCopy(cells, unused);
    TakeBarCodes(cells);
    rows_.push_back(std::move(row));
}

HoldingsFile::Cells HoldingsFile::CellsOf(std::string_view line) const {
    if (!isJson_) return CellsOfTsv(line);
    Cells cells;
    const auto fault = ReadHoldingsObject(line, [&](std::string name, std::string value) {
        cells.push_back({std::move(name), std::move(value)});
    });
    if (!fault) return cells;
    if (!fault->offset) Refuse(fault->fault);
    RefuseAt(line, *fault->offset, fault->fault);
}

HoldingsFile::Cells HoldingsFile::CellsOfTsv(std::string_view line) const {
    Cells cells;
    std::size_t start = 0;
    for (std::size_t column = 0; start <= line.size(); ++column) {
        const std::size_t end = std::min(line.find('\t', start), line.size());
        const std::string_view value = Trimmed(line.substr(start, end - start));
        if (!value.empty()) {
            if (column >= columns_.size()) RefuseAt(line, start, {FaultCode::kHoldingsExtraCell});
            if (columns_[column].empty()) {
                RefuseAt(line, start, {FaultCode::kHoldingsUnnamedColumn});
            }
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
        if (!key.empty()) Refuse({FaultCode::kHoldingsSecondKey});
        key = Key(cell.name, cell.value);
        if (cell.name == kControlNumber) continue;
        if (!IsRecordNumber(cell.value)) {
            Refuse({FaultCode::kHoldingsNoRecordNumber, {}, cell.value});
        }
        hasRecordNumbers_ = true;
    }
    if (key.empty()) Refuse({FaultCode::kHoldingsNoKey});
    std::erase_if(cells, [](const Cell& cell) { return IsKey(cell.name); });
    return key;
}

// Whether a value is a bar code by its element or by where it comes to stand.
bool HoldingsFile::IsForBarCodes(const HoldingsColumn& column) const {
    if (!column.place.IsRecord()) return IsPlaceOfBarCode(column.place);
    zorby::CHoldingsDataRecord copy(system_.id);
    copy.Add(column.element, "x", 1, 0);
    return !copy.GetRecVBarCode().empty();
}

const HoldingsFile::Column& HoldingsFile::ColumnOf(const std::string& name) {
    if (const auto known = found_.find(name); known != found_.end()) return known->second;
    const auto column = FindColumn(system_, name);
    if (!column && system_.type == nullptr) {
        Refuse({FaultCode::kNoHoldingsSystem, {}, name, NamesOfHoldingsSystems()});
    }
    if (!column && system_.HasElements()) {
        const int count = system_.type->GetSize();
        std::vector<std::string> names;
        names.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            names.push_back(QmToUtf8(system_.type->GetAt(i)->GetName()));
        }
        Refuse({FaultCode::kNoHoldingsElement, {}, name, system_.name + PerhapsMeant(name, names)});
    }
    if (!column) Refuse({FaultCode::kNoHoldingsPlace, {}, name, system_.name});
    return found_[name] = {*column, IsForBarCodes(*column)};
}

void HoldingsFile::AddCopy(const Cells& cells, zorby::CHoldingsDataRecord& copy) {
    for (const auto& [name, value] : cells) {
        const HoldingsColumn& column = ColumnOf(name).column;
        if (HasControls(value)) Refuse({FaultCode::kHoldingsControlCharacter, {}, name});
        if (!AddValue(column, value, copy)) Refuse({FaultCode::kHoldingsNoRoom, {}, name});
    }
}

void HoldingsFile::TakeBarCodes(const Cells& cells) {
    const std::size_t before = barCodes_.size();
    for (const auto& [name, value] : cells) {
        const std::string_view text = Trimmed(value);
        if (ColumnOf(name).isBarCode && !text.empty()) {
            barCodes_.push_back({std::string(text), line_});
        }
    }
    const std::size_t count = barCodes_.size() - before;
    if (count <= 1) return;
    std::string all;
    for (std::size_t i = before; i < barCodes_.size(); ++i) {
        all.append(i == before ? "" : ", ").append(barCodes_[i].text);
    }
    doubts_.push_back({line_, {FaultCode::kHoldingsBarCodes, {}, all, std::to_string(count)}});
}

void HoldingsFile::FindSharedBarCodes() {
    std::ranges::sort(barCodes_, {},
                      [](const BarCode& one) { return std::tie(one.text, one.line); });
    const BarCode* first = nullptr;
    for (const BarCode& one : barCodes_) {
        if (first == nullptr || first->text != one.text) {
            first = &one;
        } else if (first->line != one.line) {
            doubts_.push_back({one.line,
                               {FaultCode::kHoldingsSharedBarCode,
                                {},
                                one.text,
                                "line " + std::to_string(first->line)}});
        }
    }
    barCodes_ = {};
}

std::span<HoldingsFile::Row> HoldingsFile::RowsOf(const std::string& key) {
    const auto first = std::ranges::lower_bound(rows_, key, {}, &Row::key);
    return {first, std::ranges::upper_bound(rows_, key, {}, &Row::key)};
}

bool HoldingsFile::AddCopiesOf(const std::string& key, zorby::CHoldingsDataRecordList& copies) {
    const std::span<Row> rows = RowsOf(key);
    for (Row& row : rows) {
        Cells cells = CellsOf(row.text);
        TakeKey(cells);
        AddCopy(cells, *copies.AddEmptyAtEnd(system_.id));
        row.isUsed = true;
    }
    return !rows.empty();
}

bool HoldingsFile::AddCopies(std::string_view controlNumber, std::uint64_t recordNumber,
                             zorby::CHoldingsDataRecordList& copies) {
    const std::lock_guard lock(asked_);
    const bool byControlNumber =
        !controlNumber.empty() && AddCopiesOf(Key(kControlNumber, Trimmed(controlNumber)), copies);
    const bool byNumber =
        hasRecordNumbers_ && AddCopiesOf(Key(kRecordNumber, std::to_string(recordNumber)), copies);
    return byControlNumber || byNumber;
}

void HoldingsFile::PassOver(std::string_view controlNumber, std::uint64_t recordNumber) {
    const std::lock_guard lock(asked_);
    for (const std::string& key : {Key(kControlNumber, Trimmed(controlNumber)),
                                   Key(kRecordNumber, std::to_string(recordNumber))}) {
        for (Row& row : RowsOf(key)) row.isPassedOver = true;
    }
}

std::vector<HoldingsFile::UnusedLine> HoldingsFile::UnusedLines() const {
    std::vector<UnusedLine> unused;
    for (const Row& row : rows_) {
        if (!row.isUsed) unused.push_back({row.line, row.key, row.isPassedOver});
    }
    std::ranges::sort(unused, {}, &UnusedLine::line);
    return unused;
}

}  // namespace quillory
