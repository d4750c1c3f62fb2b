#pragma once

#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordWriter.h>
#include <zorby/record/Pmarc.h>

#include <string>

namespace quillory {

// Old MicroLIF text: a field a line, with "^`" at the end of a record. Line ends may be CR LF, LF
// or CR, and the length in the head may be wrong.
class MicrolifReader : public LineReader {
public:
    explicit MicrolifReader(Input& input) : LineReader(input) {}

    static bool Fits(std::string_view head);

protected:
    std::size_t EndOfRecord(std::string_view window) const override;
    std::size_t StrayBytes(std::string_view block, FaultCode& what) override;
    std::optional<ItemFault> Read(std::string_view block, Record& record) override;

private:
    std::optional<ItemFault> TakeFields(Record& record);

    zorby::CPmarc pmarc_;
    std::string leader_;
};

// Appends a record as old MicroLIF.
void AppendMicrolif(const Record& record, std::string& text);

// Bytes of a field that a reader of the form would not give back: letters of its tag, underscores
// in a data field, delimiters in a control field, line ends, and the signs for the ends of fields
// and records at its end.
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
