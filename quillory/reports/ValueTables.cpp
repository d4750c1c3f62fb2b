#include <quillory/reports/ValueTables.h>
#include <quillory/text/JsonWriter.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

TableFormat FormatOfTable(const TableOptions& options) {
    if (options.format != kTableByName) return options.format;
    std::string_view name = options.output;
    if (name.ends_with(".gz")) name.remove_suffix(3);
    if (name.ends_with(".csv")) return kTableCsv;
    const bool isJson = name.ends_with(".jsonl") || name.ends_with(".ndjson");
    return isJson ? kTableJsonl : kTableTsv;
}

// The value of a column in one of the rows that a record has.
const std::string* ValueIn(const std::vector<std::string>& values, std::size_t row) {
    if (values.size() == 1) return &values.front();
    return row < values.size() ? &values[row] : nullptr;
}

// Calls `take(row)` for each row that a record has if each value has one.
template <class Take>
void ForEachRow(const TableValues& values, Take&& take) {
    std::size_t rows = 1;
    for (const auto& column : values) rows = std::max(rows, column.size());
    for (std::size_t row = 0; row < rows; ++row) take(row);
}

class TextTable : public ValueTable {
public:
    TextTable(const TableOptions& options, char divider)
        : output_(options.output), options_(options), divider_(divider) {}

    void Begin(const TableColumns& columns) override {
        if (!options_.hasHeader) return;
        for (const std::string& column : columns) AddCell(column);
        EndRow();
    }
    void TakeRecord(const TableValues& values) override {
        if (!options_.isRowEach) {
            for (const auto& column : values) AddCell(Joined(column));
            EndRow();
            return;
        }
        ForEachRow(values, [&](std::size_t row) {
            for (const auto& column : values) {
                const std::string* value = ValueIn(column, row);
                AddCell(value == nullptr ? "" : *value);
            }
            EndRow();
        });
    }
    void Finish() override { output_.Finish(); }

private:
    std::string Joined(const std::vector<std::string>& values) const {
        std::string text;
        for (const std::string& value : values) {
            if (&value != &values.front()) text += options_.separator;
            text += value;
        }
        return text;
    }

    // Tools that know only tabs and line ends show other quotation marks as they are.
    bool NeedsQuotes(std::string_view text) const {
        const bool isCsv = divider_ == ',';
        return text.find_first_of("\r\n") != text.npos || text.find(divider_) != text.npos ||
               (isCsv ? text.find('"') != text.npos : text.starts_with('"'));
    }

    void AddCell(std::string_view text) {
        if (!isFirst_) row_ += divider_;
        isFirst_ = false;
        if (!NeedsQuotes(text)) {
            row_ += text;
            return;
        }
        row_ += '"';
        for (const char c : text) {
            if (c == '"') row_ += '"';
            row_ += c;
        }
        row_ += '"';
    }

    void EndRow() {
        row_ += '\n';
        output_.Write(row_);
        row_.clear();
        isFirst_ = true;
    }

    Output output_;
    TableOptions options_;
    char divider_;
    std::string row_;
    bool isFirst_ = true;
};

class JsonTable : public ValueTable {
public:
    explicit JsonTable(const TableOptions& options)
        : output_(options.output), isRowEach_(options.isRowEach) {}

    void Begin(const TableColumns& columns) override { columns_ = columns; }
    void TakeRecord(const TableValues& values) override {
        if (!isRowEach_) {
            WriteRow([&](std::size_t i, JsonWriter& json) { json.Value(values[i]); });
            return;
        }
        ForEachRow(values, [&](std::size_t row) {
            WriteRow([&](std::size_t i, JsonWriter& json) {
                const std::string* value = ValueIn(values[i], row);
                value == nullptr ? json.Null() : json.Value(*value);
            });
        });
    }
    void Finish() override { output_.Finish(); }

private:
    template <class WriteValue>
    void WriteRow(WriteValue&& writeValue) {
        line_.clear();
        JsonWriter json(line_, unused_);
        json.BeginObject();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            json.Name(columns_[i]);
            writeValue(i, json);
        }
        json.EndObject();
        line_ += '\n';
        output_.Write(line_);
    }

    Output output_;
    bool isRowEach_;
    TableColumns columns_;
    std::string line_;
    Losses unused_;  // values are UTF-8 already
};

}  // namespace

std::unique_ptr<ValueTable> MakeValueTable(const TableOptions& options) {
    switch (FormatOfTable(options)) {
        case kTableJsonl:
            return std::make_unique<JsonTable>(options);
        case kTableCsv:
            return std::make_unique<TextTable>(options, ',');
        default:
            return std::make_unique<TextTable>(options, '\t');
    }
}

}  // namespace quillory
