#include <zorby/elements/OffsetTables.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <tests/zorby/workforms/Workforms.h>
#include <vector>

using namespace zorby;

namespace {

// The standard workform of a material. Every value in it is valid.
struct Standard {
    MaterialType material;
    CFType type006;
    CFType type007;
    std::string leader;
    std::string field008;
    std::string field007;
};

const std::vector<Standard> kStandards = {
    {MTBook, CF006Books, CF007Microform, "00000nam  2200000 i 4500",
     "000000s        xx            000 u und d", "             "},
    {MTComputerFile, CF006ComputerFile, CF007Electronic, "00000nmm  2200000 i 4500",
     "000000s        xx         i        und d", "co ugu---uuuuu"},
    {MTComputerFileDisk, CF006ComputerFile, CF007Electronic, "00000nmm  2200000 i 4500",
     "000000s        xx         b        und d", "cj uau---uuuuu"},
    {MTComputerFileOther, CF006ComputerFile, CF007Electronic, "00000nmm  2200000 i 4500",
     "000000s        xx         z        und d", "cr cna---uuuuu"},
    {MTMap, CF006Map, CF007Map, "00000nem  2200000 i 4500",
     "000000s        xx        a     0   und d", "aj canzn"},
    {MTGlobe, CF006Map, CF007Globe, "00000nem  2200000 i 4500",
     "000000s        xx        d     0   und d", "dc cun"},
    {MTRemoteSensing, CF006Map, CF007RemoteSensing, "00000nem  2200000 i 4500",
     "000000s        xx        a     0   und d", "r  uuuuuuuu"},
    {MTMixed, CF006Mixed, CF007Microform, "00000npc  2200000 i 4500",
     "000000i        xx                  und d", "             "},
    {MTMusic, CF006MusicSound, CF007Microform, "00000ncm  2200000 i 4500",
     "000000s        xx uul              und d", "             "},
    {MTSoundDisc, CF006MusicSound, CF007Sound, "00000njm  2200000 i 4500",
     "000000s        xx uunn           n und d", "sd fsngnnmmned"},
    {MTSerial, CF006Continuing, CF007Microform, "00000nas  2200000 i 4500",
     "000000c    9999xx uu p       0   a0und d", "             "},
    {MTKit, CF006Visual, CF007None, "00000nom  2200000 i 4500",
     "000000s        xx nnn            bnund d", ""},
    {MTMotionPicture, CF006Visual, CF007MotionPicture, "00000ngm  2200000 i 4500",
     "000000s        xx ---            mlund d", "mr caaafuuuuunnuu------"},
    {MTVideoTape, CF006Visual, CF007Video, "00000ngm  2200000 i 4500",
     "000000s        xx ---            vlund d", "vf cbahou"},
    {MTProjectedGraphic, CF006Visual, CF007Projected, "00000ngm  2200000 i 4500",
     "000000s        xx nnn            snund d", "gs cj  j "},
    {MTNonprojectedGraphic, CF006Visual, CF007Nonprojected, "00000nkm  2200000 i 4500",
     "000000s        xx nnn            knund d", "kh coo"},
    {MTThreeDObject, CF006Visual, CF007None, "00000nrm  2200000 i 4500",
     "000000s        xx nnn            rnund d", ""},
};

const Standard& StandardOf(MaterialType material) {
    for (const Standard& standard : kStandards) {
        if (standard.material == material) return standard;
    }
    return kStandards[0];
}

class Repair : public Workforms {
protected:
    Repair() {
        std::string bytes(1, static_cast<char>(kStandards.size()));
        bytes.append(3, '\0');
        for (const Standard& standard : kStandards) {
            CTemplate workform;
            const bool isBook = standard.material == MTBook;
            workform.SetName(isBook ? kBook : std::to_string(standard.material).c_str());
            workform.ControlFieldsSetMain(standard.material, standard.type006, standard.type007,
                                          standard.leader, std::string(32, ' '), standard.field007,
                                          standard.field008, "");
            bytes += Store(workform);
        }
        WriteStandard(bytes);
        Start();
    }

