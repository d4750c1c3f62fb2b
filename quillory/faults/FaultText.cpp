#include <quillory/faults/Fault.h>

#include <iterator>

namespace quillory {
namespace {

// {found} and {allowed} stand for what a fault holds.
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

    // New records.

    // Workforms.

    // Copies and holdings systems.

    // Checks and repairs.

    // Settings and arguments.
    {FaultCode::kAlwaysUtf8, "always-utf-8", "{found} is always in UTF-8, never in {allowed}"},
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

std::string Filled(std::string_view words, std::string_view found, std::string_view allowed) {
    constexpr std::string_view kFound = "{found}";
    constexpr std::string_view kAllowed = "{allowed}";
    std::string text;
    while (!words.empty()) {
        if (words.starts_with(kFound)) {
            text += found;
            words.remove_prefix(kFound.size());
        } else if (words.starts_with(kAllowed)) {
            text += allowed;
            words.remove_prefix(kAllowed.size());
        } else {
            text += words.front();
            words.remove_prefix(1);
        }
    }
    return text;
}

}  // namespace

std::string_view FaultId(FaultCode code) {
    return WordsOf(code).id;
}

std::string FaultHeading(FaultCode code) {
    return Filled(WordsOf(code).reason, "...", "...");
}

std::string FaultReason(const Fault& fault) {
    return Filled(WordsOf(fault.code).reason, fault.found, fault.allowed);
}

std::string FaultText(const Fault& fault) {
    const std::string place = PlaceText(fault.place);
    return place.empty() ? FaultReason(fault) : place + ": " + FaultReason(fault);
}

}  // namespace quillory
