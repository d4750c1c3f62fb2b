#include <zorby/controlfields/MenuData.h>
#include <zorby/elements/CFType.h>
#include <zorby/elements/OffsetTables.h>
#include <zorby/layouts/DialogLayout.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace zorby;

namespace {

constexpr CFPart kLeaderAndGeneral[] = {
    CFP008TypeOfDate,       CFP008PlaceOfPublication, CFP008Language,      CFP008ModifiedRecord,
    CFP008CatalogingSource, CFPLdrRecordStatus,       CFPLdrTypeOfControl, CFPLdrEncodingLevel,
    CFPLdrDescriptiveForm,  CFPLdrMultipartLevel,
};

// The formats of a material, and how many rows its forms have.
struct Material {
    MaterialType type;
    CFType type006;
    CFType type007;
    int full;
    int additional;
};

constexpr Material kMaterials[] = {
    {MTBook, CF006Books, CF007Microform, 30, 19},
    {MTComputerFile, CF006ComputerFile, CF007Electronic, 23, 12},
    {MTComputerFileDisk, CF006ComputerFile, CF007Electronic, 24, 13},
    {MTComputerFileOther, CF006ComputerFile, CF007Electronic, 25, 14},
    {MTGlobe, CF006Map, CF007Globe, 22, 11},
    {MTAtlas, CF006Map, CF007Map, 23, 12},
    {MTMap, CF006Map, CF007Map, 25, 14},
    {MTKit, CF006Visual, CF007None, 13, 2},
    {MTMixed, CF006Mixed, CF007Microform, 20, 9},
    {MTMusic, CF006MusicSound, CF007Microform, 27, 16},
    {MTSerial, CF006Continuing, CF007Microform, 31, 20},
    {MTSoundDisc, CF006MusicSound, CF007Sound, 18, 7},
    {MTSoundTape, CF006MusicSound, CF007Sound, 20, 9},
    {MTSoundRecord, CF006MusicSound, CF007Sound, 21, 10},
    {MTSoundOther, CF006MusicSound, CF007Sound, 30, 16},
    {MTMotionPicture, CF006Visual, CF007MotionPicture, 31, 20},
    {MTVideoTape, CF006Visual, CF007Video, 18, 7},
    {MTVideoDisc, CF006Visual, CF007Video, 18, 7},
    {MTVideoOther, CF006Visual, CF007Video, 22, 11},
    {MTProjectedGraphic, CF006Visual, CF007Projected, 20, 9},
    {MTNonprojectedGraphic, CF006Visual, CF007Nonprojected, 19, 8},
    {MTThreeDObject, CF006Visual, CF007None, 14, 3},
    {MTText, CF006None, CF007Text, 0, 1},
    {MTUnspecified, CF006None, CF007Unspecified, 0, 1},
    {MTRemoteSensing, CF006Map, CF007RemoteSensing, 25, 14},
    {MTTactile, CF006None, CF007Tactile, 5, 5},
    {MTNotatedMusic, CF006None, CF007NotatedMusic, 1, 1},
    {MTBookComputerFile, CF006Books, CF007None, 21, 12},
    {MTVideoPlain, CF006Visual, CF007Video, 17, 0},
    {MTSoundNonmusical, CF006MusicSound, CF007Sound, 18, 0},
};

using Rows = std::vector<CCFDialogLayout>;

Rows RowsOf(MaterialType material, int additional) {
    const CCFDialogLayoutArray form(material, additional);
    Rows rows;
    for (int i = 0; i < form.GetSize(); ++i) rows.push_back(*form.GetAt(i));
    return rows;
}

// Calls `check` for both forms of each material.
template <class Check>
void ForEachForm(Check check) {
    for (const Material& material : kMaterials) {
        for (const int additional : {0, 1}) {
            SCOPED_TRACE("material " + std::to_string(material.type) + ", additional " +
                         std::to_string(additional));
            check(material, additional, RowsOf(material.type, additional));
        }
    }
}

template <class Check>
void ForEachPairOnAPage(const Rows& rows, Check check) {
    for (auto one = rows.begin(); one != rows.end(); ++one) {
        for (auto other = one + 1; other != rows.end(); ++other) {
            if (one->page == other->page) check(*one, *other);
        }
    }
}

char AcceleratorOf(const CCFDialogLayout& row) {
    const char* mark = std::strchr(row.label, '&');
    return mark == nullptr ? '\0' : static_cast<char>(std::toupper(mark[1]));
}

CFDialogBox Place(const CCFDialogLayout& row) {
    CFDialogBox box = row.labelBox;
    box.height += row.controlBox.height;
    return box;
}

CFControlType ControlTypeOf(CFPart part, int additional) {
    const std::map<CFPart, CFControlType> others = {
        {CFPCombinedFormOfItem, CFControlFormOfItem},
        {CFP008TypeOfDate, CFControlDateGroup},
        {CFP006MusicSoundLiteraryText,
         additional == 0 ? CFControlSRTypeGroup : CFControlSRTypeList},
        {CFP006VisualRunningTime, CFControlRunningTime},
        {CFP007MicroformReductionRatio, CFControlReductionRatio},
        {CFP007MotionPictureInspectionDate, CFControlInspectionDate},
        {CFP007ElectronicBitDepth, CFControlBitDepth},
        {CFP006BooksIllustrations, CFControlCheckList},
        {CFP006BooksContents, CFControlCheckList},
        {CFP006MapRelief, CFControlCheckList},
        {CFP006MapSpecialFormat, CFControlCheckList},
        {CFP006MusicSoundAccompanyingMatter, CFControlCheckList},
        {CFP006ContinuingContents, CFControlCheckList},
        {CFP007TactileBrailleClass, CFControlCheckList},
        {CFP007TactileBrailleMusicFormat, CFControlCheckList},
    };
    const auto other = others.find(part);
    return other == others.end() ? CFControlCombo : other->second;
}

}  // namespace

