#include <zorby/format/MARCFormat.h>
#include <zorby/text/detail/Digits.h>
#include <zorby/text/detail/TagText.h>
#include <zorby/text/detail/ValidSubfieldCodes.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <algorithm>
#include <charconv>
#include <unordered_set>
#include <utility>

namespace zorby {
namespace {

constexpr std::size_t kEntryTagWidth = 3;
constexpr std::size_t kEntryWidth = 4;  // a tag and a code
constexpr std::size_t kRangeWidth = 7;  // such as 590-595

bool IsValid(char code) {
    return CMARCFormat::IsAnyValidSubfield(code) != 0;
}

// Returns the number that the text begins with, or 0.
unsigned Number(std::string_view text) {
    unsigned number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

class Parser {
public:
    Parser(std::vector<std::string>& entries, bool allowBareTags)
        : entries_(entries), allowBareTags_(allowBareTags) {
        for (const std::string& entry : entries_) Remember(entry);
    }

    void Parse(std::string_view list) {
        bool goesOn = true;
        while (goesOn && !list.empty()) {
            const std::size_t end = std::min(list.find_first_of(" \\"), list.size());
            goesOn = AddToken(Trimmed(list.substr(0, end)));
            list.remove_prefix(std::min(end + 1, list.size()));
        }
    }

private:
    // Returns false if the list ends early.
    bool AddToken(std::string_view token) {
        const bool isBareTag = allowBareTags_ && token.size() == kEntryTagWidth;
        if (token.size() <= kEntryTagWidth && !isBareTag) return true;
        if (token.size() == kRangeWidth && token[kEntryTagWidth] == '-') {
            AddRange(token.substr(0, kEntryTagWidth), token.substr(kEntryTagWidth + 1));
            return true;
        }
        const std::string_view tag = token.substr(0, kEntryTagWidth);
        if (!std::ranges::all_of(tag, IsDigit)) return true;
        return AddFieldAndSubfields(tag, token.substr(kEntryTagWidth));
    }

    void AddRange(std::string_view first, std::string_view last) {
        if (first > last) return;
        for (unsigned tag = Number(first); tag <= Number(last); ++tag) Append(TagText(tag));
    }

    bool AddFieldAndSubfields(std::string_view tag, std::string_view codes) {
        const bool hasCode = codes.empty() || std::ranges::any_of(codes, IsValid);
        if (!hasCode && !allowBareTags_) return false;
        AppendNew(std::string(tag));
        for (const char code : codes) {
            if (IsValid(code)) AppendNew(std::string(tag) + code);
        }
        return true;
    }

    void AppendNew(std::string entry) {
        if (!known_.contains(entry)) Append(std::move(entry));
    }

    void Append(std::string entry) {
        Remember(entry);
        entries_.push_back(std::move(entry));
    }

    // A tag is known if it is an entry. A tag with a code is known if it is in any entry.
    void Remember(const std::string& entry) {
        if (entry.size() <= kEntryTagWidth) known_.insert(entry);
        for (std::size_t at = 0; at + kEntryWidth <= entry.size(); ++at) {
            known_.insert(entry.substr(at, kEntryWidth));
        }
    }

    std::vector<std::string>& entries_;
    std::unordered_set<std::string> known_;
    bool allowBareTags_;
};

}  // namespace

void CMARCFormat::ParseUDSubfields(std::string_view list, std::vector<std::string>& entries,
                                   int allowBareTags) {
    Parser(entries, allowBareTags != 0).Parse(list);
}

int CMARCFormat::IsAnyValidSubfield(char code) {
    return IsValidSubfieldCode(code) ? 1 : 0;
}

}  // namespace zorby
