#include <quillory/faults/Fault.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <iterator>
#include <span>

namespace quillory {
namespace {

// {place}, {found} and {allowed} stand for what a fault holds.
struct Words {
    FaultCode code;
    std::string_view id;
    std::string_view reason;
};

constexpr Words kWords[] = {
    {FaultCode::kNone, "none", ""},

    // Files of records.
    {FaultCode::kEmptyFile, "empty-file", "the file is empty"},

    // Places and coded fields.
    {FaultCode::kNoPlace, "no-place",
     "\"{found}\" is not a place; 245 is a field, 245a a subfield, 245/2 an indicator, 008/18 an "
     "element of a control field"},
    {FaultCode::kNotInDictionary, "not-in-dictionary", "the dictionary has no {found}"},
    {FaultCode::kNoCodedPlace, "no-coded-place",
     "\"{found}\" is not a place in a coded field; such places are leader/06, 008/18, 008a/18-21, "
     "006/05, 007c/01 and part 310"},
    {FaultCode::kNoSuchMaterial, "no-such-material",
     "there is no form {found}; the forms are {allowed}"},
    {FaultCode::kNoSuchPosition, "no-such-position", "its positions are {allowed}"},
    {FaultCode::kNoSuchPart, "no-such-part",
     "there is no part {found}; such parts are 16, 107, 310 and 1702"},

    // New records.

    // Workforms.

    // Copies and holdings systems.

    // Checks and repairs.
    {FaultCode::kUnknownTypeOfRecord, "unknown-type-of-record",
     "leader/06 is no type of record, so the material can't be told"},
    {FaultCode::kUnknownFirstByte, "unknown-first-byte",
     "its first byte is no type of record or category"},
    {FaultCode::kSecond008, "second-008", "a record has one 008"},
    {FaultCode::kShifted008, "shifted-008",
     "{found}, the format has 40, and country and language are not in their places"},
    {FaultCode::kFieldFilledUp, "field-filled-up",
     "{found}, the format has {allowed}; filled up as not coded"},
    {FaultCode::kFieldCut, "field-cut", "{found}, the format has {allowed}; cut"},

    // Settings and arguments.
    {FaultCode::kAlwaysUtf8, "always-utf-8", "{found} is always in UTF-8, never in {allowed}"},
    {FaultCode::kNoDataFile, "no-data-file",
     "can't be opened: {found}; QUILLORY_DATA names the folder of the data files"},
    {FaultCode::kNoUserDefinedField, "no-user-defined-field",
     "\"{found}\" names no fields of your own; they are given as 590ab or 591-595"},
};

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(kWords); ++i) {
        if (kWords[i].code != static_cast<FaultCode>(i)) return false;
    }
    return true;
}
static_assert(std::size(kWords) == static_cast<std::size_t>(FaultCode::kEnd));
static_assert(IsInOrder(), "a code's words stand in the code's place");

const Words& WordsOf(FaultCode code) {
    return kWords[static_cast<std::size_t>(code)];
}

// What stands in the words for a part of a fault, and that part.
struct Part {
    std::string_view sign;
    std::string_view text;
};

// The words with the parts in the place of their signs.
std::string Filled(std::string_view words, std::span<const Part> parts) {
    std::string text;
    while (!words.empty()) {
        const auto part = std::ranges::find_if(
            parts, [words](const Part& known) { return words.starts_with(known.sign); });
        if (part != parts.end()) {
            text += part->text;
            words.remove_prefix(part->sign.size());
        } else {
            text += words.front();
            words.remove_prefix(1);
        }
    }
    return text;
}

std::string Filled(FaultCode code, std::string_view place, std::string_view found,
                   std::string_view allowed) {
    const Part parts[] = {{"{place}", place}, {"{found}", found}, {"{allowed}", allowed}};
    return Filled(WordsOf(code).reason, parts);
}

}  // namespace

std::string_view FaultId(FaultCode code) {
    return WordsOf(code).id;
}

std::string FaultHeading(FaultCode code) {
    return Filled(code, "...", "...", "...");
}

std::string FaultReason(const Fault& fault) {
    return Filled(fault.code, PlaceText(fault.place), fault.found, fault.allowed);
}

std::string FaultText(const Fault& fault) {
    const std::string place = PlaceText(fault.place);
    return place.empty() ? FaultReason(fault) : place + ": " + FaultReason(fault);
}

}  // namespace quillory
