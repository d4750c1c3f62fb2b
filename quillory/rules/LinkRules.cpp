#include <quillory/rules/RuleFamilies.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace quillory {
namespace {

constexpr unsigned kLinkedTag = 880;
constexpr std::size_t kNumberEnd = 6;  // "880-01"

// What $6 says: "245-01/(2/r".
struct Link {
    const CheckedField* field = nullptr;
    std::string_view text;
    unsigned tag = 0;  // of the partner
    std::string_view number;
};

bool IsDigit(char c) {
    return '0' <= c && c <= '9';
}

bool IsLetter(char c) {
    return 'a' <= (c | 0x20) && (c | 0x20) <= 'z';
}

// A code of the MARC character sets, or one of ISO 15924.
bool IsScript(std::string_view code) {
    constexpr std::array<std::string_view, 6> kScripts{"(3", "(B", "$1", "(N", "(S", "(2"};
    constexpr std::size_t kIso15924 = 4;
    return std::ranges::find(kScripts, code) != kScripts.end() ||
           (code.size() == kIso15924 && std::ranges::all_of(code, IsLetter));
}

bool IsRest(std::string_view rest) {
    if (rest.ends_with("/r")) rest.remove_suffix(2);
    return rest.empty() || (rest.front() == '/' && IsScript(rest.substr(1)));
}

std::optional<Link> LinkOf(const CheckedField& field, std::string_view text) {
    const bool isNumbered = text.size() >= kNumberEnd && text[kTagSize] == '-' &&
                            IsDigit(text[kTagSize + 1]) && IsDigit(text[kTagSize + 2]);
    const unsigned tag = TagNumber(text.substr(0, kTagSize));
    if (!isNumbered || tag == kNoTag || !IsRest(text.substr(kNumberEnd))) return std::nullopt;
    if (field.number != kLinkedTag && tag != kLinkedTag) return std::nullopt;
    return Link{&field, text, tag, text.substr(kTagSize + 1, 2)};
}

bool ArePartners(const Link& one, const Link& other) {
    return one.field->number == other.tag && one.tag == other.field->number &&
           one.number == other.number;
}

void CheckPartner(const Link& link, const std::vector<Link>& links, RemarkSink& remarks) {
    const bool needsPartner = link.number != "00";
    const auto isPartner = [&link](const Link& other) { return ArePartners(link, other); };
    if (!needsPartner || std::ranges::any_of(links, isPartner)) return;
    remarks.Add(RuleId::LinkWithoutPartner, link.field->GetPlace().Subfield('6'),
                std::string(link.text.substr(0, kNumberEnd)),
                "a field " + TagText(link.tag) + " with $6 " + TagText(link.field->number) + '-' +
                    std::string(link.number));
}

}  // namespace

void CheckLinks(const RecordInHand& record, RemarkSink& remarks) {
    std::vector<Link> links;
    for (const CheckedField& field : record.Fields()) {
        const bool isOfTheFormat = field.IsData() && !record.OwnRuleOf(field).hasAnyCodes;
        if (!isOfTheFormat) continue;
        for (const auto& [code, text] : record.SubfieldsOf(field)) {
            if (code != '6') continue;
            if (const auto link = LinkOf(field, text)) {
                links.push_back(*link);
            } else {
                remarks.Add(RuleId::LinkMalformed, field.GetPlace().Subfield('6'), Printable(text),
                            field.number == kLinkedTag ? "245-01/$1" : "880-01");
            }
        }
    }
    for (const Link& link : links) CheckPartner(link, links, remarks);
}

}  // namespace quillory
