#include <zorby/editing/PaletteTable.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace zorby {

namespace {

// Positions of a strip side by side, from the left edge of a row or from a column of it.
struct PaletteRun {
    int row;
    int column;
    int strip;
    int first;
    int last;
};

constexpr PaletteRun kRuns[] = {
    {0, 0, 198, 1, 8},     // a
    {1, 0, 198, 11, 18},   // e
    {2, 0, 198, 19, 26},   // i
    {3, 0, 198, 29, 36},   // o
    {4, 0, 198, 37, 44},   // u
    {5, 0, 198, 9, 10},    // c with cedilla
    {5, 2, 198, 27, 28},   // n with tilde
    {6, 0, 200, 1, 14},    // diacritics
    {7, 0, 200, 15, 28},   // diacritics
    {8, 0, 201, 1, 14},    // special letters and symbols
    {9, 0, 201, 15, 28},   // special letters and symbols
    {10, 0, 201, 29, 39},  // special letters and symbols
    {11, 0, 202, 1, 14},   // subscripts
    {12, 0, 202, 15, 28},  // superscripts
};

// Letters with diacritics.
constexpr unsigned kStrip198[] = {
    10222, 10223, 10224, 10225, 10226, 10227, 10260, 10261, 10228, 10229, 10230,
    10231, 10256, 10257, 10232, 10233, 10234, 10235, 10236, 10237, 10238, 10239,
    10262, 10263, 10240, 10241, 10242, 10243, 10244, 10245, 10246, 10247, 10264,
    10265, 10248, 10249, 10250, 10251, 10258, 10259, 10252, 10253, 10254, 10255,
};
// Diacritics.
constexpr unsigned kStrip200[] = {
    10164, 10176, 10168, 10177, 10178, 10186, 10172, 10182, 10165, 10169,
    10180, 10181, 10163, 10171, 10190, 10175, 10185, 10179, 10173, 10174,
    10167, 10166, 10188, 10189, 10184, 10183, 10170, 10187,
};
// Special letters and symbols.
constexpr unsigned kStrip201[] = {
    10147, 10132, 10266, 10191, 10141, 10142, 10192, 10151, 10158, 10145, 10130, 10155, 10135,
    10152, 10150, 10161, 10193, 10149, 10156, 10143, 10128, 10136, 10159, 10148, 10133, 10153,
    10139, 10144, 10129, 10157, 10138, 10162, 10160, 10137, 10134, 10146, 10131, 10154, 10140,
};
// Subscripts and superscripts.
constexpr unsigned kStrip202[] = {
    10194, 10195, 10196, 10197, 10198, 10199, 10200, 10201, 10202, 10203,
    10204, 10205, 10206, 10207, 10208, 10209, 10210, 10211, 10212, 10213,
    10214, 10215, 10216, 10217, 10218, 10219, 10220, 10221,
};

std::span<const unsigned> StripOf(int strip) {
    switch (strip) {
        case 198:
            return kStrip198;
        case 200:
            return kStrip200;
        case 201:
            return kStrip201;
        case 202:
            return kStrip202;
        default:
            return {};
    }
}

constexpr unsigned kFirstOneByte = 10128;
constexpr unsigned kFirstTwoBytes = 10256;
constexpr unsigned kLastTwoBytes = 10266;
constexpr unsigned kIdOfCode = 10000;

// Letters that exist only with a diacritic of their own byte, from kFirstTwoBytes on.
constexpr std::array kTwoBytes = {"e\xA5", "E\xA5", "u\xA5", "U\xA5", "a\xAA", "A\xAA",
                                  "i\xA3", "I\xA3", "o\xA3", "O\xA3", "A\xAC"};

}  // namespace

PaletteCell PaletteCellAt(int column, int row) {
    const auto* const run = std::ranges::find_if(kRuns, [column, row](const PaletteRun& candidate) {
        const int last = candidate.column + candidate.last - candidate.first;
        return candidate.row == row && candidate.column <= column && column <= last;
    });
    if (run == std::end(kRuns)) return {};
    return {run->strip, run->first + column - run->column};
}

unsigned PaletteId(PaletteCell cell) {
    const std::span<const unsigned> strip = StripOf(cell.strip);
    const bool isThere = 0 < cell.position && cell.position <= static_cast<int>(strip.size());
    return isThere ? strip[static_cast<std::size_t>(cell.position) - 1] : 0;
}

std::string PaletteText(unsigned id) {
    if (kFirstOneByte <= id && id < kFirstTwoBytes) return {static_cast<char>(id - kIdOfCode)};
    if (kFirstTwoBytes <= id && id <= kLastTwoBytes) return kTwoBytes[id - kFirstTwoBytes];
    return "  ";
}

}  // namespace zorby
