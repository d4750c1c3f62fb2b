#include <quillory/jobs/DefaultTexts.h>
#include <quillory/jobs/DeleteWorkforms.h>
#include <quillory/jobs/ExportWorkforms.h>
#include <quillory/jobs/ImportWorkforms.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/MakeWorkform.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/store/Schema.h>

#include <tests/quillory/jobs/JobsFixture.h>

namespace quillory {
namespace {

constexpr const char* kBook = "Book (not atlas or songbook)";

// "245 10$aTitle$b|650 _0$aRivers": the texts that new records begin with.
std::string TextsOf(zorby::CTemplate& workform) {
    std::string texts;
    for (int i = 0; i < workform.GetDefaultData().GetSize(); ++i) {
        const zorby::CInfoAboutDefaultData& data = *workform.GetDefaultData().GetAt(i);
        if (data.GetTag() != 0) {
            texts += (texts.empty() ? "" : "|") + TagText(data.GetTag()) + " ";
            texts += {data.GetIndicatorRaw(1), data.GetIndicatorRaw(2)};
        }
        texts += {'$', data.GetSubCode()};
        texts += data.GetDefaultData();
    }
    return texts;
}

class WorkformJobs : public Jobs {
protected:
    void Make(const std::string& name, const std::string& from, bool force = false,
              const std::vector<Entry>& texts = {}) {
        MakeWorkform({name, from, texts, force}, reporter_);
    }
    void Import(const std::string& path, bool force = false) {
        ImportWorkforms({path, force}, reporter_);
    }
    void Delete(const std::vector<std::string>& names) { DeleteWorkforms(names, reporter_); }
    // The path of a file with the workforms of these names, or all.
    std::string Exported(const std::vector<std::string>& names = {}) {
        ExportWorkforms({folder_.Path("out.ttm"), names}, reporter_);
        return folder_.Path("out.ttm");
    }
    // "100 Ours, 101 Map of ours"
    std::string Users() const {
        const Database store = OpenStore();
        std::string users;
        for (const WorkformEntry& entry : WorkformCatalog(store).Users()) {
            users += (users.empty() ? "" : ", ") + std::to_string(entry.id) + " " + entry.text;
        }
        return users;
    }
};

TEST_F(WorkformJobs, OneIsMadeOfAnother) {
    Make("Bücher", "picture book", false, {ReadEntry("040a", "ZS")});
    EXPECT_EQ(Said(), "workform 100 \"Bücher\" saved\n");
    Make("Next", "BUCHER", false, {ReadEntry("040b", "ger")});
    {  // the next job loads the workforms anew
        const Database store = OpenStore();
        const WorkformCatalog catalog(store);
        const zorby::TemplateHolder model = catalog.Get(catalog.Find("Picture book").id);
        const zorby::TemplateHolder next = catalog.Get(catalog.Find("101").id);
        EXPECT_EQ(next->GetMaterialType(), model->GetMaterialType());
        EXPECT_NE(TextsOf(*next).find("040 __$aZS$bger"), std::string::npos) << TextsOf(*next);
    }
    EXPECT_EQ(Users(), "100 Bücher, 101 Next");
    Make("Bücher", "Map", true);
    EXPECT_EQ(Users(), "100 Bücher, 101 Next");
    Delete({"next", "100"});
    EXPECT_EQ(Users(), "");
}

TEST_F(WorkformJobs, DefaultTextsFindTheirPlaces) {
    LoadDictionaries();
    const std::vector<std::pair<std::pair<const char*, const char*>, std::string>> cases{
        {{"245b", "sub"}, "245 10$aT$bsub|650 _0$aA|650 _1$aB"},
        {{"245$c", "name"}, "245 10$aT$b$cname|650 _0$aA|650 _1$aB"},
        {{"245a", " "}, "245 10$a$b|650 _0$aA|650 _1$aB"},
        {{"040a", "ZS"}, "040 __$aZS|245 10$aT$b|650 _0$aA|650 _1$aB"},
        {{"0822", ""}, "082 04$2|245 10$aT$b|650 _0$aA|650 _1$aB"},
        {{"650[2] $a", "C"}, "245 10$aT$b|650 _0$aA|650 _1$aC"},
        {{"650[3]x", "D"}, "245 10$aT$b|650 _0$aA|650 _1$aB|650 _0$xD"},
        {{"852a", "Here"}, "245 10$aT$b|650 _0$aA|650 _1$aB|852 __$aHere"},
        {{"650[4]a", "C"}, "650[4] $a: there are 2 of these fields so far"},
        {{"245", "10$aX"}, "245: a workform has texts of subfields alone, such as 040a"},
        {{"008/22", "j"}, "008/22: a workform has texts of subfields alone, such as 040a"},
        {{"245a", "日"}, "a workform can't hold all characters of \"日\""},
    };
    for (const auto& [set, expected] : cases) {
        zorby::CTemplate workform;
        workform.AddDefaultData(245, '1', '0', 'a', "T");
        workform.AddDefaultData('b', "");
        workform.AddDefaultData(650, '_', '0', 'a', "A");
        workform.AddDefaultData(650, '_', '1', 'a', "B");
        const Entry entry = ReadEntry(set.first, set.second);
        const std::string error = ErrorOf([&] { SetDefaultText(entry, workform); });
        EXPECT_EQ(error.empty() ? TextsOf(workform) : error, expected) << set.first;
    }
}

TEST_F(WorkformJobs, WhatIsRefusedSaysWhyAndChangesNothing) {
    Make("Ours", "1");
    folder_.Write("none.ttm", "\xff\xff\xff\xff");
    const std::vector<std::pair<std::function<void()>, std::string>> cases{
        {[&] { Make("x", "no such"); }, "there is no workform \"no such\"; "},
        {[&] { Make("x", "picture"); },
         "there is no workform \"picture\"; near it: \"Picture book\", "},
        {[&] { Make(kBook, "1"); }, "\"Book (not atlas or songbook)\" is the name of a standard"},
        {[&] { Make("", "1"); }, "a workform needs a name"},
        {[&] { Make(std::string(201, 'x'), "1"); }, "the name \"xxx"},
        {[&] { Make("日", "1"); }, "a workform can't hold all characters of \"日\""},
        {[&] { Make("Ours", "Map"); }, "\"Ours\" is already there as workform 100; "},
        {[&] {
             Delete({"Ours", "Map"});
         },
         "\"Map\" is a standard workform, which can't be d"},
        {[&] {
             Delete({"Ours", "Theirs"});
         },
         "there is no workform \"Theirs\"; "},
        {[&] { Exported({"Map"}); }, "\"Map\" is a standard workform, which every quillory has"},
        {[&] {
             ExportWorkforms({StorePath(), {}}, reporter_);
         },
         StorePath() + ": this is a file of the store"},
        {[&] { Import(Exported()); },
         folder_.Path("out.ttm: workform 1: \"Ours\" is already ther")},
        {[&] { Import(folder_.Path("none.ttm")); },
         folder_.Path("none.ttm: offset 0: this is not")},
        {[&] { Import(folder_.Path("gone.ttm")); }, folder_.Path("gone.ttm: No such file")},
    };
    for (const auto& [act, reason] : cases) {
        const std::string error = ErrorOf(act);
        EXPECT_TRUE(error.starts_with(reason)) << error << "\nand not " << reason;
        EXPECT_EQ(Users(), "100 Ours") << reason;
    }
    Delete({"Ours"});
    EXPECT_EQ(ErrorOf([&] { Exported(); }), "there are no workforms of your own to export");
}

TEST_F(WorkformJobs, AnExportedFileGivesTheSameWorkformsElsewhere) {
    Make("Bücher", "Picture book", false, {ReadEntry("040a", "ZS")});
    Make("Series", "Serial (journal, annual or other)");
    const std::string all = folder_.Read(Exported().substr(folder_.Path("").size()));
    Said();
    std::filesystem::remove_all(folder_.Path("home"));
    Import(File("all.ttm", all));
    EXPECT_EQ(Said(), "2 workforms imported\n");
    EXPECT_EQ(Users(), "100 Bücher, 101 Series");
    Exported();
    EXPECT_EQ(folder_.Read("out.ttm"), all);
    Import(folder_.Path("all.ttm"), true);
    Exported({"101"});
    EXPECT_EQ(folder_.Read("out.ttm").substr(4),
              all.substr(all.size() - folder_.Read("out.ttm").size() + 4));
}

TEST_F(WorkformJobs, AFileThatIsDamagedAddsNothing) {
    Make("Sound", "Downloadable audiobook");
    Make("Odd", "Downloadable audiobook");
    Exported();
    const std::string whole = folder_.Read("out.ttm");
    Delete({"Sound", "Odd"});
    const auto with = [&whole](std::string_view old, std::string_view text) {
        std::string changed = whole;
        return changed.replace(changed.rfind(old), old.size(), text);
    };
    const std::vector<std::pair<std::string, std::string>> cases{
        {whole.substr(0, 3), "workform 1: offset 0: unexpected end"},
        {whole.substr(0, whole.size() - 1), "workform 2: offset "},
        {whole + "x", "offset " + std::to_string(whole.size()) + ": bytes after the end: 1"},
        {with("\3Odd", "\5Sound"), "workform 2: \"Sound\" is there twice"},
        {with("00000nim", "00000n\x1em"), "workform 2: leader/06: \"Odd\" has the byte 0x1E there"},
        {with("00000nim", "00000n\xe9m"), "workform 2: leader/06: \"Odd\" has the byte 0xE9 there"},
        {with("m     o  h", std::string_view("m   \0 o  h", 10)),
         "workform 2: 006/04: \"Odd\" has the byte 0x00 there"},
    };
    for (const auto& [bytes, reason] : cases) {
        const std::string path = File("damaged.ttm", bytes);
        const std::string error = ErrorOf([&] { Import(path); });
        const std::string named = error.substr(std::min(error.size(), path.size() + 2));
        EXPECT_TRUE(named.starts_with(reason)) << error << "\nand not " << reason;
        EXPECT_EQ(Users(), "") << reason;
    }
    Import(File("orphan.ttm", with(kBook, "Boot (not atlas or songbook)")));
    EXPECT_NE(Said().find("workform 2: its base \"Boot (not atlas or songbook)\" is not there; \""),
              std::string::npos);
}

TEST_F(WorkformJobs, ALockOfAnotherProgramIsRespected) {
    Make("Ours", "1");
    Make("Theirs", "1");
    const std::string file = Exported();
    const Database other = OpenStore();
    WorkformStore theirs(other);
    ASSERT_TRUE(theirs.Lock(101, 7));
    const std::vector<std::pair<const char*, std::function<void()>>> acts{
        {"make", [&] { Make("Theirs", "Map", true); }},
        {"delete",
         [&] {
             Delete({"Ours", "Theirs"});
         }},
        {"import", [&] { Import(file, true); }},
    };
    for (const auto& [name, act] : acts) {
        SCOPED_TRACE(name);
        const std::string error = ErrorOf(act);
        EXPECT_TRUE(error.ends_with("\"Theirs\" is locked by another program that is changing it"))
            << error;
        EXPECT_EQ(Users(), "100 Ours, 101 Theirs");
    }
    theirs.Unlock(101);
    Delete({"Ours", "Theirs"});
}

}  // namespace
}  // namespace quillory