    using Parts = std::vector<int>;
    static void Note(CFPart part, void* parts) { static_cast<Parts*>(parts)->push_back(part); }

    static Parts RepairMain(Standard& fields) {
        CCFMainMaterial main;
        main.Create(fields.type006, fields.type007, fields.leader, std::string(32, ' '),
                    fields.field007, fields.field008, "");
        Parts parts;
        main.SetInvalidValuesToDefault(Note, &parts, fields.material);
        std::string second006;
        main.GetAll(fields.leader, fields.field007, fields.field008, second006);
        return parts;
    }

    static Parts RepairAdditional(MaterialType material, CFType type006, CFType type007,
                                  std::string& field006, std::string& field007) {
        CCFAdditionalMaterial additional;
        additional.Create(material, type006, type007, "", "");
        additional.Set006Complete(field006);
        additional.Set007Complete(field007);
        Parts parts;
        additional.SetInvalidValuesToDefault(Note, &parts);
        additional.GetAll(field006, field007);
        return parts;
    }
};

TEST_F(Repair, LeavesTheStandardWorkformsAlone) {
    for (const Standard& standard : kStandards) {
        SCOPED_TRACE(standard.material);
        Standard fields = standard;
        EXPECT_EQ(RepairMain(fields), Parts{});
        EXPECT_EQ(fields.leader, standard.leader);
        EXPECT_EQ(fields.field008, standard.field008);
    }
}

enum Field { kLeader, k008, k007 };

struct Row {
    MaterialType material;
    Field field;
    std::size_t position;
    std::string got;
    std::string repaired;
    std::vector<int> parts;
};

TEST_F(Repair, MainMaterialByRule) {
    const Row rows[] = {
        {MTBook, kLeader, 9, "a02", " 22", {12, 13}},
        {MTBook, kLeader, 9, "a0", " 2", {12, 13}},
        {MTBook, kLeader, 20, "9501", "4500", {19, 22}},
        {MTBook, kLeader, 0, "x", "x", {}},
        {MTBook, kLeader, 5, "?", "n", {2}},
        {MTBook, kLeader, 6, "c", "a", {4}},
        {MTBook, kLeader, 7, "s", "s", {}},  // any level will do
        {MTBook, kLeader, 7, "x", "m", {8}},
        {MTSerial, kLeader, 6, "x", "x", {}},  // no list is tested
        {MTMusic, kLeader, 6, "d", "c", {7}},
        {MTMusic, kLeader, 6, "c", "c", {}},
        {MTMusic, kLeader, 6, "i", "i", {}},
        {MTMusic, kLeader, 6, "x", "c", {6}},
        {MTSoundDisc, kLeader, 6, "d", "j", {7}},
        {MTSoundDisc, kLeader, 6, "x", "j", {6}},
        {MTBook, k008, 0, "98a101", "980101", {101}},
        {MTBook, k008, 7, "19x5 |u ", "19u5 uu ", {104, 105}},
        {MTBook, k008, 6, "?", "s", {103}},
        {MTBook, k008, 15, "en ", "xx ", {106}},
        {MTBook, k008, 35, "lun", "und", {107}},
        {MTBook, k008, 18, "ab  ", "ab  ", {}},
        {MTBook, k008, 18, "a9  ", "    ", {302}},
        {MTBook, k008, 23, "|", "|", {}},
        {MTBook, k008, 23, "q", " ", {304}},
        {MTBook, k008, 32, "x", " ", {-2}},
        {MTBook, k008, 32, "|", "|", {}},
        {MTComputerFile, k008, 26, "?", "i", {403}},
        {MTComputerFileDisk, k008, 26, "?", "b", {403}},
        {MTComputerFileOther, k008, 26, "?", "z", {403}},
        {MTSerial, k008, 25, "mnz", "   ", {709}},
        {MTSerial, k008, 25, "mz ", "mz ", {}},
        {MTKit, k008, 18, "123", "nnn", {802}},
        {MTMotionPicture, k008, 18, "0x5", "005", {802}},
        {MTMotionPicture, k008, 18, "xyz", "---", {802}},
        {MTMotionPicture, k008, 18, "   ", "---", {802}},
        {MTMotionPicture, k008, 18, "n-1", "n-1", {}},
        {MTMotionPicture, k008, 33, "v", "m", {806}},
        {MTVideoTape, k008, 33, "m", "v", {806}},
        {MTKit, k008, 33, "m", "b", {806}},
        {MTProjectedGraphic, k008, 33, "t", "t", {}},
        {MTProjectedGraphic, k008, 33, "m", "f", {806}},
        {MTNonprojectedGraphic, k008, 33, "?", "k", {807}},
        {MTThreeDObject, k008, 33, "?", "b", {808}},
        {MTComputerFileDisk, k007, 6, "001", "---", {1007}},
        {MTComputerFileOther, k007, 4, "?", "m", {1004}},
        {MTComputerFileDisk, k007, 4, "?", "a", {1004}},
        {MTRemoteSensing, k007, 0, "xu", "r ", {2201, 2202}},
        {MTGlobe, k007, 0, "x", "d", {1101}},
        {MTMotionPicture, k007, 17, "2x0a1 ", "2-0-1-", {1317}},
        {MTVideoTape, k007, 4, "c", "b", {2005}},
    };
    for (const Row& row : rows) {
        Standard fields = StandardOf(row.material);
        const auto bytes = [&]() -> std::string& {
            return row.field == kLeader ? fields.leader
                   : row.field == k008  ? fields.field008
                                        : fields.field007;
        };
        bytes().replace(row.position, row.got.size(), row.got);
        const std::string unchanged = bytes();
        const Parts parts = RepairMain(fields);
        const std::string name = std::to_string(row.material) + " " + row.got;
        EXPECT_EQ(parts, row.parts) << name;
        EXPECT_EQ(bytes().substr(row.position, row.repaired.size()), row.repaired) << name;
        std::string rest = bytes();
        rest.replace(row.position, row.repaired.size(),
                     unchanged.substr(row.position, row.repaired.size()));
        EXPECT_EQ(rest, unchanged) << name;
    }
}

TEST_F(Repair, MicroformsByTheFormOfItem) {
    struct Case {
        char formOfItem;
        std::string got, repaired;
        Parts parts;
    };
    const Case cases[] = {
        {'a', "hj bdu---bucu", "hd bdu---bucu", {1402}},
        {'b', "hh bdu---bucu", "he bdu---bucu", {1402}},
        {'b', "xe bdu1x0bucu", "he bdu1-0bucu", {1401, 1406}},
        {'b', "hexbdu-  bucu", "he bdu---bucu", {-2, 1406}},
        {' ', "hd bdu---bucu", "   bdu   bucu", {1401, 1402, 1406}},
        {' ', "             ", "             ", {}},
    };
    for (const Case& c : cases) {
        Standard fields = StandardOf(MTBook);
        fields.field008[23] = c.formOfItem;
        fields.field007 = c.got;
        EXPECT_EQ(RepairMain(fields), c.parts) << c.got;
        EXPECT_EQ(fields.field007, c.repaired) << c.got;
    }
}

TEST_F(Repair, AdditionalMaterialByRule) {
    struct Case {
        MaterialType material;
        CFType type006, type007;
        std::string got006, got007, repaired006, repaired007;  // a 006 goes on with blanks
        Parts parts;
    };
    const Case cases[] = {
        {MTBook,
         CF006Books,
         CF007None,
         "x??      x",
         "",
         "a           000 u",
         "",
         {301, 302, 305, 307, 308, 309, 310}},
        {MTMusic, CF006MusicSound, CF007None, "xuul", "", "cuul", "", {601}},
        {MTSoundDisc,
         CF006MusicSound,
         CF007None,
         "xuunn           n",
         "",
         "juunn           n",
         "",
         {602}},
        {MTKit, CF006Visual, CF007None, "xnnn            bn", "", "onnn            bn", "", {801}},
        {MTText, CF006None, CF007Text, "", "x?", "", "xa", {1902}},
        {MTNotatedMusic, CF006None, CF007NotatedMusic, "", "x?", "", "xu", {2302}},
        {MTTactile,
         CF006None,
         CF007Tactile,
         "",
         "x?|a?uu?uu",
         "",
         "xu|u uu uu",
         {2402, 2403, 2405}},
        {MTMap,
         CF006Map,
         CF007RemoteSensing,
         "e       a     0",
         "xx ?uuuuuuu",
         "e       a     0",
         "r  uuuuuuuu",
         {2201, 2202, 2203}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("006 " + std::string(c.got006) + ", 007 " + c.got007);
        std::string field006 = c.got006, field007 = c.got007, repaired006 = c.repaired006;
        repaired006.resize(18, ' ');
        EXPECT_EQ(RepairAdditional(c.material, c.type006, c.type007, field006, field007), c.parts);
        EXPECT_EQ(field006, repaired006);
        EXPECT_EQ(field007, c.repaired007);
    }
}

TEST_F(Repair, FormOfItemOfAnAdditionalMicroform) {
    struct Case {
        CFType type007;
        char got;
        std::string field007;
        char repaired;
        Parts parts;
    };
    const Case cases[] = {
        {CF007Microform, 'b', "he bmb---bucu", 'b', {}},
        {CF007Microform, 'a', "he bmb---bucu", 'b', {304}},
        {CF007Microform, 'a', "hj bmb---bucu", ' ', {1402, 304}},
        // Without a microform's form of item it is no microform.
        {CF007Microform, ' ', "he bmb---bucu", ' ', {1401, 1402, 1406}},
        {CF007None, ' ', "he", 'b', {304}},
        {CF007TenByte, 's', "hz", ' ', {304}},
        {CF007TenByte, 's', "xe", 's', {}},
    };
    for (const Case& c : cases) {
        std::string field006 = "a           000 0 ", field007 = c.field007;
        field006[6] = c.got;
        EXPECT_EQ(RepairAdditional(MTBook, CF006Books, c.type007, field006, field007), c.parts)
            << c.got << c.field007;
        EXPECT_EQ(field006[6], c.repaired) << c.got << c.field007;
    }
}

TEST_F(Repair, WithoutWorkformsOrTables) {
    CCFMainMaterial none;
    none.SetInvalidValuesToDefault(nullptr, nullptr, MTBook);
    CCFAdditionalMaterial empty;
    empty.SetInvalidValuesToDefault(nullptr, nullptr);
    EXPECT_NE(empty.IsEmpty(), 0);

    // What only a workform could tell stays; the rest is put right.
    CTemplateList::DestroyTemplateList();
    Standard fields = StandardOf(MTBook);
    fields.leader = "00000?am a2200000 i 4500";
    fields.field008.replace(0, 10, "x00000?19x");
    EXPECT_EQ(RepairMain(fields), (Parts{12, 101, 104}));
    EXPECT_EQ(fields.leader, "00000?am  2200000 i 4500");
    EXPECT_EQ(fields.field008.substr(0, 11), "000000?19u ");
}

TEST_F(Repair, NonMusicalSound) {
    struct Case {
        char type;
        const char *got, *main, *additional;
    };
    for (const Case& c : {Case{'i', "  ", "z ", "z "}, Case{'i', "ab", "ab", "ab"},
                          Case{'j', "ab", "  ", "ab"}, Case{'j', "  ", "  ", "  "}}) {
        SCOPED_TRACE(c.type + std::string(c.got));
        CCFMainMaterial main;
        const Standard& sound = StandardOf(MTSoundDisc);
        main.Create(sound.type006, sound.type007, sound.leader, "", "", sound.field008, "");
        main.Set(CFPLdrTypeOfRecordMusic, {&c.type, 1});
        main.Set(CFP006MusicSoundLiteraryText, c.got);
        main.NonMusicalSoundRecordingFixup();
        std::string text;
        main.Get(CFP006MusicSoundLiteraryText, text);
        EXPECT_EQ(text, c.main);

        CCFAdditionalMaterialsList list;
        list.AddEmptyAtEnd();
        list.ChangeAdditionalMaterial(0, MTSoundDisc, CF006MusicSound, CF007None, "",
                                      std::string(1, c.type));
        list.Set(0, CFP006MusicSoundLiteraryText, c.got);
        list.NonMusicalSoundRecordingFixup();
        list.Get(0, CFP006MusicSoundLiteraryText, text);
        EXPECT_EQ(text, c.additional);
    }
    CCFMainMaterial book;
    const Standard& fields = StandardOf(MTBook);
    book.Create(fields.type006, fields.type007, fields.leader, "", "", fields.field008, "");
    book.NonMusicalSoundRecordingFixup();
    std::string leader, field007, field008, second006;
    book.GetAll(leader, field007, field008, second006);
    EXPECT_EQ(field008, fields.field008);
}

// Codes, and now and then any byte but zero.
class Bytes {
public:
    std::string operator()(std::size_t size) {
        std::string bytes(size, ' ');
        for (char& byte : bytes) {
            byte = random_() % 4 == 0 ? static_cast<char>(1 + random_() % 255) : Code();
        }
        return bytes;
    }

private:
    char Code() { return "abcdfhimnosuvz |0129-"[random_() % 21]; }
    std::mt19937 random_{26};
};

// A repair leaves nothing to do for another. But the default 007 of a material that has no form of
// item in 008/23 still goes by that byte, which the repair itself may blank.
TEST_F(Repair, OfAnyBytesSettles) {
    Bytes bytes;
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        for (const Standard& standard : kStandards) {
            Standard fields = standard;
            fields.leader = bytes(24);
            fields.field008 = bytes(40);
            fields.field007 = bytes(23);
            const bool isMicroform = std::strchr("abc", fields.field008[23]) != nullptr;
            RepairMain(fields);
            if (isMicroform) RepairMain(fields);
            const Standard once = fields;
            EXPECT_EQ(RepairMain(fields), Parts{}) << standard.material;
            EXPECT_EQ(fields.leader + fields.field008 + fields.field007,
                      once.leader + once.field008 + once.field007)
                << standard.material;
        }
    }
}

// The 007 of a microform decides the form of item, and the next repair goes by that.
TEST_F(Repair, OfAnyAdditionalBytesSettles) {
    Bytes bytes;
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        for (const Standard& standard : kStandards) {
            CCFAdditionalMaterial entry;
            entry.Create(standard.material, standard.type006, standard.type007, "", "");
            entry.Set006Complete(bytes(18));
            entry.Set007Complete(bytes(23));
            Parts parts;
            std::string before006, before007, after006, after007;
            entry.SetInvalidValuesToDefault(Note, &parts);
            const bool isMicroform = standard.type007 == CF007Microform;
            if (isMicroform) entry.SetInvalidValuesToDefault(Note, &parts);
            entry.GetAll(before006, before007);
            parts.clear();
            entry.SetInvalidValuesToDefault(Note, &parts);
            entry.GetAll(after006, after007);
            EXPECT_EQ(parts, Parts{}) << standard.material;
            EXPECT_EQ(before006 + before007, after006 + after007) << standard.material;
        }
    }
}

// Any material with any format, fitting or not.
TEST_F(Repair, StaysInItsBuffers) {
    Bytes bytes;
    for (int material = 0; material <= kLastMaterialType + 1; ++material) {
        for (int type = 0; type < 20; ++type) {
            SCOPED_TRACE("material " + std::to_string(material) + ", type " + std::to_string(type));
            Standard fields{static_cast<MaterialType>(material),
                            static_cast<CFType>(CF006None + type % 10),
                            static_cast<CFType>(CF007None + type),
                            bytes(30),
                            bytes(50),
                            bytes(30)};
            RepairMain(fields);
            EXPECT_EQ(fields.leader.size(), 24U);
            EXPECT_EQ(fields.field008.size(), 40U);
            EXPECT_EQ(fields.field007.size(), 24U);
            std::string field006 = bytes(30), field007 = bytes(40);
            RepairAdditional(fields.material, fields.type006, fields.type007, field006, field007);
            EXPECT_EQ(field006.size(), 18U);
            EXPECT_EQ(field007.size(), 23U);
        }
    }
}

}  // namespace
