#pragma once

#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordWriter.h>

#include <string>

namespace quillory {

// The customary line form of MARC records: "=245  10$aTitle /$cName.", a blank line between
// records. A blank indicator, and a blank in a control field, is written as a backslash. Signs that
// the form uses stand in braces: {dollar}, {lcub}, {rcub}, {bsol} in control fields, and a control
// byte as two hexadecimal digits such as {0A}.
class MrkReader : public LineReader {
public:
    explicit MrkReader(Input& input) : LineReader(input) {}

    static bool Fits(std::string_view head);

protected:
    std::size_t EndOfRecord(std::string_view window) const override;
    std::size_t StrayBytes(std::string_view block, FaultCode& what) override;
    std::optional<ItemFault> Read(std::string_view block, Record& record) override;

private:
    FaultCode ReadLine(std::string_view line, Record& record);
    FaultCode ReadData(std::string_view text);
    std::string_view Hold(std::size_t start) const;

    std::string text_;  // leader and contents of the record, unescaped
};

// Appends a record in the line form, with the blank line after it.
void AppendMrk(const Record& record, std::string& text);
// Appends a field as a line, with its end.
void AppendMrkField(const zorby::CommFormatField& field, std::string& text);

class MrkWriter : public RecordWriter {
public:
    explicit MrkWriter(Output& output) : output_(output) {}
    WriteResult Write(const Record& record, Losses& losses) override;

private:
    Output& output_;
    std::string text_;
};

}  // namespace quillory
