#include <zorby/elements/OffsetTables.h>

#include <gtest/gtest.h>

#include <map>
#include <vector>

using namespace zorby;

namespace {

CFType Type(int number) {
    return static_cast<CFType>(number);
}

CFPart Part(int number) {
    return static_cast<CFPart>(number);
}

const tagCFOFFSETENTRY* TableOf(CFType type) {
    if (type == CFLdr) return kLeaderOffsets;
    if (type == CF008Standard) return OffsetsFor008(CF006Books);
    if (type == CF008Alternative) return OffsetsFor008(CF006AltDate);
    return type < CF007None ? OffsetsFor006Type(type) : OffsetsFor007Type(type);
}

std::vector<tagCFOFFSETENTRY> Rows(CFType type) {
    std::vector<tagCFOFFSETENTRY> rows;
    for (const auto* row = TableOf(type); row->part != CFPEndOfTable; ++row) rows.push_back(*row);
    return rows;
}

constexpr CFType kWithTable[] = {
    CFLdr,
    CF008Standard,
    CF008Alternative,
    CF006Books,
    CF006ComputerFile,
    CF006Map,
    CF006Mixed,
    CF006MusicSound,
    CF006Continuing,
    CF006Visual,
    CF007Map,
    CF007Electronic,
    CF007Globe,
    CF007Projected,
    CF007Microform,
    CF007Nonprojected,
    CF007MotionPicture,
    CF007Sound,
    CF007Text,
    CF007Video,
    CF007Unspecified,
    CF007TenByte,
    CF007RemoteSensing,
    CF007Tactile,
    CF007NotatedMusic,
    CF007Kit,
};

TEST(OffsetTables, EveryRowIsFoundInItsOwnTypeAlone) {
    for (const CFType type : kWithTable) {
        for (const tagCFOFFSETENTRY& row : Rows(type)) {
            if (row.part == CFPUndefined) continue;
            SCOPED_TRACE(row.part);
            EXPECT_EQ(TypeOfPart(row.part), type);
            EXPECT_EQ(WidthOfPart(row.part), row.Width());
            EXPECT_EQ(FindOffset(TableOf(type), row.part)->first, row.first);
            for (const CFType other : kWithTable) {
                EXPECT_EQ(PartBelongsTo(row.part, other, ByteZero::Included), other == type)
                    << other;
            }
        }
    }
}

// Last position of each format, in bytes; the forms of 006 and 007 leave no gap.
TEST(OffsetTables, TablesCoverTheirFormsWithoutAGap) {
    const std::map<CFType, int> ends = {
        {CFLdr, 23},           {CF008Alternative, 14}, {CF007Map, 7},
        {CF007Electronic, 13}, {CF007Globe, 5},        {CF007Projected, 8},
        {CF007Microform, 12},  {CF007Nonprojected, 5}, {CF007MotionPicture, 22},
        {CF007Sound, 13},      {CF007Text, 1},         {CF007Video, 8},
        {CF007Unspecified, 1}, {CF007TenByte, 9},      {CF007RemoteSensing, 10},
        {CF007Tactile, 9},     {CF007NotatedMusic, 1}, {CF007Kit, 1}};
    for (const CFType type : kWithTable) {
        if (type == CF008Standard) continue;  // leaves 18 to 34 to the 006 form
        SCOPED_TRACE(type);
        const int end = type >= CF006None && type < CF007None ? 17 : ends.at(type);
        std::vector<bool> covered(static_cast<std::size_t>(end) + 1);
        for (const tagCFOFFSETENTRY& row : Rows(type)) {
            for (int i = row.first; i <= row.last; ++i) {
                covered.at(static_cast<std::size_t>(i)) = true;
            }
        }
        EXPECT_EQ(covered, std::vector<bool>(covered.size(), true));
    }
}

TEST(OffsetTables, OverlappingRowsAreTheSameBytesUnderOtherLists) {
    for (const auto& [first, second] :
         {std::pair{CFPLdrTypeOfRecord, CFPLdrTypeOfRecordSound},
          {CFPLdrBibliographicLevel, CFPLdrBibliographicLevelSerial},
          {CFP006VisualTypeOfMaterial, CFP006VisualTypeOfMaterial3DObject},
          {CFP007VideoFormatOther, CFP007VideoFormatDisc}}) {
        const auto* table = TableOf(TypeOfPart(first));
        const int position = FindOffset(table, first)->first;
        for (int part = first; part <= second; ++part) {
            EXPECT_EQ(FindOffset(table, Part(part))->first, position) << part;
        }
    }
}

TEST(OffsetTables, PartsOfNoTable) {
    for (const int part : {-2, -1, 0, 23, 99, 100, 102, 110, 209, 312, 999, 1001 + 99, 2601, 2705,
                           2801, 100000, INT32_MAX, INT32_MIN}) {
        SCOPED_TRACE(part);
        EXPECT_EQ(WidthOfPart(Part(part)), 0);
        for (const CFType type : kWithTable) {
            EXPECT_EQ(FindOffset(TableOf(type), Part(part)), nullptr) << type;
            const bool isDateGroup = part == CFP008DateGroup && type == CF008Standard;
            EXPECT_EQ(PartBelongsTo(Part(part), type, ByteZero::Included), isDateGroup) << type;
        }
    }
    EXPECT_EQ(WidthOfPart(CFPBlock4), 8);
    EXPECT_TRUE(PartBelongsTo(CFPBlock1, CFBlock, ByteZero::Included));
}

TEST(OffsetTables, OtherTypesFallBack) {
    EXPECT_EQ(OffsetsFor006Type(CF006None), nullptr);
    EXPECT_EQ(OffsetsFor007Type(CF007None), nullptr);
    for (const int type : {-1, 0, 1, 3, 601, 609, 610, 702, 99999}) {
        EXPECT_EQ(OffsetsFor006Type(Type(type)), OffsetsFor006Type(CF006Books)) << type;
    }
    for (const int type : {-1, 0, 1, 602, 701, 718, 99999}) {
        EXPECT_EQ(OffsetsFor007Type(Type(type)), OffsetsFor007Type(CF007Unspecified)) << type;
    }
    for (const CFType type : {CF006None, CF006Unknown, CF006AltDate, CF007None, CF007Unknown}) {
        SCOPED_TRACE(type);
        EXPECT_FALSE(PartBelongsTo(CFP006BooksAudience, type, ByteZero::Included));
        EXPECT_FALSE(PartBelongsTo(CFP007UnspecifiedSMD, type, ByteZero::Included));
    }
    EXPECT_EQ(FindOffset(nullptr, CFPLdrRecordStatus), nullptr);
}

// Byte zero is left out of the forms of the 006 by one element each; the second of the sound
// recordings stays.
TEST(OffsetTables, ByteZero) {
    for (const CFType type : kWithTable) {
        for (const tagCFOFFSETENTRY& row : Rows(type)) {
            if (row.part == CFPUndefined) continue;
            const bool is006 = type >= CF006None && type < CF007None;
            const bool isLeftOut =
                is006 && row.first == 0 && row.part != CFP006MusicSoundTypeOfRecordSound;
            EXPECT_EQ(PartBelongsTo(row.part, type, ByteZero::Excluded), !isLeftOut) << row.part;
        }
    }
}

}  // namespace
