#pragma once

#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/RecordWriter.h>
#include <quillory/text/TextConverter.h>

#include <memory>
#include <string>

namespace quillory {

// The customary line form of MARC records: "=245  10$aTitle /$cName.", a blank line between
// records. A blank indicator, and a blank in a control field, is written as a backslash. Signs that
// the form uses stand in braces: {dollar}, {lcub}, {rcub}, {bsol} in control fields, {num} for the
// indicator #, which others write for a blank, and a control byte as two hexadecimal digits such as
// {0A}. Names of other characters are read, such as {eacute}; unknown ones stay and are counted.
class MrkReader : public LineReader {
public:
    explicit MrkReader(Input& input, bool lenient = false) : LineReader(input, lenient) {}

    static bool Fits(std::string_view head);

protected:
    std::size_t EndOfRecord(std::string_view window) const override;
    std::size_t StrayBytes(std::string_view block, FaultCode& what) override;
    void Read(std::string_view block, Item& item) override;

private:
    FaultCode ReadLine(std::string_view line, Record& record);
    FaultCode ReadData(std::string_view text);
    char ReadIndicator(std::string_view& text);
    void Unescape(std::string_view text, char blank, char delimiter);
    std::size_t TakeMnemonics(std::string_view text);
    std::size_t TakeAsUtf8(std::string_view text);
    bool AppendAsUtf8(std::string_view marc8, std::string_view letter);
    std::string_view Hold(std::size_t start) const;

    std::string text_;  // leader and contents of the record, unescaped
    bool isUtf8_ = false;
    std::size_t unknown_ = 0;           // names in braces that the record has
    const char* letterless_ = nullptr;  // names of diacritics before it stand over no letter
    std::unique_ptr<TextConverter> toUtf8_;
};

// Appends a record in the line form, with the blank line after it.
void AppendMrk(const Record& record, std::string& text);
// Appends a field as a line, with its end.
void AppendMrkField(const zorby::CommFormatField& field, std::string& text);

class MrkWriter : public RecordWriter {
public:
    MrkWriter(Output& output, const WriterOptions& options)
        : output_(output), mnemonics_(options.mnemonics) {}
    WriteResult Write(const Record& record, Losses& losses) override;

private:
    std::string WithMnemonics(std::string_view text, bool isUtf8);
    std::string UnitAsMnemonics(std::string_view unit);

    Output& output_;
    bool mnemonics_;
    std::unique_ptr<TextConverter> toMarc8_;
    std::string text_;
};

}  // namespace quillory