namespace zorby {

bool operator==(const CFDialogBox& a, const CFDialogBox& b) {
    return a.top == b.top && a.left == b.left && a.height == b.height && a.width == b.width;
}

bool operator==(const CCFDialogLayout& a, const CCFDialogLayout& b) {
    return a.page == b.page && std::strcmp(a.label, b.label) == 0 && a.part == b.part &&
           a.controlType == b.controlType && a.labelBox == b.labelBox &&
           a.controlBox == b.controlBox;
}

void PrintTo(const CCFDialogLayout& row, std::ostream* out) {
    *out << row.page << ' ' << row.label << ' ' << row.part << ' ' << row.controlType << " at "
         << row.labelBox.top << ' ' << row.labelBox.left;
}

}  // namespace zorby

TEST(DialogLayout, EveryFormHasItsRowsAndThenTheEnd) {
    for (const Material& material : kMaterials) {
        SCOPED_TRACE(material.type);
        const CCFDialogLayoutArray full(material.type, 0);
        const CCFDialogLayoutArray additional(material.type, 1);
        EXPECT_EQ(full.GetSize(), material.full);
        EXPECT_EQ(additional.GetSize(), material.additional);
        EXPECT_EQ(full.GetAt(-1), nullptr);
        EXPECT_EQ(full.GetAt(material.full), nullptr);
        const CCFDialogLayout* end = additional.GetAt(0) + additional.GetSize();
        if (additional.GetSize() == 0) continue;
        EXPECT_EQ(end->label, nullptr);
        EXPECT_EQ(end->page, 0);
        EXPECT_EQ(end->part, CFPEndOfTable);
        EXPECT_EQ(end->controlType, CFControlEndOfTable);
    }
    for (const int unknown : {-1, 0, 31, 1000}) {
        SCOPED_TRACE(unknown);
        const CCFDialogLayoutArray form(static_cast<MaterialType>(unknown), 0);
        EXPECT_EQ(form.GetSize(), 0);
        EXPECT_EQ(form.GetAt(0), nullptr);
    }
}

