#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/StandardNumbers.h>
#include <quillory/rules/Words.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Trimmed.h>
#include <quillory/text/Visible.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace quillory {
namespace {

bool IsMark(char c) {
    return c == ':' || c == ';' || c == ',' || c == '.';
}

// The number at the front of a text, and what comes after it.
struct Divided {
    std::string_view number;
    std::string_view rest;
};

Divided DivideIsbn(std::string_view text) {
    text = Trimmed(text);
    const std::string_view number = IsbnAtFront(text);
    return {number, Trimmed(text.substr(number.size()))};
}

void AddFault(RuleId rule, const Place& place, std::string_view number, std::string fault,
              RemarkSink& remarks) {
    if (!fault.empty()) remarks.Add(rule, place, Visible(number), std::move(fault));
}

// In other fields an ISBN stands alone; in 020 words may come after it.
void CheckIsbn(const Place& place, std::string_view text, RemarkSink& remarks) {
    const auto [number, rest] = DivideIsbn(text);
    AddFault(RuleId::IsbnInvalid, place, number.empty() ? text : number, FaultOfIsbn(number),
             remarks);
    // A mark may lead to the price.
    const bool hasWords = !std::ranges::all_of(rest, IsMark);
    if (hasWords && !number.empty()) {
        const std::string_view words = rest;
        remarks.Add(RuleId::IsbnWithText, place,
                    [words] { return RemarkWords{'"' + Visible(words) + '"'}; });
    }
}

// Where words come after a number of digits, which may begin with an M; the whole text otherwise.
Divided DivideWords(std::string_view text) {
    text = Trimmed(text);
    const std::size_t begin = text.starts_with('M') || text.starts_with('m') ? 1 : 0;
    const std::size_t end = begin + GroupsAtFront(text.substr(begin)).size();
    const std::string_view rest = text.substr(end);
    const std::string_view number = Trimmed(text.substr(0, end));
    const bool hasWords = rest.starts_with('(') || (!rest.empty() && IsAsciiLetter(rest.front()));
    return hasWords && number.size() > begin ? Divided{number, rest} : Divided{text, {}};
}

void CheckIssn(const Place& place, std::string_view text, RemarkSink& remarks) {
    text = Trimmed(text);
    if (text.starts_with("ISSN ")) text.remove_prefix(5);
    auto [number, words] = DivideWords(text);
    // Punctuation before the next subfield is no part of the number.
    while (!number.empty() && std::string_view(" ;:,.)=").find(number.back()) != text.npos) {
        number.remove_suffix(1);
    }
    std::string fault = FaultOfIssn(number);
    if (fault.empty() && !words.empty()) fault = Shown(words) + " is no part of an ISSN";
    AddFault(RuleId::IssnInvalid, place, number, std::move(fault), remarks);
}

void CheckStandardNumber(const CheckedField& field, std::string_view text, RemarkSink& remarks) {
    const Place place = field.GetPlace().Subfield('a');
    const auto [number, words] = DivideWords(text);
    std::string fault;
    switch (field.Indicator(1)) {
        case '1':
            fault = FaultOfUpc(number);
            break;
        case '2':
            fault = FaultOfIsmn(number);
            break;
        case '3':
            fault = FaultOfEan(number);
            break;
        default:
            return;
    }
    if (fault.empty() && !words.empty()) fault = "words such as " + Shown(words) + " go to $q";
    AddFault(RuleId::StandardNumberInvalid, place, number, std::move(fault), remarks);
}

bool IsSchemeSign(char c) {
    return ('a' <= (c | 0x20) && (c | 0x20) <= 'z') || ('0' <= c && c <= '9') || c == '+' ||
           c == '-' || c == '.';
}

// Addresses of these schemes name a server.
bool NamesServer(std::string_view scheme) {
    constexpr std::string_view kSchemes[] = {"http", "https", "ftp"};
    const auto isSame = [scheme](std::string_view other) {
        return std::ranges::equal(scheme, other, {}, LowerAscii);
    };
    return std::ranges::any_of(kSchemes, isSame);
}

// What follows the colon of the scheme. By RFC 3986 a port may lack its number, but in "//http:" a
// second scheme stands where the server belongs.
bool HasServer(std::string_view rest) {
    if (!rest.starts_with("//")) return false;
    rest.remove_prefix(2);
    const std::string_view server = rest.substr(0, rest.find_first_of("/?#"));
    return !server.empty() &&
           !(server.back() == ':' && NamesServer(server.substr(0, server.size() - 1)));
}

void CheckUrl(const Place& place, std::string_view text, RemarkSink& remarks) {
    const std::string_view url = Trimmed(text);
    const std::string_view scheme = url.substr(0, url.find(':'));
    const bool hasScheme =
        scheme.size() < url.size() && !scheme.empty() && std::ranges::all_of(scheme, IsSchemeSign);
    if (!hasScheme) {
        remarks.Add(RuleId::UrlMalformed, place, Visible(url),
                    "a URL begins with a scheme such as https://");
    } else if (NamesServer(scheme) && !HasServer(url.substr(scheme.size() + 1))) {
        remarks.Add(RuleId::UrlMalformed, place, Visible(url),
                    "the scheme is followed by :// and the name of a server");
    } else if (url.find_first_of(" \"<>") != url.npos) {
        remarks.Add(RuleId::UrlMalformed, place, Visible(url),
                    "a URL has no blanks, quotation marks or angle brackets");
    }
}

// Series, and links to other records.
constexpr bool HasIssnInX(unsigned tag) {
    constexpr unsigned kSeries[] = {440, 490, 800, 810, 811, 830};
    return std::ranges::find(kSeries, tag) != std::end(kSeries) || (760 <= tag && tag <= 787);
}

enum class NumberKind : std::uint8_t { None, Isbn, IsbnOfLink, Issn, Standard, Url };

NumberKind KindOf(unsigned tag, char code) {
    if (code == 'a') {
        if (tag == 20) return NumberKind::Isbn;
        if (tag == 24) return NumberKind::Standard;
    }
    const bool isOwnIssn = tag == 22 && (code == 'a' || code == 'l');
    if (isOwnIssn || (code == 'x' && HasIssnInX(tag))) return NumberKind::Issn;
    if (code == 'z' && 760 <= tag && tag <= 787) return NumberKind::IsbnOfLink;
    return tag == 856 && code == 'u' ? NumberKind::Url : NumberKind::None;
}

void CheckSubfield(const CheckedField& field, const SubfieldInHand& subfield, RemarkSink& remarks) {
    const auto [code, text] = subfield;
    const NumberKind kind = KindOf(field.number, code);
    if (kind == NumberKind::None || Trimmed(text).empty()) return;
    const Place place = field.GetPlace().Subfield(code);
    switch (kind) {
        case NumberKind::Isbn:
            return CheckIsbn(place, text, remarks);
        case NumberKind::IsbnOfLink:
            return AddFault(RuleId::IsbnInvalid, place, text, FaultOfIsbn(DivideIsbn(text).number),
                            remarks);
        case NumberKind::Issn:
            return CheckIssn(place, text, remarks);
        case NumberKind::Standard:
            return CheckStandardNumber(field, text, remarks);
        default:
            return CheckUrl(place, text, remarks);
    }
}

// Tags that mean the same in all formats.
constexpr bool IsSharedTag(unsigned tag) {
    return tag == 20 || tag == 22 || tag == 24 || tag == 856;
}

using TagSet = std::array<bool, kTags + 1>;

constexpr TagSet TagsThat(bool (*hasNumbers)(unsigned tag)) {
    TagSet tags{};
    for (unsigned tag = 0; tag < kTags; ++tag) tags[tag] = hasNumbers(tag);
    return tags;
}

constexpr TagSet kSharedTags = TagsThat(IsSharedTag);
constexpr TagSet kTagsWithNumbers =
    TagsThat([](unsigned tag) { return IsSharedTag(tag) || HasIssnInX(tag); });

void CheckFields(const RecordInHand& record, const TagSet& tags, RemarkSink& remarks) {
    for (const CheckedField& field : record.Fields()) {
        if (!tags[field.number]) continue;
        for (const SubfieldInHand& subfield : record.SubfieldsOf(field)) {
            CheckSubfield(field, subfield, remarks);
        }
    }
}

}  // namespace

void CheckNumbers(const RecordInHand& record, RemarkSink& remarks) {
    CheckFields(record, kTagsWithNumbers, remarks);
}

void CheckSharedNumbers(const RecordInHand& record, RemarkSink& remarks) {
    CheckFields(record, kSharedTags, remarks);
}

}  // namespace quillory
