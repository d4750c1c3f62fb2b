#pragma once

#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/MarkupWriter.h>
#include <quillory/exchange/RecordBuilder.h>
#include <quillory/text/JsonWriter.h>

#include <optional>

namespace quillory {

// MARC-in-JSON, objects one a line, laid out over lines, or in an array: {"leader": "...",
// "fields": [{"001": "..."}, {"245": {"ind1": "1", "ind2": "0", "subfields": [{"a": "..."}]}}]}.
class MarcJsonReader : public LineReader {
public:
    // With `lenient` a damaged record is given without the fields that can't be read.
    explicit MarcJsonReader(Input& input, bool lenient = false)
        : LineReader(input), lenient_(lenient) {}

    static bool Fits(std::string_view head) {
        return head.starts_with('{') || head.starts_with('[');
    }

protected:
    std::size_t EndOfRecord(std::string_view window) const override;
    std::size_t StrayBytes(std::string_view block, FaultCode& what) override;
    void Read(std::string_view block, Item& item) override;
    FaultCode MissingAtEnd(bool sound) override;

private:
    bool lenient_;
    RecordBuilder builder_;
    std::ptrdiff_t openArrays_ = 0;
};

// One object a line.
class MarcJsonWriter : public MarkupWriter {
public:
    explicit MarcJsonWriter(Output& output) : MarkupWriter(output) {}

protected:
    void BeginRecord(std::string_view leader) override;
    void AddControlField(const zorby::CommFormatField& field) override;
    void AddDataField(std::string_view tag, char first, char second,
                      std::string_view subfields) override;
    std::string_view EndRecord() override;

private:
    void AddSubfield(const Subfield& subfield);

    std::string text_;                // of the record
    std::optional<JsonWriter> json_;  // writes it
};

}  // namespace quillory