TEST(DialogLayout, KitWhole) {
    const CFPart audience = CFP006VisualAudience;
    const CFPart government = CFP006VisualGovernment;
    const auto combo = [](int page, const char* label, CFPart part, int top, int left) {
        return CCFDialogLayout{
            page, label, part, CFControlCombo, {top, left, 13, 235}, {top + 13, left, 20, 235}};
    };
    EXPECT_EQ(
        RowsOf(MTKit, 0),
        (Rows{{1,
               "Date of publication:",
               CFP008TypeOfDate,
               CFControlDateGroup,
               {10, 10, 230, 495},
               {0, 0, 0, 0}},
              combo(1, "&Place of publication:", CFP008PlaceOfPublication, 260, 265),
              combo(1, "&Language:", CFP008Language, 320, 265),
              combo(1, "&Target audience:", audience, 260, 10),
              combo(3, "&Modified record:", CFP008ModifiedRecord, 20, 10),
              combo(3, "&Cataloging source:", CFP008CatalogingSource, 60, 10),
              combo(3, "&Government publication:", government, 100, 10),
              combo(3, "&Record status:", CFPLdrRecordStatus, 140, 10),
              combo(3, "&Bibliographic level:", CFPLdrBibliographicLevel, 180, 10),
              combo(3, "&Type of control:", CFPLdrTypeOfControl, 20, 265),
              combo(3, "&Encoding level:", CFPLdrEncodingLevel, 60, 265),
              combo(3, "&Descriptive cataloging form:", CFPLdrDescriptiveForm, 100, 265),
              combo(3, "&Multipart resource record level:", CFPLdrMultipartLevel, 140, 265)}));
    EXPECT_EQ(RowsOf(MTKit, 1), (Rows{combo(1, "&Target audience:", audience, 20, 10),
                                      combo(1, "&Government publication:", government, 20, 265)}));
}

TEST(DialogLayout, ElementsBelongToTheFormatsOfTheMaterial) {
    ForEachForm([](const Material& material, int additional, const Rows& rows) {
        const bool isComputerFile = material.type == MTBookComputerFile && additional != 0;
        const CFType type006 = isComputerFile ? CF006ComputerFile : material.type006;
        const CFType type007 = isComputerFile ? CF007Electronic : material.type007;
        const ByteZero byteZero = additional == 0 ? ByteZero::Excluded : ByteZero::Included;
        for (const CCFDialogLayout& row : rows) {
            const CFType type = TypeOfPart(row.part);
            if (type == CFLdr || type == CF008Standard) {
                EXPECT_EQ(additional, 0) << row.part;
            } else if (row.part == CFPCombinedFormOfItem) {
                EXPECT_EQ(type007, CF007Microform) << row.part;
            } else {
                EXPECT_TRUE(PartBelongsTo(row.part, type006, byteZero) ||
                            PartBelongsTo(row.part, type007, byteZero))
                    << row.part;
            }
        }
    });
}

TEST(DialogLayout, ElementsOfSomeMaterialsOnly) {
    const std::map<CFPart, std::set<MaterialType>> allowed = {
        {CFPLdrTypeOfRecordBook, {MTBook, MTBookComputerFile}},
        {CFPLdrTypeOfRecordMap, {MTGlobe, MTAtlas, MTMap, MTRemoteSensing}},
        {CFPLdrTypeOfRecordMusic, {MTMusic}},
        {CFPLdrBibliographicLevelBook, {MTBook}},
        {CFPLdrBibliographicLevelSerial, {MTSerial}},
        {CFP006MapTypeOfMap, {MTMap}},
        {CFP006MusicSoundTypeOfRecordMusic, {MTMusic}},
        {CFP006VisualTypeOfMaterialNonprojected, {MTNonprojectedGraphic}},
        {CFP006VisualTypeOfMaterial3DObject, {MTThreeDObject}},
        {CFP007ElectronicDimensionsDisk, {MTComputerFileDisk}},
        {CFP007ElectronicDimensionsOther, {MTComputerFileOther}},
        {CFP007MapSMD, {MTMap}},
        {CFP007SoundSpeedRecord, {MTSoundRecord, MTSoundOther}},
        {CFP007SoundKindOfTape, {MTSoundTape, MTSoundOther}},
        {CFP007VideoFormatTape, {MTVideoTape}},
        {CFP007VideoFormatDisc, {MTVideoDisc}},
    };
    std::map<CFPart, std::set<MaterialType>> found;
    ForEachForm([&](const Material& material, int /*additional*/, const Rows& rows) {
        for (const CCFDialogLayout& row : rows) found[row.part].insert(material.type);
    });
    for (const auto& [part, materials] : allowed) EXPECT_EQ(found[part], materials) << part;
}

