#include <zorby/charset/Convert.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/detail/Engine.h>

#include <array>
#include <cstring>

namespace zorby {
namespace {

constexpr CodeMap DisplayMap(int type, int keepControls) {
    CodeMap map{};
    for (std::size_t code = 0; code < map.size(); ++code) {
        map[code] =
            static_cast<char>(DisplayCode(static_cast<unsigned char>(code), type, keepControls));
    }
    return map;
}

constexpr std::array<std::array<CodeMap, 2>, 3> kDisplayMaps{{
    {DisplayMap(kDisplayNone, 0), DisplayMap(kDisplayNone, 1)},
    {DisplayMap(kDisplayANSI, 0), DisplayMap(kDisplayANSI, 1)},
    {DisplayMap(kDisplaySIL, 0), DisplayMap(kDisplaySIL, 1)},
}};

const CodeMap& MapFor(int type, int keepControls) {
    const bool known = type == kDisplayANSI || type == kDisplaySIL;
    return kDisplayMaps[static_cast<std::size_t>(known ? type : kDisplayNone)]
                       [keepControls != 0 ? 1 : 0];
}

constexpr CodeMap NonDiacriticMap() {
    CodeMap map{};
    for (std::size_t i = 0; i < map.size(); ++i) {
        const auto code = static_cast<unsigned char>(i);
        const unsigned char letter = kKeyTable[i].sort1;
        if (IsPrintableASCII(code)) {
            map[i] = static_cast<char>(code);
        } else {
            map[i] = IsASCIILetter(letter) ? static_cast<char>(letter) : ' ';
        }
    }
    return map;
}

constexpr CodeMap kNonDiacritic = NonDiacriticMap();

void CopyMapped(const char* source, char* target, const CodeMap& map) {
    const std::size_t length = std::strlen(source);
    for (std::size_t i = 0; i < length; ++i) {
        target[i] = map[static_cast<unsigned char>(source[i])];
    }
    target[length] = 0;
}

}  // namespace

void CSQmToDisplay(const char* source, char* target, int type, int keepControls) {
    CSResetAlphabet();
    CopyMapped(source, target, MapFor(type, keepControls));
}

void CSQmToNonDiacritic(const char* source, char* target) {
    CSResetAlphabet();
    CopyMapped(source, target, kNonDiacritic);
}

unsigned char CSDotInMiddleOfLine() {
    constexpr unsigned char kDotInMiddle = 0x87;
    return DisplayCode(kDotInMiddle, CSGetDisplayType(), 0);
}

}  // namespace zorby
