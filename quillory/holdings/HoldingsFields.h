#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/copies/HoldingsDataRecordList.h>

#include <string_view>
#include <vector>

namespace quillory {

// The copies in a record, and the fields in which each of them stands.
struct CopiesOfRecord {
    zorby::CHoldingsDataRecordList copies;
    std::vector<std::vector<zorby::CommFormatField>> fields;
};

// Reads copies from the fields that one system writes, as copies of the same or another system: an
// element goes to the element of the same name, and a call number to the one that takes it whole. A
// subfield that is not an element of both systems is kept as it is, and so is one that would come
// out as something else.
//
// Each field is a copy. Where a system writes a copy to fields of two tags, these are taken in
// pairs if there are as many of each tag; otherwise each is a copy by itself. A copy is written to
// two fields at most: what is kept of a third makes a copy of its own.
class HoldingsFields {
public:
    HoldingsFields(const HoldingsSystem& from, const HoldingsSystem& to)
        : from_(from), rules_(from.Rules()), to_(to) {}

    // Whether the field holds copies.
    bool IsTaken(const zorby::CommFormatField& field) const;
    // Adds the copies of a record, whose bytes have to last as long as the result.
    void Take(const Record& record, CopiesOfRecord& taken) const;

private:
    struct Subfield {
        char code = 0;
        std::string_view text;
    };

    // A copy, and the subfields that are to be kept with it as they are.
    struct CopyInHand {
        zorby::CHoldingsDataRecord& elements;
        std::vector<zorby::HoldingItemHold> kept;
    };

    void TakeCopy(const std::vector<zorby::CommFormatField>& fields, CopiesOfRecord& taken) const;
    void TakeSubfield(int tag, const Subfield& subfield, CopyInHand& copy) const;
    bool TakeElement(const zorby::CInfoAboutHoldingsField* info, std::string_view text,
                     CopyInHand& copy) const;
    bool TakeLabelled(int tag, const Subfield& subfield, CopyInHand& copy) const;
    bool TakeComposite(int tag, const Subfield& subfield, CopyInHand& copy) const;
    bool TakePart(int tag, std::string_view part, CopyInHand& copy) const;
    const zorby::CInfoAboutHoldingsField* Find(int tag, char code) const;
    const zorby::CInfoAboutHoldingsField* Target(const zorby::CInfoAboutHoldingsField& info) const;

    const HoldingsSystem& from_;
    const zorby::HoldingsTypeRow& rules_;  // of `from_`
    const HoldingsSystem& to_;
};

}  // namespace quillory
