#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/holdings/CopyFields.h>
#include <quillory/holdings/HoldingsFields.h>
#include <quillory/holdings/HoldingsFile.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/text/Charset.h>
#include <quillory/text/Losses.h>
#include <quillory/text/TextConverter.h>
#include <zorby/record/Pmarc.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillory {

// Writes copies into their records in the form of a holdings system, one record after the other.
class RecordHoldings {
public:
    // `to` is the system in force, `from` the one whose fields records hold; both outlive this, and
    // so does the file, which may be null.
    RecordHoldings(const HoldingsSystem& from, const HoldingsSystem& to, HoldingsFile* file);

    // Replaces the fields that hold copies, those of both systems, by the copies that the file has
    // for the record, or else by the copies in these fields. Fields that say the same already stay
    // as they are, and so does a record without copies. `number` is the record's number in its
    // file. `charset` is what the record is in; auto: as the record says and is. The views of a
    // changed record are valid until the next call.
    void Write(Record& record, std::uint64_t number, Charset charset, Losses& losses);

private:
    bool MakeFromFile(const Record& record, std::uint64_t number);
    bool MakeFromFields(const Record& record);
    void MakeFields(const zorby::CHoldingsDataRecord& copy,
                    const std::vector<zorby::CommFormatField>& origin);
    void Convert(Charset charset, Losses& losses);
    void Replace(Record& record, const std::function<bool(const zorby::CommFormatField&)>& isOld);

    const HoldingsSystem& from_;
    const HoldingsSystem& to_;
    HoldingsFields reader_;
    HoldingsFile* file_;
    std::vector<CopyField> made_;
    zorby::CPmarc record_;
    std::array<std::unique_ptr<TextConverter>, 4> converters_;  // from UTF-8
};

}  // namespace quillory
