#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/Words.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Utf8.h>
#include <zorby/record/CommFormat.h>

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

    std::string_view Rest() const { return text.substr(kNumberEnd); }
};

// A code of the MARC character sets, or one of ISO 15924.
bool IsScript(std::string_view code) {
    constexpr std::array<std::string_view, 6> kScripts{"(3", "(B", "$1", "(N", "(S", "(2"};
    constexpr std::size_t kIso15924 = 4;
    return std::ranges::find(kScripts, code) != kScripts.end() ||
           (code.size() == kIso15924 && std::ranges::all_of(code, IsAsciiLetter));
}

bool IsRest(std::string_view rest) {
    if (rest.ends_with("/r")) rest.remove_suffix(2);
    return rest.empty() || (rest.front() == '/' && IsScript(rest.substr(1)));
}

struct ScriptRange {
    char32_t first;
    char32_t last;
    std::string_view code;
};

// The scripts that have a code of their own in $6, by blocks of Unicode.
constexpr auto kScriptRanges = std::to_array<ScriptRange>({
    {0x0370, 0x03FF, "(S"},
    {0x0400, 0x052F, "(N"},
    {0x0590, 0x05FF, "(2"},
    {0x0600, 0x077F, "(3"},
    {0x1100, 0x11FF, "$1"},
    {0x1F00, 0x1FFF, "(S"},
    {0x2E80, 0xA4CF, "$1"},
    {0xAC00, 0xD7FF, "$1"},
    {0xF900, 0xFAFF, "$1"},
    {0xFB1D, 0xFB4F, "(2"},
    {0xFB50, 0xFDFF, "(3"},
    {0xFE70, 0xFEFE, "(3"},
    {0x20000, 0x3FFFF, "$1"},
});

std::string_view ScriptOf(char32_t codePoint) {
    for (const ScriptRange& range : kScriptRanges) {
        if (range.first <= codePoint && codePoint <= range.last) return range.code;
    }
    return {};
}

std::string_view NameOf(std::string_view code) {
    if (code == "(S") return "Greek";
    if (code == "(N") return "Cyrillic";
    if (code == "(2") return "Hebrew";
    if (code == "(3") return "Arabic";
    if (code == "$1") return "Chinese, Japanese or Korean";
    return "Latin";
}

// In a record in UTF-8, the letters tell the script; of several, $6 may name any.
void CheckScript(const RecordInHand& record, const Link& link, RemarkSink& remarks) {
    const std::size_t at = link.text.find('/');
    if (at == link.text.npos || record.LeaderByte(zorby::kLeaderCharacterCode) != 'a') return;
    const std::string_view named = link.text.substr(at + 1, 2);
    if (NameOf(named) == "Latin" && named != "(B") return;
    std::string_view found;
    for (const auto& [code, text] : record.SubfieldsOf(*link.field)) {
        for (std::string_view rest = text; code != '6' && !rest.empty();) {
            const Utf8Char character = DecodeUtf8(rest);
            rest.remove_prefix(character.size);
            const std::string_view script = ScriptOf(character.codePoint);
            if (script == named) return;
            if (found.empty()) found = script;
        }
    }
    if (found.empty()) return;
    remarks.Add(RuleId::ScriptCodeWrong, link.field->GetPlace().Subfield('6'),
                std::string(named) + " (" + std::string(NameOf(named)) + ")",
                std::string(found) + " (" + std::string(NameOf(found)) + ")");
}

// Whatever stands behind the number: by that alone, partners find each other.
std::optional<Link> LinkOf(const CheckedField& field, std::string_view text) {
    const bool isNumbered = text.size() >= kNumberEnd && text[kTagSize] == '-' &&
                            IsDigit(text[kTagSize + 1]) && IsDigit(text[kTagSize + 2]) &&
                            !(text.size() > kNumberEnd && IsDigit(text[kNumberEnd]));
    const unsigned tag = TagNumber(text.substr(0, kTagSize));
    if (!isNumbered || tag == kNoTag) return std::nullopt;
    if (field.number != kLinkedTag && tag != kLinkedTag) return std::nullopt;
    return Link{&field, text, tag, text.substr(kTagSize + 1, 2)};
}

// What is wrong with a text that is no link, or that goes wrong behind the number, and what would
// be right.
void AddMalformed(const CheckedField& field, std::string_view text, const std::optional<Link>& link,
                  RemarkSink& remarks) {
    const std::string_view rest = link ? link->Rest() : "";
    std::string found = Shown(text) + " is no link";
    std::string right =
        std::string("it would be like ") + (field.number == kLinkedTag ? "245-01/$1" : "880-01");
    if (rest.starts_with('/')) {
        const std::string_view script = rest.substr(1, rest.find('/', 1) - 1);
        found = Shown(text) + " names the script " + Shown(script);
        right = "the codes of scripts are (3, (B, $1, (N, (S, (2 and those of ISO 15924";
        if (script.empty()) {
            found = Shown(text) + " has no code of a script after the stroke";
            right = "leave the stroke out, or give a code such as $1 or (N";
        } else if (IsScript(script)) {
            found = Shown(text) + " goes on after the script";
            right = "nothing comes there but /r, for text from right to left";
        }
    }
    remarks.Add(RuleId::LinkMalformed, field.GetPlace().Subfield('6'), std::move(found),
                std::move(right));
}

void CheckUnlinked(const RecordInHand& record, RemarkSink& remarks) {
    record.ForEachOf({kLinkedTag}, [&remarks](const CheckedField& field) {
        if (field.Has('6')) return;
        remarks.Add(RuleId::LinkMalformed, field.GetPlace(),
                    "the field lacks $6, which names the field that it belongs to",
                    "it would be like 245-01/$1");
    });
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

// $5 says whose field it is, $6 and $8 link it: none of them says anything by itself.
constexpr CodeSet kLinkCodes = CodeSet::Of("568");

}  // namespace

void CheckLinks(const RecordInHand& record, RemarkSink& remarks) {
    std::vector<Link> links;
    for (const CheckedField& field : record.Fields()) {
        if (!field.Has('6')) continue;
        const bool isOfTheFormat = field.IsData() && !field.rule->hasAnyCodes;
        if (!isOfTheFormat) continue;
        const bool isLinkAlone = field.codes.IsWithin(kLinkCodes) && !field.lacksText;
        if (isLinkAlone) remarks.Add(RuleId::FieldEmpty, field.GetPlace());
        for (const auto& [code, text] : record.SubfieldsOf(field)) {
            if (code != '6') continue;
            const auto link = LinkOf(field, text);
            if (link) links.push_back(*link);
            if (link && IsRest(link->Rest())) {
                CheckScript(record, *link, remarks);
            } else {
                AddMalformed(field, text, link, remarks);
            }
        }
    }
    CheckUnlinked(record, remarks);
    for (const Link& link : links) CheckPartner(link, links, remarks);
}

}  // namespace quillory
