#pragma once

#include <quillory/holdings/HoldingsColumn.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/copies/HoldingsDataRecordList.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A file of copies, a line each, in UTF-8, in one of two forms.
//
// TSV: the first line names the columns, divided by tabs. One of them is the key, "001" for the
// control number of the record that the copy is of, or "record" for its number in the file of
// records, from 1. The others are as FindColumn has them; an empty cell is no value, and a column
// without a name has none.
//
// JSON Lines, told by a first byte "{": an object a line, whose members are named as the columns
// are. A value is a text, a whole number, a list of those, or null for none.
//
// Lines without any key or value are errors; empty lines are passed over. The file is held in
// memory, in up to twice its size and about 80 bytes for each line. Texts come out in UTF-8.
class HoldingsFile {
public:
    // Reads and checks the whole file. Throws FileError, which names file, line and the column
    // by name or number.
    HoldingsFile(const std::string& path, const HoldingsSystem& system);

    const std::string& Name() const { return name_; }
    // Whether any key is a number of a record.
    bool HasRecordNumbers() const { return hasRecordNumbers_; }
    // Appends the copies of a record in the order of the file. False if there are none.
    bool AddCopies(std::string_view controlNumber, std::uint64_t recordNumber,
                   zorby::CHoldingsDataRecordList& copies);
    // Tells of each line that no record took: its number and its key.
    void TellUnused(
        const std::function<void(std::uint64_t line, const std::string& key)>& tell) const;

private:
    struct Row {
        std::string key;  // such as "001 zs0001" or "record 1"
        std::uint64_t line = 0;
        std::string_view text;
        bool used = false;
    };
    struct Cell {
        std::string name;
        std::string value;
    };
    using Cells = std::vector<Cell>;

    std::string_view TakeLine();
    void ReadHeader(std::string_view line);
    void ReadRow(std::string_view line);
    Cells CellsOf(std::string_view line) const;
    Cells CellsOfTsv(std::string_view line) const;
    std::string TakeKey(Cells& cells);
    const HoldingsColumn& ColumnOf(const std::string& name);
    void AddCopy(const Cells& cells, zorby::CHoldingsDataRecord& copy);
    bool AddCopiesOf(const std::string& key, zorby::CHoldingsDataRecordList& copies);
    std::string LineText() const;
    [[noreturn]] void Refuse(const std::string& reason) const;
    // At the place in the line in hand that has this before it.
    [[noreturn]] void RefuseAt(std::string_view before, const std::string& reason) const;

    std::string name_;
    const HoldingsSystem& system_;
    std::string text_;
    std::string_view rest_;
    std::uint64_t line_ = 0;
    bool isJson_ = false;
    bool hasRecordNumbers_ = false;
    std::vector<std::string> columns_;  // of TSV
    std::map<std::string, HoldingsColumn> found_;
    std::vector<Row> rows_;  // by key, then line
};

}  // namespace quillory
