#include <zorby/holdings/HoldingsDelimiters.h>
#include <zorby/holdings/detail/CompositesToMARC.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <array>
#include <cstddef>

namespace zorby {
namespace {

constexpr int kLowestCode = 32;    // a dictionary's subfields below are places in a composite
constexpr int kLetterOffset = 96;  // place 1 is "a"

constexpr int kFirstLabel = 9;
constexpr std::array<std::string_view, 5> kLabels = {
    "Funds:", "Accession:", "Policy:", "Vendor:", "Inventory:",
};

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
        x_ += static_cast<char>(info.GetSubfield() + kLetterOffset);
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
    const int label = info.GetSubfield() - kFirstLabel;
    if (label < 0 || label >= static_cast<int>(kLabels.size())) return;
    one_ += kLabels[static_cast<std::size_t>(label)];
    one_ += text;
    one_ += kcHoldingsDelimiter;
}

}  // namespace zorby
