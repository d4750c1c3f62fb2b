#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/Losses.h>

#include <memory>
#include <string>
#include <vector>

namespace quillory {

// What to do with a field of over 9,999 bytes or a record of over 99,999.
enum Oversize : std::int32_t { kOversizeRefuse, kOversizeCut };

struct WriteResult {
    bool written = true;
    bool leaderMended = false;  // its structural bytes were others
    std::string reason;         // why it was not written, or what was cut; empty if all is well
};

// Writes records to an output in one of the forms. What a form can't give back is counted in
// `losses`.
class RecordWriter {
public:
    virtual ~RecordWriter() = default;
    virtual WriteResult Write(const Record& record, Losses& losses) = 0;
    // Writes what a form has behind its last record.
    virtual void Finish() {}
};

// A leader with the constants of the format in bytes 10-11 and 20-23: the one given, or `mended`,
// which the result then views.
std::string_view MendLeader(std::string_view leader, std::string& mended);

// Puts records into ISO 2709. A record that comes in this form keeps its bytes, but for its leader:
// bytes 10-11 are always "22" and 20-23 "4500", as the structure is.
class MarcAssembler {
public:
    explicit MarcAssembler(Oversize oversize) : oversize_(oversize) {}

    WriteResult Assemble(const Record& record);
    // The record assembled last; holds until the next one, and as long as that record's bytes.
    std::string_view Bytes() const { return bytes_; }

private:
    WriteResult Refuse(const Record& record) const;
    WriteResult AssembleFields(const Record& record);

    Oversize oversize_;
    zorby::CommFormatWriter writer_;
    std::string leader_;
    std::string text_;
    std::string_view bytes_;
};

class MarcWriter : public RecordWriter {
public:
    MarcWriter(Output& output, Oversize oversize) : output_(output), assembler_(oversize) {}
    WriteResult Write(const Record& record, Losses& losses) override;

private:
    Output& output_;
    MarcAssembler assembler_;
};

class MrkWriter : public RecordWriter {
public:
    explicit MrkWriter(Output& output) : output_(output) {}
    WriteResult Write(const Record& record, Losses& losses) override;

private:
    Output& output_;
    std::string text_;
};

class MicrolifWriter : public RecordWriter {
public:
    explicit MicrolifWriter(Output& output) : output_(output) {}
    WriteResult Write(const Record& record, Losses& losses) override;

private:
    Output& output_;
    std::string text_;
};

}  // namespace quillory
