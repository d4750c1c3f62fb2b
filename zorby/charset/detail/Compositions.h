#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace zorby {

// A character that Unicode takes apart into a letter and a mark, or into another character alone.
struct Composition {
    char16_t codePoint;
    char16_t letter;
    char16_t mark;  // 0 if there is none

    constexpr bool operator<(const Composition& other) const { return codePoint < other.codePoint; }
};

// The canonical decompositions of the Unicode Character Database, version 14, that lead to
// characters of the `Qm` code, by mark: each letter and then the composed character. What the code
// has precomposed is left out, and so are letters with two marks, unless one of them is a hook.
struct CompositionRow {
    char16_t mark;
    std::u16string_view pairs;
};

inline constexpr CompositionRow kCompositionRows[] = {
    // clang-format off
    {0, u"K\u212A\u00C5\u212B;\u037E`\u1FEF\u00B7\u0387\u02B9\u0374"
        u"\u0300\u0340\u0301\u0341\u0313\u0343"},
    {0x0300, u"IÌNǸOÒWẀYỲiìnǹoòwẁyỳƠỜơờƯỪưừ"},
    {0x0301, u"CĆGǴKḰLĹMḾNŃPṔRŔSŚWẂYÝZŹcćgǵkḱlĺmḿnńpṕrŕsśwẃyýzźÆǼØǾæǽøǿƠỚơớƯỨưứ"},
    {0x0302, u"CĈEÊGĜHĤJĴSŜUÛWŴYŶZẐcĉeêgĝhĥjĵsŝuûwŵyŷzẑ"},
    {0x0303, u"AÃEẼIĨOÕUŨVṼYỸaãeẽiĩoõuũvṽyỹƠỠơỡƯỮưữ"},
    {0x0304, u"AĀEĒGḠIĪOŌUŪYȲaāeēgḡiīoōuūyȳÆǢæǣ"},
    {0x0306, u"AĂEĔGĞIĬOŎUŬaăeĕgğiĭoŏuŭ"},
    {0x0307, u"AȦBḂCĊDḊEĖFḞGĠHḢIİMṀNṄOȮPṖRṘSṠTṪWẆXẊYẎZŻaȧbḃcċdḋeėfḟgġhḣmṁnṅoȯpṗ"
              u"rṙsṡtṫwẇxẋyẏzż"},
    {0x0308, u"AÄHḦWẄXẌYŸaähḧtẗwẅxẍyÿ"},
    {0x0309, u"AẢEẺIỈOỎUỦYỶaảeẻiỉoỏuủyỷÂẨÊỂÔỔâẩêểôổĂẲăẳƠỞơởƯỬưử"},
    {0x030A, u"AÅUŮaåuůwẘyẙ"},
    {0x030B, u"OŐUŰoőuű"},
    {0x030C, u"AǍCČDĎEĚGǦHȞIǏKǨLĽNŇOǑRŘSŠTŤUǓZŽaǎcčdďeěgǧhȟiǐjǰkǩlľnňoǒrřsštťuǔ"
              u"zž"},
    {0x0323, u"AẠBḄDḌEẸHḤIỊKḲLḶMṂNṆOỌRṚSṢTṬUỤVṾWẈYỴZẒaạbḅdḍeẹhḥiịkḳlḷmṃnṇoọrṛsṣ"
              u"tṭuụvṿwẉyỵzẓƠỢơợƯỰưự"},
    {0x0324, u"UṲuṳ"},
    {0x0325, u"AḀaḁ"},
    {0x0326, u"SȘTȚsștț"},
    {0x0327, u"DḐEȨGĢHḨKĶLĻNŅRŖSŞTŢdḑeȩgģhḩkķlļnņrŗsştţ"},
    {0x0328, u"AĄEĘIĮOǪUŲaąeęiįoǫuų"},
    {0x032E, u"HḪhḫ"},
    // clang-format on
};

constexpr std::size_t CountCompositions() {
    std::size_t count = 0;
    for (const CompositionRow& row : kCompositionRows) count += row.pairs.size() / 2;
    return count;
}

constexpr auto SortedCompositions() {
    std::array<Composition, CountCompositions()> all{};
    std::size_t at = 0;
    for (const CompositionRow& row : kCompositionRows) {
        for (std::size_t i = 0; i + 1 < row.pairs.size(); i += 2) {
            all[at++] = {row.pairs[i + 1], row.pairs[i], row.mark};
        }
    }
    std::sort(all.begin(), all.end());
    return all;
}

}  // namespace zorby
