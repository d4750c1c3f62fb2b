#include <zorby/copies/HoldingsDelimiters.h>
#include <zorby/copies/detail/CompositesToMARC.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <cstddef>

namespace zorby {
namespace {

constexpr int kLowestCode = 32;  // a dictionary's subfields below are places in a composite
constexpr int kHoldTag = 852;
constexpr char kHoldSubfield = '1';

}  // namespace

CompositesToMARC::CompositesToMARC(EHOLDINGSTYPE type)
    : composesX_(type == HT_FOLLETT || type == HT_FOLLETT_UNISON || type == HT_FOLLETT_2),
      composes1_(type == HT_ALEXANDRIA) {}

bool CompositesToMARC::Take(const CInfoAboutHoldingsField& info, std::string_view text) {
    if (info.GetSubfield() >= kLowestCode || !(composesX_ || composes1_)) return false;
    if (composesX_) {
        AddToX(info, text);
    } else {
        AddTo1(info, text);
    }
    return true;
}

bool CompositesToMARC::Take(const HoldingItemHold& hold) {
    if (!composes1_ || hold.tag != kHoldTag || hold.subfield != kHoldSubfield) return false;
    one_ += hold.text + kcHoldingsDelimiter;
    return true;
}

// A text without any value starts the subfield all the same.
void CompositesToMARC::AddToX(const CInfoAboutHoldingsField& info, std::string_view text) {
    if (x_.empty()) x_ = kpFollettSubXMarker;
    const auto add = [&](std::string_view value) {
        x_ += kcFollettSubXDelimiter;
        x_ += static_cast<char>(info.GetSubfield() + kFollettLetterOffset);
        x_ += value;
    };
    const char delimiter = info.GetRepeatDelimiter();
    if (delimiter == 0) {
        add(text);
        return;
    }
    for (;;) {
        const std::size_t end = text.find(delimiter);
        const std::string_view value = Trimmed(text.substr(0, end));
        if (!value.empty()) add(value);
        if (end == text.npos) return;
        text.remove_prefix(end + 1);
    }
}

void CompositesToMARC::AddTo1(const CInfoAboutHoldingsField& info, std::string_view text) {
    const char* label = AlexandriaLabel(info.GetSubfield());
    if (!label) return;
    one_ += label;
    one_ += text;
    one_ += kcHoldingsDelimiter;
}

}  // namespace zorby
