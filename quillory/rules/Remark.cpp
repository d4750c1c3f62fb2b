#include <quillory/rules/Remark.h>

namespace quillory {
namespace {

void Fill(std::string& words, std::string_view slot, std::string_view text) {
    const std::size_t at = words.find(slot);
    if (at != words.npos) words.replace(at, slot.size(), text);
}

}  // namespace

std::string RemarkText(const Remark& remark) {
    std::string words(remark.rule->words);
    Fill(words, "{allowed}", remark.allowed);
    Fill(words, "{found}", remark.found);
    return words;
}

std::string RemarkLine(const Remark& remark) {
    const std::string place = PlaceText(remark.place);
    std::string line = place.empty() ? place : place + ": ";
    line.append(SeverityText(remark.severity)).append(": ").append(RemarkText(remark));
    return line.append(" [").append(remark.rule->name).append("]");
}

}  // namespace quillory
