#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/RecordPolicy.h>
#include <quillory/jobs/Settings.h>

#include <fstream>
#include <set>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tests/quillory/jobs/JobsFixture.h>
#include <unistd.h>

namespace quillory {
namespace {

class SettingsJobs : public Jobs {
protected:
    SettingsJobs() {
        LoadSettings();
        LoadDictionaries();
    }
};

std::string ValueIn(const std::vector<SettingRow>& rows, const std::string& name) {
    for (const SettingRow& row : rows) {
        if (row.name == name) return row.value;
    }
    return "none";
}

TEST_F(SettingsJobs, WhatIsWrittenIsReadByEveryNameAndInTheNextRun) {
    ChangeSetting("DisplayNameOrMARC", "2");
    ChangeSetting("ZP_FontName", "Bücherei");
    LoadSettings();
    for (const char* name : {"DisplayNameOrMARC", "ZP_DisplayNameOrMARC"}) {
        EXPECT_EQ(ReadSetting(name), "2") << name;
    }
    for (const SettingRow& row : ListSettings()) {
        EXPECT_EQ(ReadSetting(row.id ? std::to_string(*row.id) : row.name), row.value) << row.name;
    }
    ChangeHoldingsSetting("HoldingsType", "Alexandria");
    ChangeHoldingsSetting("CustomBarCodeSubfield", "949$b");
    LoadSettings();
    EXPECT_EQ(ReadHoldingsSetting("HoldingsType"), "Alexandria");
    EXPECT_EQ(ValueIn(ListHoldingsSettings(), "holdings.CustomBarCodeSubfield"), "949$b");
}

TEST_F(SettingsJobs, WhatIsRefusedSaysWhy) {
    const auto change = [](const char* name, const char* value) {
        return ErrorOf([&] { ChangeSetting(name, value); });
    };
    const auto changeHoldings = [](const char* name, const char* value) {
        return ErrorOf([&] { ChangeHoldingsSetting(name, value); });
    };
    EXPECT_EQ(change("Nope", "1"), "there is no setting Nope; quillory settings lists them");
    EXPECT_EQ(change("ZP_DisplayNameOrMark", "1"),
              "there is no setting ZP_DisplayNameOrMark; perhaps DisplayNameOrMARC is meant; "
              "quillory settings lists them");
    EXPECT_EQ(change("librarycode", "1"),
              "there is no setting librarycode; perhaps LibraryCode is meant; "
              "quillory settings lists them");
    EXPECT_EQ(change("", "1"), "there is no setting ; quillory settings lists them");
    EXPECT_EQ(change("DisplayNameOrMARC", "x"),
              "ZP_DisplayNameOrMARC: the value is a number, not \"x\"");
    EXPECT_EQ(change("DisplayNameOrMARC", "-"),
              "ZP_DisplayNameOrMARC: the value is a number, not \"-\"");
    const std::tuple<const char*, const char*, const char*> beyond[] = {
        {"RC_No260a", "3", "0, 1 or 2"},
        {"RC_MT_Bad_Ldr", "-1", "0, 1 or 2"},
        {"RC_NoNotes", "99999999999999999999", "0, 1 or 2"},
        {"DisplayNameOrMARC", "4", "0, 1, 2 or 3"},
        {"RadioBasic_TLC_Custom", "3", "0, 1 or 2"},
        {"SubjectCount", "2147483648", "from -2147483648 to 2147483647"},
    };
    for (const auto& [name, value, allowed] : beyond) {
        const std::string before = ReadSetting(name);
        EXPECT_EQ(change(name, value), "ZP_" + std::string(name) + ": the value is " + allowed +
                                           ", not \"" + value + "\"");
        EXPECT_EQ(ReadSetting(name), before);
    }
    EXPECT_EQ(change("SubjectCount", "-2147483648"), "");
    EXPECT_EQ(change("FontName", "日"), "settings can't hold all characters of \"日\"");
    EXPECT_EQ(changeHoldings("Nope", "1"),
              "there is no holdings setting Nope; quillory settings --holdings lists them");
    EXPECT_EQ(changeHoldings("EasyOrCustom", "no"),
              "EasyOrCustom: the value is Easy or Custom, not \"no\"");
    EXPECT_EQ(changeHoldings("NextBarCode", "a|b"),
              "NextBarCode: holdings settings can't hold | or a backslash");
    EXPECT_EQ(changeHoldings("NextBarcode", "1"),
              "there is no holdings setting NextBarcode; perhaps NextBarCode is meant; "
              "quillory settings --holdings lists them");
    EXPECT_EQ(changeHoldings("HoldingsType", "Dynyx"),
              "there is no holdings type Dynyx; perhaps Dynix is meant; "
              "`quillory describe --holdings` lists them");
    EXPECT_EQ(changeHoldings("HoldingsType", "zzz"),
              "there is no holdings type zzz; `quillory describe --holdings` lists them");
}

TEST_F(SettingsJobs, AFileThatCanNotBeWrittenIsNamed) {
    folder_.Write("home", "a file, and no folder");
    const std::string error = ErrorOf([] { ChangeSetting("DisplayNameOrMARC", "2"); });
    EXPECT_TRUE(error.starts_with(folder_.Path("home/"))) << error;
    EXPECT_NE(error.find(": can't be written: "), error.npos) << error;
}

TEST_F(SettingsJobs, ANextBarCodeIsGivenOnceWhoeverElseChangesTheSettings) {
    EXPECT_EQ(TakeNextBarCode(), "");
    ChangeHoldingsSetting("NextBarCode", "T0099");
    PutInForce(*FindHoldingsType("Dynix"));
    EXPECT_EQ(TakeNextBarCode(), "T0099");
    folder_.Write("home/Quillory 0.INI",
                  "[Zorby]\nZP_NewHoldings=HoldingsType=Alexandria\\\\NextBarCode=T0150\\\\\n");
    EXPECT_EQ(TakeNextBarCode(), "T0150");
    EXPECT_EQ(ReadHoldingsSetting("NextBarCode"), "T0151");
    EXPECT_EQ(HoldingsSystemInForce().name, "Dynix");
    LoadSettings();
    EXPECT_EQ(ReadHoldingsSetting("NextBarCode"), "T0151");
    EXPECT_EQ(ReadHoldingsSetting("HoldingsType"), "Alexandria");

    constexpr int kPrograms = 4;
    constexpr int kEach = 25;
    for (int i = 0; i < kPrograms; ++i) {
        if (fork() != 0) continue;
        try {
            std::ofstream taken(folder_.Path("taken" + std::to_string(i)));
            for (int j = 0; j < kEach; ++j) taken << TakeNextBarCode() << '\n';
        } catch (...) {
            _exit(1);
        }
        _exit(0);
    }
    for (int i = 0; i < kPrograms; ++i) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    std::set<std::string> barCodes;
    for (int i = 0; i < kPrograms; ++i) {
        std::ifstream taken(folder_.Path("taken" + std::to_string(i)));
        for (std::string line; std::getline(taken, line);) barCodes.insert(line);
    }
    EXPECT_EQ(barCodes.size(), kPrograms * kEach);
    EXPECT_EQ(TakeNextBarCode(), "T0251");

    std::filesystem::remove(folder_.Path("home/Quillory 0.INI"));
    std::filesystem::create_directory(folder_.Path("home/Quillory 0.INI"));
    EXPECT_NE(ErrorOf([] { TakeNextBarCode(); }).find("can't be read"), std::string::npos);
}

TEST_F(SettingsJobs, AFileThatCanNotBeReadIsNotTakenForNone) {
    namespace fs = std::filesystem;
    ChangeSetting("RC_NoSubjects", "2");
    const std::string path = folder_.Path("home/Quillory 0.INI");
    const std::string kept = path + ".kept";
    fs::rename(path, kept);
    const auto isNamed = [&](const char* case_) {
        const std::string error = ErrorOf([] { LoadSettings(); });
        EXPECT_TRUE(error.starts_with(path + ": the settings can't be read: ")) << case_ << error;
        fs::remove(path);
    };
    fs::create_directory(path);
    isNamed("a folder");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    isNamed("a named pipe");
    fs::create_symlink(path, path);
    isNamed("a link to itself");
    folder_.Write("home/Quillory 0.INI", "");
    fs::resize_file(path, (std::uintmax_t{64} << 20) + 1);
    isNamed("a file that is too large");
    if (geteuid() != 0) {
        fs::copy(kept, path);
        fs::permissions(path, fs::perms::none);
        isNamed("a file of somebody else");
    }
    fs::rename(kept, path);
    LoadSettings();
    EXPECT_EQ(ReadSetting("RC_NoSubjects"), "2");
}

TEST_F(SettingsJobs, AByteOrderMarkIsPassedOverAndStays) {
    folder_.Write("home/Quillory 0.INI", "\xEF\xBB\xBF[Zorby]\r\nZP_RC_NoSubjects=2\r\n");
    LoadSettings();
    EXPECT_EQ(ReadSetting("RC_NoSubjects"), "2");
    ChangeSetting("RC_NoSubjects", "1");
    EXPECT_EQ(folder_.Read("home/Quillory 0.INI"), "\xEF\xBB\xBF[Zorby]\r\nZP_RC_NoSubjects=1\r\n");
}

TEST_F(SettingsJobs, AChangeThatWouldNotReadBackIsRefused) {
    folder_.Write("home/Quillory 0.INI",
                  "[Zorby]\nZP_NewHoldings=NextBarCode=1\\\\\\\\key=2\\\\\n");
    LoadSettings();
    const std::string error = ErrorOf([] { ChangeHoldingsSetting("NextBarCode", "5"); });
    EXPECT_NE(error.find("begins with a backslash"), error.npos) << error;
}

TEST_F(SettingsJobs, WithoutAHomeFolderThereAreNoSettings) {
    unsetenv("QUILLORY_HOME");
    const std::string home = std::getenv("HOME");
    unsetenv("HOME");
    unsetenv("XDG_DATA_HOME");
    LoadSettings();
    EXPECT_NE(ErrorOf([] { ChangeSetting("DisplayNameOrMARC", "2"); }).find("QUILLORY_HOME"),
              std::string::npos);
    setenv("HOME", home.c_str(), 1);
}

TEST_F(SettingsJobs, APolicyAndAHoldingsSystemAreInForceForOneJob) {
    const auto inForce = [] {
        return HoldingsSystemInForce().name + " " + ReadSetting("RC_NoSubjects");
    };
    ChangeSetting("RC_NoSubjects", "0");
    const std::string before = inForce();
    try {
        const SettingsKeeper settings;
        PolicyOptions options;
        options.policy = {kPolicyTLC, {{"NoSubjects", 2}}};
        MakeChecker(options, kCharsetAuto);
        PutInForce(*FindHoldingsType("Alexandria"));
        EXPECT_EQ(inForce(), "Alexandria 2");
        options.policy.keys = {{"Nope", 1}};
        MakeChecker(options, kCharsetAuto);
        ADD_FAILURE() << "there is no such key";
    } catch (const FaultError&) {
        EXPECT_EQ(inForce(), before);
    }
    LoadSettings();
    EXPECT_EQ(inForce(), before);
}

TEST_F(SettingsJobs, AMissingDataFileIsNamedAndThePortsArePutBack) {
    const std::string program = zorby::CurrentApplicationPort().Folder();
    zorby::MessagePort& messages = zorby::CurrentMessagePort();
    const std::string data = folder_.Path("data");
    std::filesystem::create_directory(data);
    setenv("QUILLORY_DATA", data.c_str(), 1);
    std::filesystem::copy(std::string(DATA_FOLDER) + "zorby.hld", data);
    EXPECT_EQ(ErrorOf([] { LoadDictionaries(); }),
              data +
                  "/MARCBibl.tfm: can't be opened: No such file or directory; QUILLORY_DATA "
                  "names the folder of the data files");
    for (const char* bytes : {"", "\1", "\xff\xff\xff\xff"}) {
        folder_.Write("data/MARCBibl.tfm", bytes);
        folder_.Write("data/zorby.ttm", bytes);
        for (const auto& error :
             {ErrorOf([] { LoadDictionaries(); }), ErrorOf([] { LoadWorkforms(); })}) {
            EXPECT_NE(error.find(data), error.npos) << error;
        }
    }
    folder_.Write("data/zorby.ttm", std::string(4, '\0'));
    EXPECT_NE(ErrorOf([] { LoadWorkforms(); }).find("holds no workform \"Book"), std::string::npos);
    EXPECT_EQ(zorby::CurrentApplicationPort().Folder(), program);
    EXPECT_EQ(&zorby::CurrentMessagePort(), &messages);
    unsetenv("QUILLORY_DATA");
    EXPECT_EQ(ErrorOf([] { LoadDictionaries("zz"); }),
              "\"zz\" names no fields of your own; they are given as 590ab or 591-595");
}

}  // namespace
}  // namespace quillory
