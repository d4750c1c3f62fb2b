#pragma once

#include <quillory/exchange/RecordWriter.h>
#include <quillory/exchange/Subfields.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What the writers of XML and JSON have in common: a record is checked, then written part by part.
// Records are in UTF-8. The leader's constants are put right, and its lengths stay as they are.
class MarkupWriter : public RecordWriter {
public:
    WriteResult Write(const Record& record, Losses& losses) final;

protected:
    explicit MarkupWriter(Output& output) : output_(output) {}

    virtual void BeginRecord(std::string_view leader) = 0;
    virtual void AddControlField(const zorby::CommFormatField& field) = 0;
    // `subfields` is what its content has after the indicators.
    virtual void AddDataField(std::string_view tag, char first, char second,
                              std::string_view subfields) = 0;
    // Result: the record as it goes out.
    virtual std::string_view EndRecord() = 0;

    Output& output_;
    Losses* losses_ = nullptr;  // of the record

private:
    std::optional<Fault> Unwritable(std::string_view leader, const Record& record);
    char WritableIndicator(char indicator);

    std::string leader_;
    std::vector<FieldShape> shapes_;  // of the fields of the record
};

}  // namespace quillory
