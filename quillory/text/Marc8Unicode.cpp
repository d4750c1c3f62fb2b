#include <quillory/text/DefaultSets.h>
#include <quillory/text/Marc8Unicode.h>

#include <algorithm>
#include <array>
#include <span>

namespace quillory {
namespace {

// Letters that are kept at most; those of a library fit in many times over.
constexpr std::size_t kMostKept = 50000;

template <class Map>
void KeepWithinLimit(Map& map) {
    if (map.size() >= kMostKept) map.clear();
}

// A unit that is too long for a number, a letter under many diacritics, is not kept.
bool IsKept(std::string_view unit) {
    return unit.size() < sizeof(std::uint64_t);
}

std::uint64_t KeyOf(std::string_view unit) {
    std::uint64_t key = unit.size();
    for (const char c : unit) key = key << 8 | static_cast<unsigned char>(c);
    return key;
}

constexpr char32_t kHorn = 0x031B;

// The horn is no diacritic of MARC-8, but four letters have it.
char32_t WithHorn(char32_t letter) {
    constexpr std::u32string_view kPlain = U"oOuU";
    constexpr std::u32string_view kHorned = U"\u01A1\u01A0\u01B0\u01AF";
    const std::size_t at = kPlain.find(letter);
    return at == kPlain.npos ? 0 : kHorned[at];
}

// The letter taken apart, as far as MARC-8 takes letters apart.
std::string TakenApart(std::string_view letter) {
    const std::string parts = Normalized(letter, kNormalFormD);
    const std::string_view rest = parts;
    std::string apart;
    const Utf8Char base = DecodeUtf8(rest);
    bool horned = false;
    for (std::size_t at = base.size; at < rest.size();) {
        const Utf8Char mark = DecodeUtf8(rest.substr(at));
        const bool isHorn = mark.codePoint == kHorn && WithHorn(base.codePoint) != 0;
        horned = horned || isHorn;
        if (!isHorn) apart.append(rest.substr(at, mark.size));
        at += mark.size;
    }
    std::string whole;
    AppendUtf8(horned ? WithHorn(base.codePoint) : base.codePoint, whole);
    return whole + apart;
}

std::vector<char32_t> CodePoints(std::string_view utf8) {
    std::vector<char32_t> codePoints;
    while (!utf8.empty()) {
        const Utf8Char c = DecodeUtf8(utf8);
        codePoints.push_back(c.codePoint);
        utf8.remove_prefix(c.size);
    }
    return codePoints;
}

}  // namespace

Marc8Unicode::Marc8Unicode(NormalForm form)
    : form_(form),
      toUtf8_("UTF-8", "MARC-8"),
      toMarc8_("MARC-8", "UTF-8"),
      defaultSets_(SetsFor({})) {}

Marc8Unicode::Sets& Marc8Unicode::SetsFor(const std::string& escapes) {
    Sets& sets = sets_[escapes];
    sets.escapes = escapes;
    return sets;
}

const Marc8Unicode::Decoded* Marc8Unicode::Sets::Find(std::string_view unit) const {
    if (!IsKept(unit)) return nullptr;
    const auto known = units.find(KeyOf(unit));
    return known == units.end() ? nullptr : &known->second;
}

const Marc8Unicode::Decoded& Marc8Unicode::Decode(Sets& sets, const std::string& unit) {
    if (const Decoded* kept = sets.Find(unit)) return *kept;
    KeepWithinLimit(sets.units);
    Decoded& decoded = IsKept(unit) ? sets.units[KeyOf(unit)] : notKept_;
    const std::string marc8 = sets.escapes + unit;
    const auto known = DecodeInDefaultSets(marc8, decoded.utf8);
    decoded.outcome = known ? *known : toUtf8_.Convert(marc8, decoded.utf8);
    decoded.utf8 = Normalized(decoded.utf8, form_);
    return decoded;
}

// libyaz passes over some characters without a word: what does not come back is not there.
bool Marc8Unicode::EncodeWhole(std::string_view letter, Encoded& encoded) {
    std::string marc8;
    if (toMarc8_.Convert(std::string(letter), marc8) != YazConverter::kDone) return false;
    std::string back;
    Losses losses;
    AppendUtf8(marc8, back, losses);
    if (!losses.Empty() || Normalized(back, kNormalFormC) != Normalized(letter, kNormalFormC)) {
        return false;
    }
    if (SplitSet(marc8, encoded)) return true;
    encoded = {};
    return false;
}

// As many of the code points as MARC-8 has, from the first on; the others are to be written out. No
// letter of a language has many marks, so of a heap of them only the first few are tried.
bool Marc8Unicode::EncodeFirst(std::string_view letter, Encoded& encoded) {
    constexpr std::size_t kMostTried = 32;
    const std::vector<char32_t> codePoints = CodePoints(letter);
    for (std::size_t count = std::min(codePoints.size(), kMostTried); count > 0; --count) {
        std::string part;
        for (const char32_t c : std::span(codePoints).first(count)) {
            quillory::AppendUtf8(c, part);
        }
        if (!EncodeWhole(part, encoded)) continue;
        const auto rest = std::span(codePoints).subspan(count);
        encoded.writtenOut.assign(rest.begin(), rest.end());
        return true;
    }
    return false;
}

Marc8Unicode::Encoded Marc8Unicode::EncodeAfresh(std::string_view given) {
    Encoded encoded;
    const std::string letter = Normalized(given, kNormalFormC);
    const std::string apart = TakenApart(letter);
    if (EncodeWhole(letter, encoded) || EncodeWhole(apart, encoded)) return encoded;
    if (!EncodeFirst(letter, encoded) && !EncodeFirst(apart, encoded)) {
        encoded.writtenOut = CodePoints(letter);
    }
    return encoded;
}

const Marc8Unicode::Encoded& Marc8Unicode::Encode(std::string_view letter) {
    const std::string key(letter);
    const auto known = encoded_.find(key);
    if (known != encoded_.end()) return known->second;
    KeepWithinLimit(encoded_);
    return encoded_[key] = EncodeAfresh(letter);
}

}  // namespace quillory
