#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/jobs/ExtractFiles.h>

#include <cstdint>
#include <memory>
#include <string>

namespace quillory {

enum TableFormat : std::int32_t { kTableByName, kTableTsv, kTableCsv, kTableJsonl };

struct TableOptions {
    std::string output = "-";
    TableFormat format = kTableByName;  // by the name of the output, or TSV
    std::string separator = "; ";       // between the values of one cell
    bool isRowEach = false;             // a row for each value, with none joined
    bool hasHeader = true;              // of TSV and CSV
};

// Writes tables: rows of cells, quoted where their text calls for it (RFC 4180; tabs in the place
// of commas for TSV), or a line of JSON for each row. Of records with several values in a column,
// a JSON line has an array of all, whatever their number; in rows for each value, a column of one
// value has it in each of them. Throws FileError if the output can't be opened.
std::unique_ptr<ValueTable> MakeValueTable(const TableOptions& options);

}  // namespace quillory
