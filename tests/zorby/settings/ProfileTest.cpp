#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/platform/WorkAreaPort.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/WindowPlacement.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <set>

using namespace zorby;

namespace {

// Settings in memory, with user 7 and the data folder "data/".
class Profile : public testing::Test {
protected:
    Profile() {
        SetProfileFilePort(&files);
        SetApplicationPort(&application);
        SetZorbyProfilePath("data/");
        ZorbyProfileChangeUserID(7);
        CGeneral::m_iniUserProfile.Initialize(kUserFile);
    }

    ~Profile() override {
        SetProfileFilePort(nullptr);
        SetApplicationPort(nullptr);
        SetZorbyProfilePath("");
        ZorbyProfileChangeUserID(0);
        CGeneral::m_iniUserProfile.Initialize("");
    }

    static std::string Text(int id) {
        std::string value = "?";
        GetZorbyProfileString(id, value);
        return value;
    }

    static std::vector<std::string> ThroughList(const std::string& first,
                                                const std::vector<std::string>& list,
                                                const std::string& second) {
        WriteZorbyProfileStringList(ZP_SortNotes, first, list, second);
        std::vector<std::string> found{"old"};
        GetZorbyProfileStringList(ZP_SortNotes, first, found, second);
        return found;
    }

    static constexpr const char* kUserFile = "data/Quillory 7.INI";
    MemoryProfileFiles files;
    FixedApplication application{"/opt/program/", '/', false};
};

TEST_F(Profile, TheTableIsWhole) {
    std::set<int> ids;
    std::set<std::string> names;
    for (const ProfileKeyRow& row : ProfileKeyTable()) {
        const bool isFirst = ids.insert(row.id).second;
        EXPECT_TRUE(isFirst || row.id == 88 || row.id == 89) << row.id;
        EXPECT_EQ(names.insert(row.name).second, isFirst) << row.name;
        EXPECT_EQ(FindProfileKey(row.id) == &row, isFirst && row.id != kProfileKeyTableEnd)
            << row.name;
        const bool hasText = row.defaultText && *row.defaultText;
        EXPECT_TRUE(row.defaultNumber == 0 || !hasText) << row.name;
    }
    EXPECT_EQ(ids.size(), 182U);
    EXPECT_EQ(*ids.begin(), 0);
    EXPECT_EQ(*ids.rbegin(), 181);
}

TEST_F(Profile, AbsentKeysReadAsTheirDefaults) {
    const std::vector<std::tuple<int, int, const char*>> expected{
        {12, 2, ""},
        {4, 0, "QRX000001"},
        {3, 0, ""},
        {77, 1, ""},
        {179, 1, ""},
        {65, 1041, ""},
        {181, 0, ""},
        {-1, 0, ""},
        {1000, 0, ""},
        {116, 0, "a:\\"},
        {155, 0, "FromEdit=^^FromTree=\\020a\\022a\\^^"}};
    for (const auto& [id, number, text] : expected) {
        EXPECT_EQ(GetZorbyProfileInt(id), number) << id;
        EXPECT_EQ(Text(id), text) << id;
    }
    EXPECT_TRUE(Text(ZP_OptionsCards).starts_with(R"(CardsPerSheet=3\\VerticalOffset=0.00\\Hor)"));
    EXPECT_TRUE(Text(ZP_OptionsLabels).ends_with("=^^LabelCallnumberOrientation=0^^"));
}

TEST_F(Profile, WritesGoToMemoryAndToTheFile) {
    WriteZorbyProfileInt(ZP_NumberOfBackups, -3);
    WriteZorbyProfileString(ZP_FontName, "Courier");
    WriteZorbyProfileIntRaw("Other", "n", 8);
    WriteZorbyProfileInt(181, 1);
    EXPECT_EQ(GetZorbyProfileInt(ZP_NumberOfBackups), -3);
    EXPECT_EQ(Text(ZP_FontName), "Courier");
    EXPECT_EQ(GetZorbyProfileIntRaw("Other", "n", 1), 8);
    EXPECT_EQ(files.texts[kUserFile],
              "[Zorby]\nZP_NumberOfBackups=-3\nZP_FontName=Courier\n[Other]\nn=8\n");
}

TEST_F(Profile, AValueEndsAtANulInMemoryAsInTheFile) {
    WriteZorbyProfileString(ZP_FontName, {"Cou\0rier", 8});
    EXPECT_EQ(Text(ZP_FontName), "Cou");
    EXPECT_EQ(files.texts[kUserFile], "[Zorby]\nZP_FontName=Cou\n");
}

TEST_F(Profile, ARemovedKeyIsEmptyUntilTheNextRun) {
    WriteZorbyProfileInt(ZP_NumberOfBackups, 3);
    WriteZorbyProfileStringRaw("Zorby", "ZP_NumberOfBackups", nullptr);
    EXPECT_EQ(files.texts[kUserFile], "[Zorby]\n");
    EXPECT_EQ(GetZorbyProfileInt(ZP_NumberOfBackups), 0);
    CGeneral::m_iniUserProfile.Initialize(GetZorbyProfilePath());
    EXPECT_EQ(GetZorbyProfileInt(ZP_NumberOfBackups), 5);
}

TEST_F(Profile, AnotherUserGetsAnotherFileAndTheSameMemory) {
    WriteZorbyProfileInt(ZP_NumberOfBackups, 3);
    ZorbyProfileChangeUserID(8);
    EXPECT_EQ(GetZorbyProfileInt(ZP_NumberOfBackups), 3);
    WriteZorbyProfileInt(ZP_SubjectCount, 4);
    EXPECT_EQ(files.texts["data/Quillory 8.INI"], "[Zorby]\nZP_SubjectCount=4\n");
}

TEST_F(Profile, TheUserComesFromTheFileForAllUsers) {
    std::string folder;
    SetZorbyProfilePath("");
    ZorbyProfileChangeUserID(-1);
    EXPECT_EQ(GetZorbyProfilePath(), "/opt/program/Quillory 0.INI");
    SetZorbyProfilePath(nullptr);
    GetDataPath(folder);
    EXPECT_EQ(folder, "/opt/program/");
    files.texts["/opt/program/Quillory Main.ini"] = "[User Information]\r\nThisUserID=12\r\n";
    EXPECT_EQ(GetThisUserID(), 0);
    EXPECT_EQ(GetZorbyProfilePath(), "/opt/program/Quillory 12.INI");
    EXPECT_EQ(GetThisUserID(), 12);
}

TEST_F(Profile, TheOtherInstallationIsInsideOrOutside) {
    const std::string text = "[Zorby]\nZP_BackupAutoMode=0\n";
    WriteZorbyProfileIntBoth(ZP_BackupAutoMode, 0);
    EXPECT_EQ(files.texts[kUserFile], text);
    EXPECT_EQ(files.texts["data/Learning/7/Quillory 7.INI"], text);
    EXPECT_EQ(GetZorbyProfileInt(ZP_BackupAutoMode), 0);

    files.texts.clear();
    SetZorbyProfilePath("data/Learning/7/");
    WriteZorbyProfileIntBoth(ZP_BackupAutoMode, 0);
    WriteZorbyProfileIntBoth(181, 0);
    EXPECT_EQ(files.texts,
              (decltype(files.texts){{"data/Learning/7/Quillory 7.INI", text}, {kUserFile, text}}));
}

TEST_F(Profile, ListsComeBackButForLeadingCharactersOfTheirNeighbours) {
    using List = std::vector<std::string>;
    struct ListCase {
        const char* first;
        List list;
        const char* second;
        List found;
    };
    const std::vector<ListCase> cases{
        {"{", {"one", "two"}, "}", {"one", "two"}},
        {"{", {}, "}", {}},
        {"{", {"", "a"}, "}", {"", "a"}},
        {"{", {"\\\\650a", "100"}, "}", {"650a", "100"}},
        {"{", {"aa", "{b", "}c"}, "}", {"aa", "b", "c"}},
        {"<i>", {"idea", "word"}, "</i>", {"dea", "word"}},
        {"-", {"1-+", "1"}, "+", {"1-+"}},
        {"", {"a", "b"}, ",", {"a", "b"}},
        {"", {"a", "b"}, "", {"ab"}},
    };
    for (const ListCase& test : cases) {
        EXPECT_EQ(ThroughList(test.first, test.list, test.second), test.found) << test.first;
    }
}

TEST_F(Profile, NumberListsComeBack) {
    const std::vector<unsigned> numbers{245, 0, 2147483648U, 4294967295U};
    WriteZorbyProfileUIntArray(ZP_SortNotes, "(", numbers, ")");
    EXPECT_EQ(Text(ZP_SortNotes), "(245)(0)(-2147483648)(-1)");
    std::vector<unsigned> found;
    GetZorbyProfileUIntArray(ZP_SortNotes, "(", found, ")");
    EXPECT_EQ(found, numbers);
}

std::vector<int> Fields(const WindowPlacement& placement) {
    return {placement.length,     placement.flags,      placement.showCommand, placement.minimizedX,
            placement.minimizedY, placement.maximizedX, placement.maximizedY,  placement.left,
            placement.top,        placement.right,      placement.bottom};
}

std::vector<int> Stored(int which, const char* key, const char* text) {
    WriteZorbyProfileStringRaw("Settings", key, text);
    WindowPlacement placement;
    ReadWindowPlacement(&placement, which);
    return Fields(placement);
}

TEST_F(Profile, WindowPlacementsComeBack) {
    const WindowPlacement placement{1, -1, 2, -3, 4, 5, 6, -2147483647, 8, 9, 2147483647};
    WriteWindowPlacement(&placement, 2);
    std::string text;
    GetZorbyProfileStringRaw("Settings", "RecordViewerWindowPos", text);
    EXPECT_EQ(text, "4294967295,2,-3,4,5,6,-2147483647,8,9,2147483647");
    WindowPlacement found;
    ReadWindowPlacement(&found, 2);
    found.length = placement.length;
    EXPECT_EQ(Fields(found), Fields(placement));
}

TEST_F(Profile, OnlyTheRecordListComesBackFromAnIcon) {
    const char* text = "2,2,1,2,3,4,5,6,7,8";
    EXPECT_EQ(Stored(0, "ZorbyWindowPos", text), (std::vector{44, 2, 2, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(Stored(1, "RecVWindowPos", text), (std::vector{44, 0, 3, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(Stored(1, "RecVWindowPos", " 1, 2,\t1,2,3,4,5,6,7,8 and more"),
              (std::vector{44, 0, 1, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(Profile, WithoutAWholePlacementTheDefaultsApply) {
    FixedWorkArea area({100, 50, 903, 651});
    SetWorkAreaPort(&area);
    const std::vector<int> expected{44, 0, 1, -1, -1, -1, -1, 110, 60, 612, 460};
    for (const char* text : {"", "1,2,3,4,5,6,7,8,9", "1,2,3,4,5,6,7,8,9,", "1,2,3 ,4,5,6,7,8,9,10",
                             "x", "1,2,3,4,5,6,7,8,9,-", "1,,2,3,4,5,6,7,8,9"}) {
        EXPECT_EQ(Stored(0, "ZorbyWindowPos", text), expected) << text;
    }
    SetWorkAreaPort(nullptr);
    EXPECT_EQ(Stored(1, "RecVWindowPos", ""),
              (std::vector{44, 0, 3, -1, -1, -1, -1, 9, 9, 627, 467}));
    EXPECT_EQ(Stored(2, "RecordViewerWindowPos", ""),
              (std::vector{44, 0, 1, -1, -1, -1, -1, 49, 49, 657, 497}));
    for (const int which : {-1, 3}) {
        WindowPlacement placement{.length = 5};
        ReadWindowPlacement(&placement, which);
        WriteWindowPlacement(&placement, which);
        EXPECT_EQ(placement.length, 5) << which;
    }
}

}  // namespace
