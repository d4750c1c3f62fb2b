#include <quillory/faults/Hints.h>
#include <quillory/rules/Remark.h>

namespace quillory {
namespace {

void Fill(std::string& words, std::string_view slot, std::string_view text) {
    const std::size_t at = words.find(slot);
    if (at != words.npos) words.replace(at, slot.size(), text);
}

// What is allowed, or where its codes are listed.
std::string AllowedText(const Remark& remark) {
    constexpr std::string_view kList = "`quillory codes {place}` lists the codes";
    if (remark.codes.IsRecord()) return remark.allowed;
    std::string hint = HintText(kCodesHint, remark.codes, kList);
    Fill(hint, "{place}", PlaceText(remark.codes));
    if (hint.empty() || remark.allowed.empty()) return hint + remark.allowed;
    return hint + ", and " + remark.allowed;
}

}  // namespace

std::string RemarkText(const Remark& remark) {
    constexpr std::string_view kLastPart = "; {allowed}";
    std::string words(remark.rule->words);
    const std::string allowed = AllowedText(remark);
    if (allowed.empty() && words.ends_with(kLastPart))
        words.resize(words.size() - kLastPart.size());
    Fill(words, "{allowed}", allowed);
    Fill(words, "{found}", remark.found);
    const std::string hint = HintText(remark.rule->name, remark.place, remark.rule->command);
    return hint.empty() ? words : words + "; " + hint;
}

std::string RemarkLine(const Remark& remark) {
    const std::string place = PlaceText(remark.place);
    std::string line = place.empty() ? place : place + ": ";
    line.append(SeverityText(remark.severity)).append(": ").append(RemarkText(remark));
    return line.append(" [").append(remark.rule->name).append("]");
}

}  // namespace quillory