TEST(DialogLayout, ElementsStandOnceUnderTheirControls) {
    ForEachForm([](const Material&, int additional, const Rows& rows) {
        std::set<CFPart> parts;
        for (const CCFDialogLayout& row : rows) {
            EXPECT_TRUE(parts.insert(row.part).second) << row.part;
            EXPECT_EQ(row.controlType, ControlTypeOf(row.part, additional)) << row.part;
            if (row.controlType == CFControlCombo || row.controlType == CFControlCheckList) {
                EXPECT_NE(CCFMenuData(row.part).GetMenuTitle(), nullptr) << row.part;
            }
            EXPECT_EQ(std::string(row.label).back(), ':') << row.label;
        }
    });
}

TEST(DialogLayout, FullFormsFollowOnePlan) {
    ForEachForm([](const Material& material, int additional, const Rows& rows) {
        if (additional != 0 || material.type006 == CF006None) return;
        const std::set<CFPart> onLeaderPage = {CFPLdrTypeOfControl,
                                               CFPLdrEncodingLevel,
                                               CFPLdrDescriptiveForm,
                                               CFPLdrMultipartLevel,
                                               CFPLdrBibliographicLevel,
                                               CFPLdrBibliographicLevelBook,
                                               CFPLdrBibliographicLevelSerial,
                                               CFPLdrRecordStatus,
                                               CFP008ModifiedRecord,
                                               CFP008CatalogingSource,
                                               CFP006BooksGovernment,
                                               CFP006ComputerFileGovernment,
                                               CFP006MapGovernment,
                                               CFP006ContinuingGovernment,
                                               CFP006VisualGovernment};
        std::set<CFPart> parts;
        for (const CCFDialogLayout& row : rows) {
            parts.insert(row.part);
            const bool isMicroform =
                row.part == CFPCombinedFormOfItem || TypeOfPart(row.part) == CF007Microform;
            EXPECT_EQ(row.page == 4, isMicroform) << row.part;
            EXPECT_EQ(row.page == 3, onLeaderPage.count(row.part) == 1) << row.part;
        }
        for (const CFPart part : kLeaderAndGeneral) EXPECT_EQ(parts.count(part), 1U) << part;
    });
}

TEST(DialogLayout, RowsDoNotOverlap) {
    ForEachForm([](const Material&, int, const Rows& rows) {
        for (const CCFDialogLayout& row : rows) {
            SCOPED_TRACE(row.part);
            EXPECT_TRUE(1 <= row.page && row.page <= 4);
            EXPECT_GE(Place(row).left, 10);
            EXPECT_LE(Place(row).left + Place(row).width, 505);
        }
        ForEachPairOnAPage(rows, [](const CCFDialogLayout& one, const CCFDialogLayout& other) {
            const CFDialogBox a = Place(one);
            const CFDialogBox b = Place(other);
            EXPECT_TRUE(a.top + a.height <= b.top || b.top + b.height <= a.top ||
                        a.left + a.width <= b.left || b.left + b.width <= a.left)
                << one.part << " and " << other.part;
        });
    });
}

