#pragma once

#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/Record.h>
#include <quillory/queries/PlaceSet.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A field of one record that another lacks, or that differs in the other; "LDR" is the leader.
// Contents are as in the record, in UTF-8.
struct FieldChange {
    std::string tag;
    std::string before;     // content in the first record
    std::string after;      // in the second
    bool isBefore = false;  // whether the first record has the field at all
    bool isAfter = false;
};

// A record as text: in UTF-8 of normal form C whatever set it came in, without what belongs to its
// file (leader 00-04, 09, 12-16), and without places that are not to be compared.
class ComparableRecord {
public:
    // Of `from` or, if it is auto, of each record's own set.
    ComparableRecord(Charset from, PlaceSet ignored);

    void Set(const Record& record);

    struct Field {
        std::string tag;
        std::string content;
        friend bool operator==(const Field&, const Field&) = default;
    };
    const std::vector<Field>& Fields() const { return fields_; }

private:
    void Add(std::string_view tag, std::string content, std::uint32_t occurrence);

    Recoder recoder_;
    PlaceSet ignored_;
    Record record_;
    Losses unused_;
    std::vector<Field> fields_;
};

// What differs, in the order of the records: fields that stand in both, in one order, do not. A
// field that differs stands against the next one of its tag at the same place.
std::vector<FieldChange> Differences(const ComparableRecord& before, const ComparableRecord& after);

}  // namespace quillory
