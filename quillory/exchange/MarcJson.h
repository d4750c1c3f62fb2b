#pragma once

#include <quillory/exchange/LineReader.h>
#include <quillory/exchange/MarkupWriter.h>
#include <quillory/exchange/RecordBuilder.h>
#include <quillory/text/JsonWriter.h>

#include <optional>

namespace quillory {

// Where an object ends in a text of objects: one a line, laid out over lines, or in an array. A
// damaged object ends before a line that begins like its own.
class JsonBlock : public LineBlock {
public:
    // `place` is that of the window.
    explicit JsonBlock(const TextPlace& place) : place_(place) {}

    std::size_t EndOfRecord(std::string_view window) const override;

private:
    const TextPlace& place_;
};

// MARC-in-JSON: {"leader": "...", "fields": [{"001": "..."}, {"245": {"ind1": "1", "ind2": "0",
// "subfields": [{"a": "..."}]}}]}.
class MarcJsonReader : public LineReader {
public:
    explicit MarcJsonReader(Input& input) : LineReader(input, block_), block_(Place()) {}

    static bool Fits(std::string_view head) {
        return head.starts_with('{') || head.starts_with('[');
    }

protected:
    std::size_t StrayBytes(std::string_view block, std::string& what) override;
    bool Read(std::string_view block, Item& item) override;
    std::string MissingAtEnd(bool sound) override;

private:
    JsonBlock block_;
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
    void BeginDataField(std::string_view tag, char first, char second) override;
    void AddSubfield(const Subfield& subfield) override;
    void EndDataField() override;
    void EndRecord() override;

private:
    std::optional<JsonWriter> json_;  // of the record
};

}  // namespace quillory