TEST(DialogLayout, AcceleratorsDoNotClash) {
    const std::set<CFPart> bothM = {CFP008ModifiedRecord, CFPLdrMultipartLevel};
    ForEachForm([&](const Material&, int, const Rows& rows) {
        for (const CCFDialogLayout& row : rows) {
            const bool isLetter = std::isalpha(static_cast<unsigned char>(AcceleratorOf(row))) != 0;
            EXPECT_EQ(isLetter, row.controlType != CFControlDateGroup) << row.label;
        }
        ForEachPairOnAPage(rows, [&](const CCFDialogLayout& one, const CCFDialogLayout& other) {
            if (std::set{one.part, other.part} == bothM) return;
            EXPECT_NE(AcceleratorOf(one), AcceleratorOf(other)) << one.label << ' ' << other.label;
        });
    });
}

TEST(DialogLayout, ColumnsOfAdditionalForms) {
    std::map<int, int> ofBook;
    for (const CCFDialogLayout& row : RowsOf(MTBook, 1)) {
        EXPECT_EQ(row.labelBox.width, 157) << row.part;
        ++ofBook[row.labelBox.left];
    }
    EXPECT_EQ(ofBook, (std::map<int, int>{{10, 7}, {177, 7}, {344, 5}}));
    for (const CCFDialogLayout& row : RowsOf(MTSerial, 1)) {
        SCOPED_TRACE(row.part);
        EXPECT_EQ(row.labelBox.width, 235);
        EXPECT_TRUE(row.labelBox.left == 10 || row.labelBox.left == 265);
    }
}

TEST(DialogLayout, Location) {
    const CCFDialogLayout row = {1, "", CFP008Language, CFControlCombo, {1, 2, 3, 4}, {5, 6, 7, 8}};
    int got[8] = {};
    row.GetLocation(&got[0], &got[1], &got[2], &got[3], &got[4], &got[5], &got[6], &got[7]);
    EXPECT_EQ(std::vector<int>(got, got + 8), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
    int width = 0;
    row.GetLocation(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &width);
    EXPECT_EQ(width, 8);
    EXPECT_EQ(row.PartNumber(), CFP008Language);
}

TEST(DialogLayout, Label) {
    struct Case {
        int material;
        CFPart part;
        int additional;
        int recursion;
        const char* label;
    };
    const Case cases[] = {
        {MTKit, CFP008PlaceOfPublication, 0, 0, "Place of publication:"},
        {MTKit, CFP008TypeOfDate, 0, 1, "Date of publication:"},
        {MTMap, CFP006MapTypeOfMap, 1, 1, "Type of cartographic material:"},
        // By another material's form
        {MTGlobe, CFP007MicroformPolarity, 0, 0, "Positive/negative aspect:"},
        {MTGlobe, CFP007MicroformPolarity, 0, 1, ""},
        {MTVideoPlain, CFP007VideoColor, 1, 0, "Color:"},
        {0, CFP008Language, 0, 0, "Language:"},
        {0, CFP008Language, 0, 1, ""},
        // Leader and 008 stand in no additional form, the type of record of a 006 in no full one
        {MTKit, CFP008Language, 1, 0, ""},
        {MTBook, CFP006BooksTypeOfRecord, 0, 0, ""},
        {MTBook, CFP006BooksTypeOfRecord, 1, 0, "Type of record:"},
        // Materials without a 006 form
        {MTText, CFP007TextSMD, 0, 0, ""},
        {MTUnspecified, CFP008Language, 0, 0, ""},
        {MTText, CFP007TextSMD, 1, 0, "Specific material designation:"},
        {MTBook, CFP007TextSMD, 0, 0, ""},
        {MTTactile, CFP008Language, 0, 0, "Language:"},
        // Elements of no form
        {MTBook, CFPLdrRecordLength, 0, 0, ""},
        {MTBook, CFPEndOfTable, 0, 0, ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CCFDialogLayoutArray::GetLabel(static_cast<MaterialType>(c.material), c.part,
                                                 c.additional, c.recursion),
                  c.label)
            << c.material << ' ' << c.part;
    }
}
