#pragma once

#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordWriter.h>
#include <zorby/record/Pmarc.h>

#include <string>

namespace quillory {

// Old MicroLIF text: one field a line, the record ended by "^`". Line ends may be CR LF, LF or CR,
// and the length in the head may be any.
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

// Signs of a field that the form does not give back: what is no digit in its tag, underscores of a
// data field, delimiters of a control field, line ends, and the ends of field and record at the
// end.
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
