#include <zorby/copies/detail/CompositeToMARC.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <cstddef>

namespace zorby {
namespace {

constexpr int kLowestCodeOfField = 32;  // lower subfields of a dictionary are places in a composite

}  // namespace

// Even a text without any value begins the subfield.
bool CompositeToMARC::Take(const CInfoAboutHoldingsField& info, std::string_view text) {
    if (!composite_ || info.GetSubfield() >= kLowestCodeOfField) return false;
    if (text_.empty()) text_ = composite_->opening;
    const std::string lead = composite_->lead(info.GetSubfield());
    if (!lead.empty()) {
        AddParts(lead, text, composite_->dividesValues ? info.GetRepeatDelimiter() : '\0');
    }
    return true;
}

bool CompositeToMARC::Take(const HoldingItemHold& hold) {
    if (!composite_ || composite_->carriedTag == 0) return false;
    if (hold.tag != composite_->carriedTag || hold.subfield != composite_->code) return false;
    AddPart({}, hold.text);
    return true;
}

void CompositeToMARC::AddPart(std::string_view lead, std::string_view value) {
    if (composite_->partStart != 0) text_ += composite_->partStart;
    text_ += lead;
    text_ += value;
    if (composite_->partEnd != 0) text_ += composite_->partEnd;
}

void CompositeToMARC::AddParts(std::string_view lead, std::string_view text, char delimiter) {
    if (delimiter == 0) return AddPart(lead, text);
    for (;;) {
        const std::size_t end = text.find(delimiter);
        const std::string_view value = Trimmed(text.substr(0, end));
        if (!value.empty()) AddPart(lead, value);
        if (end == text.npos) return;
        text.remove_prefix(end + 1);
    }
}

}  // namespace zorby
