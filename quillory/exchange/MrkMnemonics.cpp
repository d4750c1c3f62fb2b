#include <quillory/exchange/MrkMnemonics.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace quillory {
namespace {

struct MnemonicRow {
    std::string_view name;
    std::string_view bytes;
};

// In the order of their names. Letters with an accent are below. For what MARC-8 lacked when the
// table was made, the table has a letter or sign near it.
constexpr MnemonicRow kMnemonicRows[] = {
    {"AElig", "\xA5"},
    {"Acy", "A"},
    {"Bcy", "B"},
    {"CHcy", "Ch"},
    {"DJEcy", "\xA3"},
    {"DZEcy", "Dz"},
    {"DZHEcy", "D\xE9z"},
    {"Dagger", "|"},
    {"Dcy", "D"},
    {"Dstrok", "\xA3"},
    {"ETH", "\xA3"},
    {"Ecy",
     "\xE7"
     "E"},
    {"Fcy", "F"},
    {"GEcy", "G"},
    {"GHcy", "G"},
    {"GJEcy", "\xE2G"},
    {"Gcy", "G"},
    {"HARDcy", "\xB7"},
    {"Hcy", "H"},
    {"IEcy",
     "\xEBI\xEC"
     "E"},
    {"IJlig", "IJ"},
    {"IOcy", "\xEBI\xECO"},
    {"IYcy", "Y"},
    {"Icy", "I"},
    {"Iumlcy", "\xE8I"},
    {"JEcy", "J"},
    {"JIcy", "\xE8I"},
    {"Jcy", "\xE6I"},
    {"KHcy", "Kh"},
    {"KJEcy", "\xE2K"},
    {"Kcy", "K"},
    {"LJEcy", "Lj"},
    {"Lcy", "L"},
    {"Lstrok", "\xA1"},
    {"Mcy", "M"},
    {"NJEcy", "Nj"},
    {"Ncy", "N"},
    {"No", "No."},
    {"OElig", "\xA6"},
    {"Ocy", "O"},
    {"Ohorn", "\xAC"},
    {"Ostrok", "\xA2"},
    {"Pcy", "P"},
    {"Rcy", "R"},
    {"SHCHcy", "Shch"},
    {"SHcy", "Sh"},
    {"SOFTcy", "\xA7"},
    {"Scy", "S"},
    {"THORN", "\xA4"},
    {"TSHEcy",
     "\xE2"
     "C"},
    {"TScy", "\xEBT\xECS"},
    {"Tcy", "T"},
    {"Ubrevecy", "\xE6U"},
    {"Ucy", "U"},
    {"Uhorn", "\xAD"},
    {"Vcy", "V"},
    {"YAcy",
     "\xEBI\xEC"
     "A"},
    {"YEcy", "E"},
    {"YIcy", "I"},
    {"YUcy", "\xEBI\xECU"},
    {"Ycy", "Y"},
    {"ZHcy", "Zh"},
    {"ZHuacy", "\xEBZ\xECh"},
    {"Zcy", "Z"},
    {"acute", "\xE2"},
    {"acy", "a"},
    {"aelig", "\xB5"},
    {"agr", "a"},
    {"alif", "\xAE"},
    {"amp", "&"},
    {"apos", "'"},
    {"arab", "(3"},
    {"ast", "*"},
    {"asuper", "a"},
    {"ayn", "\xB0"},
    {"bcy", "b"},
    {"bgr", "b"},
    {"breve", "\xE6"},
    {"breveb", "\xF9"},
    {"brvbar", "|"},
    {"bsol", "\\"},
    {"bull", "*"},
    {"candra", "\xEF"},
    {"caron", "\xE9"},
    {"cedil", "\xF0"},
    {"cent", "c"},
    {"chcy", "ch"},
    {"circ", "\xE3"},
    {"circb", "\xF4"},
    {"cjk", "$1"},
    {"colon", ":"},
    {"comma", ","},
    {"commaa", "\xFE"},
    {"commab", "\xF7"},
    {"commat", "@"},
    {"copy", "\xC3"},
    {"curren", "*"},
    {"cyril", "(N"},
    {"dagger", "|"},
    {"dblac", "\xEE"},
    {"dbldotb", "\xF3"},
    {"dblunder", "\xF5"},
    {"dcy", "d"},
    {"deg", "\xC0"},
    {"diaer", "\xE8"},
    {"divide", "/"},
    {"djecy", "\xB3"},
    {"dollar", "$"},
    {"dot", "\xE7"},
    {"dotb", "\xF2"},
    {"dstrok", "\xB3"},
    {"dzecy", "dz"},
    {"dzhecy", "d\xE9z"},
    {"ecy",
     "\xE7"
     "e"},
    {"equals", "="},
    {"esc", "\x1B"},
    {"eth", "\xBA"},
    {"excl", "!"},
    {"fcy", "f"},
    {"flat", "\xA9"},
    {"fnof", "f"},
    {"frac12", "1/2"},
    {"frac14", "1/4"},
    {"frac34", "3/4"},
    {"gcy", "g"},
    {"gecy", "g"},
    {"ggr", "g"},
    {"ghcy", "g"},
    {"gjecy", "\xE2g"},
    {"grave", "\xE1"},
    {"greek", "g"},
    {"gs", "\x1D"},
    {"gt", ">"},
    {"hardcy", "\xB7"},
    {"hardsign", "\xB7"},
    {"hcy", "h"},
    {"hebrew", "(2"},
    {"hellip", "..."},
    {"hooka", "\xE0"},
    {"hookl", "\xF7"},
    {"hookr", "\xF1"},
    {"hyphen", "-"},
    {"icy", "i"},
    {"iecy",
     "\xEBi\xEC"
     "e"},
    {"iexcl", "\xC6"},
    {"ijlig", "ij"},
    {"inodot", "\xB8"},
    {"iocy", "\xEBi\xECo"},
    {"iquest", "\xC5"},
    {"iumlcy", "\xE8i"},
    {"iycy", "y"},
    {"jcy", "\xE6i"},
    {"jecy", "j"},
    {"jicy", "\xE8i"},
    {"joiner", "\x8D"},
    {"kcy", "k"},
    {"khcy", "kh"},
    {"kjecy", "\xE2k"},
    {"laquo", "\""},
    {"latin", "(B"},
    {"lcub", "{"},
    {"lcy", "l"},
    {"ldbltil", "\xFA"},
    {"ldquo", "\""},
    {"ljecy", "lj"},
    {"llig", "\xEB"},
    {"lpar", "("},
    {"lsqb", "["},
    {"lsquo", "'"},
    {"lsquor", "'"},
    {"lstrok", "\xB1"},
    {"lt", "<"},
    {"macr", "\xE5"},
    {"mcy", "m"},
    {"mdash", "--"},
    {"middot", "\xA8"},
    {"mlPrime", "\xB7"},
    {"mllhring", "\xB0"},
    {"mlprime", "\xA7"},
    {"mlrhring", "\xAE"},
    {"ncy", "n"},
    {"ndash", "--"},
    {"njecy", "nj"},
    {"nonjoin", "\x8E"},
    {"num", "#"},
    {"ocy", "o"},
    {"oelig", "\xB6"},
    {"ogon", "\xF1"},
    {"ohorn", "\xBC"},
    {"ordf", "a"},
    {"ordm", "o"},
    {"ostrok", "\xB2"},
    {"osuper", "o"},
    {"para", "|"},
    {"pcy", "p"},
    {"percnt", "%"},
    {"period", "."},
    {"phono", "\xC2"},
    {"pipe", "|"},
    {"plus", "+"},
    {"plusmn", "\xAB"},
    {"pound", "\xB9"},
    {"quest", "?"},
    {"quot", "\""},
    {"raquo", "\""},
    {"rcedil", "\xF8"},
    {"rcommaa", "\xED"},
    {"rcub", "}"},
    {"rcy", "r"},
    {"rdbltil", "\xFB"},
    {"rdquofh", "\""},
    {"rdquor", "\""},
    {"reg", "\xAA"},
    {"ring", "\xEA"},
    {"ringb", "\xF4"},
    {"rlig", "\xEC"},
    {"rpar", ")"},
    {"rs", "\x1E"},
    {"rsqb", "]"},
    {"rsquo", "'"},
    {"rsquor", "'"},
    {"scriptl", "\xC1"},
    {"scy", "s"},
    {"sect", "|"},
    {"semi", ";"},
    {"sharp", "\xC4"},
    {"shchcy", "shch"},
    {"shcy", "sh"},
    {"shy", "-"},
    {"softcy", "\xA7"},
    {"softsign", "\xA7"},
    {"sol", "/"},
    {"space", " "},
    {"spcirc", "^"},
    {"spgrave", "`"},
    {"sptilde", "~"},
    {"spundscr", "_"},
    {"squf", "|"},
    {"sub", "b"},
    {"sup1", "\x1Bp1\x1Bs"},
    {"sup2", "\x1Bp2\x1Bs"},
    {"sup3", "\x1Bp3\x1Bs"},
    {"super", "p"},
    {"szlig", "ss"},
    {"tcy", "t"},
    {"thorn", "\xB4"},
    {"tilde", "\xE4"},
    {"times", "x"},
    {"trade", "(Tm)"},
    {"tscy", "\xEBt\xECs"},
    {"tshecy",
     "\xE2"
     "c"},
    {"ubrevecy", "\xE6u"},
    {"ucy", "u"},
    {"uhorn", "\xBD"},
    {"uml", "\xE8"},
    {"under", "\xF6"},
    {"us", "\x1F"},
    {"vcy", "v"},
    {"verbar", "|"},
    {"vlineb", "\xF2"},
    {"yacy",
     "\xEBi\xEC"
     "a"},
    {"ycy", "y"},
    {"yecy", "e"},
    {"yen", "Y"},
    {"yicy", "i"},
    {"yucy", "\xEBi\xECu"},
    {"zcy", "z"},
    {"zhcy", "zh"},
    {"zhuacy", "\xEBz\xECh"},
};
static_assert(std::ranges::is_sorted(kMnemonicRows, {}, &MnemonicRow::name));

// Letters with an accent are named by both: "eacute".
struct Accent {
    std::string_view name;
    char byte;  // stands before the letter
    std::string_view letters;
};

constexpr Accent kAccents[] = {
    {"acute", '\xE2', "AaCcEeIiLlNnOoRrSsUuYyZz"},
    {"breve", '\xE6', "Aa"},
    {"caron", '\xE9', "CcDdEeIiNnRrSsTtZz"},
    {"cedil", '\xF0', "Cc"},
    {"circ", '\xE3', "AaEeIiOoUu"},
    {"commab", '\xF7', "SsTt"},
    {"dblac", '\xEE', "OoUu"},
    {"dot", '\xE7', "IZz"},
    {"grave", '\xE1', "AaEeIiOoUu"},
    {"hookr", '\xF1', "Ee"},
    {"ogon", '\xF1', "AaEe"},
    {"ring", '\xEA', "AaUu"},
    {"tilde", '\xE4', "AaNnOo"},
    {"uml", '\xE8', "AaEeIiOoUu"},
};

// The names by which bytes are written, where a byte has several.
constexpr std::string_view kWritten[] = {"Dstrok",   "commab",   "dotb",     "dstrok",
                                         "hardsign", "mllhring", "mlrhring", "ogon",
                                         "ringb",    "softsign", "uml"};

bool IsPlainByte(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string AccentedBytes(std::string_view name) {
    for (const Accent& accent : kAccents) {
        if (name.substr(1) != accent.name || accent.letters.find(name[0]) == name.npos) continue;
        return {accent.byte, name[0]};
    }
    return {};
}

const MnemonicRow* RowOf(std::string_view bytes) {
    const MnemonicRow* first = nullptr;
    for (const MnemonicRow& row : kMnemonicRows) {
        if (row.bytes != bytes) continue;
        if (std::ranges::find(kWritten, row.name) != std::end(kWritten)) return &row;
        if (first == nullptr) first = &row;
    }
    return first;
}

}  // namespace

std::string MnemonicBytes(std::string_view name) {
    if (name.empty()) return {};
    if (name.size() == 1) return IsPlainByte(name[0]) ? std::string(name) : std::string();
    const auto* row = std::ranges::lower_bound(kMnemonicRows, name, {}, &MnemonicRow::name);
    if (row != std::end(kMnemonicRows) && row->name == name) return std::string(row->bytes);
    const std::size_t high = kHexDigits.find(name[0]);
    const std::size_t low = kHexDigits.find(name[1]);
    if (name.size() == 2 && high != name.npos && low != name.npos) {
        return {static_cast<char>(high * 16 + low)};
    }
    return AccentedBytes(name);
}

std::string MnemonicOf(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    static const auto kNames = [] {
        std::array<std::string, 256> names;
        for (std::size_t i = 0; i < names.size(); ++i) {
            const char one = static_cast<char>(i);
            const MnemonicRow* row = RowOf({&one, 1});
            names[i] = row != nullptr ? std::string(row->name)
                                      : std::string{kHexDigits[i / 16], kHexDigits[i % 16]};
        }
        return names;
    }();
    return kNames[value];
}

}  // namespace quillory
