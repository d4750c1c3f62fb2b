#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/faults/Fault.h>
#include <quillory/holdings/HoldingsColumn.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/copies/HoldingsDataRecordList.h>

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A file of copies, a line each, in UTF-8, in one of two forms.
//
// TSV: the first line names the columns, divided by tabs. One of them is the key: "001", the
// control number of the record to which the copy belongs, or "record", the number of that record in
// the file of records, from 1. The others are named as FindColumn reads them. An empty cell gives
// no value, and a column without a name holds none.
//
// JSON Lines, known by a first byte "{": an object a line, whose members are named as the columns
// are. A value is a text, a whole number, a list of those, or null for none.
//
// A line without a key or without a value is an error; an empty line is passed over. The file is
// held in memory, in up to twice its size and about 80 bytes for each line, and with another 40
// bytes for each while it is read. Texts come out in UTF-8.
class HoldingsFile {
public:
    // A line that no record took.
    struct UnusedLine {
        std::uint64_t line = 0;
        std::string key;            // such as "001 zs0001" or "record 1"
        bool isPassedOver = false;  // there is such a record, but it was not asked for
    };
    // What is odd about a line, which is carried as it stands.
    struct Doubt {
        std::uint64_t line = 0;
        Fault fault;
    };

    // Reads and checks the whole file. Throws FileError, which names the file, the line and, by
    // name or number, the column.
    HoldingsFile(const std::string& path, const HoldingsSystem& system,
                 std::uint64_t most = kMostHeld);

    const std::string& Name() const { return name_; }
    // Whether any key is a number of a record.
    bool HasRecordNumbers() const { return hasRecordNumbers_; }
    // Copies with several bar codes, and bar codes of several copies, in the order of the file.
    const std::vector<Doubt>& Doubts() const { return doubts_; }
    // Appends the copies of a record in the order of the file. False if there are none. Several
    // threads may ask at a time.
    bool AddCopies(std::string_view controlNumber, std::uint64_t recordNumber,
                   zorby::CHoldingsDataRecordList& copies);
    // The record is not asked for, and takes no copies. Several threads may say so at a time.
    void PassOver(std::string_view controlNumber, std::uint64_t recordNumber);
    // The lines that no record has taken so far, in the order of the file.
    std::vector<UnusedLine> UnusedLines() const;

private:
    struct Row {
        std::string key;
        std::uint64_t line = 0;
        std::string_view text;
        bool isUsed = false;
        bool isPassedOver = false;
    };
    struct Column {
        HoldingsColumn column;
        bool isBarCode = false;
    };
    struct BarCode {
        std::string text;
        std::uint64_t line = 0;
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
    const Column& ColumnOf(const std::string& name);
    bool IsForBarCodes(const HoldingsColumn& column) const;
    void AddCopy(const Cells& cells, zorby::CHoldingsDataRecord& copy);
    void TakeBarCodes(const Cells& cells);
    void FindSharedBarCodes();
    std::span<Row> RowsOf(const std::string& key);
    bool AddCopiesOf(const std::string& key, zorby::CHoldingsDataRecordList& copies);
    std::string LineText() const;
    // For a fault of the line in hand.
    [[noreturn]] void Refuse(const Fault& fault) const;
    // The same; the fault comes after the first `offset` bytes of `line`.
    [[noreturn]] void RefuseAt(std::string_view line, std::size_t offset, const Fault& fault) const;

    std::string name_;
    const HoldingsSystem& system_;
    std::string text_;
    std::string_view rest_;
    std::uint64_t line_ = 0;
    bool isJson_ = false;
    bool hasRecordNumbers_ = false;
    std::vector<std::string> columns_;  // of TSV
    std::map<std::string, Column> found_;
    std::vector<Row> rows_;         // by key, then line
    std::deque<BarCode> barCodes_;  // while the file is read
    std::vector<Doubt> doubts_;
    std::mutex asked_;
};

}  // namespace quillory
