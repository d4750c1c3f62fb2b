#include <zorby/holdings/detail/CustomHoldingsTexts.h>
#include <zorby/platform/detail/Decimal.h>
#include <zorby/text/detail/TagText.h>
#include <zorby/text/detail/ValidSubfieldCodes.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <algorithm>
#include <vector>

namespace zorby {
namespace {

constexpr std::size_t kTagWidth = 3;
constexpr std::size_t kShortestEntry = 4;
constexpr unsigned kFirstTag = 10;

void Trim(std::string& text) {
    text = std::string(Trimmed(text));
}

// A text without entries counts as one empty entry.
std::vector<std::string> Entries(std::string_view text) {
    std::vector<std::string> entries;
    while (true) {
        const std::size_t end = std::min(text.find(' '), text.size());
        entries.emplace_back(text.substr(0, end));
        const std::size_t next = text.find_first_not_of(' ', end);
        if (next == std::string_view::npos) return entries;
        text.remove_prefix(next);
    }
}

std::string Joined(const std::vector<std::string>& entries) {
    std::string text;
    for (const std::string& entry : entries) text += (text.empty() ? "" : " ") + entry;
    return text;
}

int TagOf(std::string_view entry) {
    return DecimalInt(entry.substr(0, kTagWidth));
}

bool IsTagTooLow(std::string_view entry) {
    return TagOf(entry) < static_cast<int>(kFirstTag);
}

// Returns the first code that no subfield may have, or 0.
char RefusedCode(std::string_view entry) {
    entry.remove_prefix(std::min(entry.size(), kTagWidth));
    const auto refused = std::ranges::find_if_not(entry, IsValidSubfieldCode);
    return refused == entry.end() ? '\0' : *refused;
}

bool HasRefusedCode(std::string_view entry) {
    entry.remove_prefix(std::min(entry.size(), kTagWidth));
    return !std::ranges::all_of(entry, IsValidSubfieldCode);
}

std::string FaultOfEntry(std::string_view entry) {
    if (entry.size() < kShortestEntry) {
        return "The holdings field and subfield must include a 3 digit tag and at least one "
               "subfield code.";
    }
    if (IsTagTooLow(entry)) return "The holdings field tag must be between 010 and 999.";
    if (!HasRefusedCode(entry)) return {};
    return std::string("A holdings subfield code of '") + RefusedCode(entry) +
           "' is invalid for the " + TagText(static_cast<unsigned>(TagOf(entry))) + " field.";
}

}  // namespace

std::string FaultOfAllFields(std::string& text) {
    Trim(text);
    const std::vector<std::string> entries = Entries(text);
    text = Joined(entries);
    for (const std::string& entry : entries) {
        if (std::string fault = FaultOfEntry(entry); !fault.empty()) return fault;
    }
    return {};
}

std::string FaultOfBarCode(std::string& text) {
    if (text.empty()) return {};
    Trim(text);
    if (text.size() == kShortestEntry && !IsTagTooLow(text) && !HasRefusedCode(text)) return {};
    return "The bar code must include a 3-digit field tag between 010 and 999 and a valid "
           "subfield code.";
}

std::string FaultOfCallNumber(std::string& text) {
    Trim(text);
    if (text.size() < kShortestEntry) {
        return "The call number subfields must include a 3 digit tag and at least one subfield "
               "code.";
    }
    const std::vector<std::string> entries = Entries(text);
    if (std::ranges::any_of(entries, IsTagTooLow)) {
        return "The call number field tag must be between 010 and 999.";
    }
    if (std::ranges::none_of(entries, HasRefusedCode)) return {};
    return "One of the subfield codes you entered for call number subfields is invalid.";
}

}  // namespace zorby
