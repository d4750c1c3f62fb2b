#include <quillory/faults/Hints.h>
#include <quillory/rules/Remark.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kFound = "{found}";
constexpr std::string_view kAllowed = "{allowed}";
constexpr std::string_view kLastPart = "; {allowed}";

// What is allowed, or where its codes are listed.
std::string AllowedText(const Remark& remark) {
    constexpr std::string_view kList = "`quillory codes {place}` lists the codes";
    constexpr std::string_view kSlot = "{place}";
    if (remark.codes.IsRecord()) return remark.allowed;
    std::string hint = HintText(kCodesHint, remark.codes, kList);
    const std::size_t slot = hint.find(kSlot);
    if (slot != hint.npos) hint.replace(slot, kSlot.size(), PlaceText(remark.codes));
    if (hint.empty() || remark.allowed.empty()) return hint + remark.allowed;
    return hint + ", and " + remark.allowed;
}

// The words of a rule have each of the slots once at most.
void AppendWords(const Remark& remark, std::string& text) {
    const std::string allowed = AllowedText(remark);
    std::string_view rest = remark.rule->words;
    if (allowed.empty() && rest.ends_with(kLastPart)) rest.remove_suffix(kLastPart.size());
    while (!rest.empty()) {
        const std::size_t slot = std::min(rest.find('{'), rest.size());
        text.append(rest.substr(0, slot));
        rest.remove_prefix(slot);
        if (rest.starts_with(kFound)) {
            text.append(remark.found);
            rest.remove_prefix(kFound.size());
        } else if (rest.starts_with(kAllowed)) {
            text.append(allowed);
            rest.remove_prefix(kAllowed.size());
        } else if (!rest.empty()) {
            text += rest.front();
            rest.remove_prefix(1);
        }
    }
    const std::string hint = HintText(remark.rule->name, remark.place, remark.rule->command);
    if (!hint.empty()) text.append("; ").append(hint);
}

}  // namespace

std::string RemarkText(const Remark& remark) {
    std::string text;
    AppendWords(remark, text);
    return text;
}

std::string RemarkLine(const Remark& remark) {
    std::string line;
    AppendRemarkLine(remark, line);
    return line;
}

void AppendRemarkLine(const Remark& remark, std::string& line) {
    if (!remark.place.IsRecord()) line.append(PlaceText(remark.place)).append(": ");
    line.append(SeverityText(remark.severity)).append(": ");
    AppendWords(remark, line);
    line.append(" [").append(remark.rule->name).append("]");
}

}  // namespace quillory
