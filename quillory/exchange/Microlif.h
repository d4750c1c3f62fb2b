#pragma once

#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordWriter.h>
#include <zorby/record/Pmarc.h>

#include <deque>
#include <string>

namespace quillory {

// Old MicroLIF text: a field a line, with "^`" at the end of a record. Line ends may be CR LF, LF
// or CR, and the length in the head may be wrong. A file may begin with a header line, which has no
// field terminator. Tags may have letters.
class MicrolifReader : public LineReader {
public:
    explicit MicrolifReader(Input& input, bool lenient = false) : LineReader(input, lenient) {}

    static bool Fits(std::string_view head);

protected:
    std::size_t EndOfRecord(std::string_view window) const override;
    std::size_t StrayBytes(std::string_view block, FaultCode& what) override;
    void Read(std::string_view block, Item& item) override;

private:
    FaultCode ReadLine(std::string_view line, Record& record);

    zorby::CPmarc pmarc_;            // the line in hand
    std::deque<std::string> lines_;  // of the record, as the library has them
};

// Appends a record as old MicroLIF, without fields that it can't carry.
void AppendMicrolif(const Record& record, std::string& text);

// Bytes of a field that a reader of the form would not give back: underscores in a field with
// subfields, delimiters in another one, line ends, and the signs for the ends of fields and records
// at its end.
std::string MicrolifLosses(const zorby::CommFormatField& field);

class MicrolifWriter : public RecordWriter {
public:
    explicit MicrolifWriter(Output& output) : output_(output) {}
    WriteResult Write(const Record& record, Losses& losses) override;

private:
    Output& output_;
    std::string text_;
};

}  // namespace quillory
