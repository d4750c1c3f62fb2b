#pragma once

#include <quillory/exchange/FieldPlaces.h>
#include <quillory/exchange/RecordWriter.h>

#include <string>
#include <string_view>

namespace quillory {

// The bytes that a field, with its end but without its directory entry, or a whole record takes in
// ISO 2709.
std::size_t CommFormatSize(const zorby::CommFormatField& field);
std::size_t CommFormatSize(const Record& record);

// Puts records into ISO 2709. A record that comes in this form keeps its bytes, except its leader:
// bytes 10-11 become "22" and bytes 20-23 "4500", which is how the record is made.
class MarcAssembler {
public:
    explicit MarcAssembler(Oversize oversize) : oversize_(oversize) {}

    WriteResult Assemble(const Record& record);
    // The record assembled last; holds until the next one, and as long as that record's bytes.
    std::string_view Bytes() const { return bytes_; }

private:
    Fault FaultOf(FaultCode code, const Record& record, std::size_t field, std::size_t size);
    WriteResult RefuseSize(const Record& record);
    WriteResult AssembleFields(const Record& record);
    void AssembleSome(const Record& record, std::string_view leader, WriteResult& result);
    void AddAsItIs(const Record& record, std::size_t field, WriteResult& result);
    void AddToFit(const Record& record, std::size_t field, WriteResult& result);

    Oversize oversize_;
    zorby::CommFormatWriter writer_;
    FieldPlaces places_;
    std::size_t size_ = 0;  // of the record so far
    std::string leader_;
    std::string text_;
    std::string_view bytes_;
};

class MarcWriter : public RecordWriter {
public:
    MarcWriter(Output& output, const WriterOptions& options)
        : output_(output), assembler_(options.oversize) {}
    WriteResult Write(const Record& record, Losses& losses) override;

private:
    Output& output_;
    MarcAssembler assembler_;
};

}  // namespace quillory
