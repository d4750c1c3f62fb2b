#include <zorby/format/MARCFormat.h>
#include <zorby/platform/detail/Decimal.h>
#include <zorby/selection/detail/TypedSelection.h>
#include <zorby/text/detail/Digits.h>

#include <algorithm>
#include <cstddef>

namespace zorby {

namespace {

constexpr std::size_t kTagWidth = 3;
constexpr std::size_t kRangeWidth = 7;
constexpr std::string_view kSeparators = " ,";

bool IsLetterOrDigit(char c) {
    return IsDigit(c) || ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
}

bool IsRange(std::string_view part) {
    return part.size() == kRangeWidth && part[kTagWidth] == '-';
}

// Whether the dictionary knows a part of a tag, or of a tag and one code. Longer and shorter parts
// aren't looked up.
bool IsKnown(std::string_view part) {
    if (part.size() != kTagWidth && part.size() != kTagWidth + 1) return true;
    const unsigned tag = DecimalUnsigned(part.substr(0, kTagWidth));
    if (!CMARCFormat::AllTags(0, 999)->Find(tag)) return false;
    if (part.size() == kTagWidth) return true;
    std::string codes;
    CMARCFormat::AllSubfieldCodes(tag, codes);
    return codes.find(part[kTagWidth]) != std::string::npos;
}

// Checks one selection, part by part. A check returns true if the whole check ends with the code.
class Checker {
public:
    explicit Checker(const TypedSelectionRules& rules) : rules_(rules) {}

    bool EndsAt(std::string_view part) {
        if (rules_.checkFormat && !IsKnown(part)) code_ = FSE_NOT_IN_FORMAT;
        if (part.size() < kTagWidth) code_ = FSE_BAD_FORM;
        if (IsForbidden245h(part)) return EndsWith(FSE_245H);
        if (part == "006" || part == "007" || part == "008") return EndsWith(FSE_CONTROL_FIELD);
        if (!rules_.allowBelow010 && part < "010") return EndsBelow010(part);
        if (!rules_.allow001And003 && part == "003") return EndsWith(FSE_CONTROL_FIELD);
        return EndsByForm(part);
    }

    CFandSSelectorErrorCode Code() const { return code_; }

private:
    bool IsForbidden245h(std::string_view part) const {
        return !rules_.allow245h && part.starts_with("245") &&
               part.find('h') != std::string_view::npos;
    }

    bool EndsBelow010(std::string_view part) {
        if (rules_.allow001And003 && (part == "001" || part == "003")) {
            code_ = FSE_OK;
            return false;
        }
        return EndsWith(part.size() > kTagWidth ? FSE_SUBFIELD_ON_CONTROL_FIELD
                                                : FSE_CONTROL_FIELD);
    }

    bool EndsByForm(std::string_view part) {
        if (part.size() == kTagWidth) {
            if (!AreDigits(part)) return EndsMalformed();
            return !rules_.allowWholeField && EndsWith(FSE_BAD_FORM);
        }
        if (IsRange(part)) {
            const bool isGood =
                AreDigits(part.substr(0, kTagWidth)) && AreDigits(part.substr(kTagWidth + 1));
            return !isGood && EndsMalformed();
        }
        if (part.size() < kTagWidth) return EndsMalformed();
        if (!rules_.allowSubfields) return EndsWith(FSE_BAD_FORM);
        const bool isGood = AreDigits(part.substr(0, kTagWidth)) &&
                            std::ranges::all_of(part.substr(kTagWidth), IsLetterOrDigit);
        return !isGood && EndsMalformed();
    }

    bool EndsWith(CFandSSelectorErrorCode code) {
        code_ = code;
        return true;
    }

    // A fault that an earlier check found stays.
    bool EndsMalformed() { return EndsWith(code_ == FSE_OK ? FSE_BAD_FORM : code_); }

    const TypedSelectionRules& rules_;
    CFandSSelectorErrorCode code_ = FSE_OK;
};

}  // namespace

int CFandSSelector::GetPart(std::string_view text, int start, std::string& part, int& first,
                            int& last) {
    part.clear();
    first = last = -1;
    if (start < 0 || static_cast<std::size_t>(start) > text.size()) return 0;
    const std::size_t begin =
        std::min(text.find_first_not_of(kSeparators, static_cast<std::size_t>(start)), text.size());
    const std::size_t end = std::min(text.find_first_of(kSeparators, begin), text.size());
    part = text.substr(begin, end - begin);
    first = static_cast<int>(begin);
    last = static_cast<int>(end);
    return 1;
}

CFandSSelectorErrorCode CheckTypedSelection(std::string_view text, const TypedSelectionRules& rules,
                                            int& first, int& last) {
    first = last = -1;
    if (text.empty()) return FSE_EMPTY;
    Checker checker(rules);
    std::string part;
    for (int start = 0; CFandSSelector::GetPart(text, start, part, first, last); start = last + 1) {
        if (checker.EndsAt(part)) break;
    }
    return checker.Code();
}

}  // namespace zorby
