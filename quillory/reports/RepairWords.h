#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/repair/Repair.h>

#include <string>
#include <string_view>

namespace quillory {

// What is said of a repair, in messages and reports. Texts are UTF-8.
class RepairWords {
public:
    // Keeps the reference.
    explicit RepairWords(const CodeLists& lists) : lists_(lists) {}

    // "008/35-37 Language: fra -> fre (French) [national-code: ISO 639-2/T]"
    std::string MessageOf(const Repair& repair) const;
    // The same without place and class.
    std::string ChangeOf(const Repair& repair) const;
    // What a value of the repair's element says; several codes with "; " between them. Empty if
    // nothing is known.
    std::string MeaningOf(const Repair& repair, std::string_view value) const;

private:
    std::string ValueShown(const Repair& repair, std::string_view value) const;

    const CodeLists& lists_;
};

// "repaired", "length" or "left".
std::string_view OutcomeOf(const Repair& repair);
// The name of the element; empty if the repair concerns a field or the record.
std::string ElementNameOf(const Repair& repair);
// "008/35-37 Language", "007", or "record": the place whatever its occurrence.
std::string ElementTextOf(const Repair& repair);
// Why a length changed, with the bytes that were cut, why something was left, or what gave the
// new value; else empty.
std::string ReasonOf(const Repair& repair);

}  // namespace quillory
