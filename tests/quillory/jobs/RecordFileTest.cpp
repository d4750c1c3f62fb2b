#include <quillory/exchange/Output.h>
#include <quillory/jobs/RecordFile.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>

namespace quillory {
namespace {

Lines Titled(const std::string& title) {
    return {"LDR00000nam a2200000 a 4500", "24510\037a" + title};
}

std::string Marc(const std::string& title) {
    return MarcOf(Titled(title));
}

std::string TitleAt(RecordFile& file, std::size_t index) {
    Item item;
    file.Read(index, item);
    for (const auto& field : item.record.fields) {
        if (field.tag == "245") return std::string(field.content.substr(4));
    }
    return "-";
}

void FindAll(RecordFile& file) {
    while (file.FindMore(1)) {
    }
}

// A file in each form, by its ending.
std::string AllInForm(const std::string& ending, const std::vector<std::string>& titles) {
    const TemporaryFile out("", ending);
    {
        Output output(out.Path());
        const auto writer = FormOfFileName(out.Path())->makeWriter(output, {});
        Losses losses;
        for (const std::string& title : titles) {
            const TestRecord record(Titled(title));
            writer->Write(record.record, losses);
        }
        writer->Finish();
        output.Finish();
    }
    return out.Read();
}

std::string InForm(const std::string& ending, const std::string& middle) {
    return AllInForm(ending, {"One", middle, "Three"});
}

TEST(RecordFile, ReplacesOneRecordInAnyForm) {
    for (const std::string ending : {".mrc", ".mrk", ".lif", ".xml", ".jsonl", ".mrc.gz"}) {
        SCOPED_TRACE(ending);
        const TemporaryFile on(InForm(ending, "Two"), ending);
        RecordFile file(on.Path());
        FindAll(file);
        ASSERT_EQ(file.Size(), 3U);
        for (const std::string title : {"A much longer title", "2"}) {
            const TestRecord changed(Titled(title));
            file.Replace(1, changed.record);
            EXPECT_TRUE(file.IsChanged(1));
            EXPECT_EQ(TitleAt(file, 1), title);
            file.Save();
            EXPECT_EQ(file.Changes(), 0U);
            EXPECT_EQ(TitleAt(file, 1), title);
            EXPECT_EQ(TitleAt(file, 2), "Three");
            EXPECT_EQ(on.Read(), InForm(ending, title));
        }
        file.Save();  // nothing to do
        EXPECT_EQ(on.Read(), InForm(ending, "2"));
    }
}

// New records come last, one is taken back, and what was saved is changed again.
TEST(RecordFile, AddsRecordsInAnyForm) {
    for (const std::string ending : {".mrc", ".mrk", ".lif", ".xml", ".jsonl", ".mrc.gz"}) {
        SCOPED_TRACE(ending);
        const TemporaryFile on(InForm(ending, "Two"), ending);
        RecordFile file(on.Path());
        FindAll(file);
        for (const std::string title : {"Four", "Five", "Six"}) {
            const TestRecord added(Titled(title));
            const std::size_t index = file.Add(added.record);
            EXPECT_EQ(TitleAt(file, index), title);
            EXPECT_TRUE(file.IsNew(index));
        }
        EXPECT_FALSE(file.IsNew(2));
        file.RemoveLast();
        const TestRecord longer(Titled("Five and more"));
        file.Replace(4, longer.record);
        EXPECT_EQ(file.Changes(), 2U);
        file.Save();
        EXPECT_EQ(on.Read(), AllInForm(ending, {"One", "Two", "Three", "Four", "Five and more"}));
        EXPECT_EQ(file.Changes(), 0U);
        const TestRecord changed(Titled("4"));
        file.Replace(3, changed.record);
        file.Save();
        EXPECT_EQ(TitleAt(file, 4), "Five and more");
        EXPECT_EQ(on.Read(), AllInForm(ending, {"One", "Two", "Three", "4", "Five and more"}));
    }
}

TEST(RecordFile, AddsToAFileWithoutALastLineEndAndToAnArray) {
    const std::string one = "=LDR  00000nam a2200000 a 4500\n=245  10$aOne";
    const TestRecord added(Titled("Two"));
    const auto saved = [&added](const std::string& bytes, const std::string& ending) {
        const TemporaryFile on(bytes, ending);
        RecordFile file(on.Path());
        FindAll(file);
        file.Add(added.record);
        file.Save();
        RecordFile again(on.Path());
        FindAll(again);
        EXPECT_EQ(again.Size(), 2U) << on.Read();
        EXPECT_EQ(again.FaultAt(0), nullptr) << on.Read();
        EXPECT_EQ(again.FaultAt(1), nullptr) << on.Read();
        EXPECT_EQ(TitleAt(again, 1), "Two") << on.Read();
    };
    for (const char* end : {"", "\n", "\n\n", "\r\n"}) {
        SCOPED_TRACE(end);
        saved(one + end, ".mrk");
    }
    const std::string line = AllInForm(".jsonl", {"One"});
    const std::string object = line.substr(0, line.find_last_of('}') + 1);
    for (const std::string& text : {line, object, '[' + object + "]\n"}) {
        SCOPED_TRACE(text);
        saved(text, ".json");
    }
}

TEST(RecordFile, NewRecordsAloneHaveNoFile) {
    RecordFile file;
    EXPECT_FALSE(file.HasChangedOnDisk());
    const TestRecord record(Titled("One"));
    EXPECT_EQ(file.Add(record.record), 0U);
    EXPECT_EQ(TitleAt(file, 0), "One");
    EXPECT_EQ(file.Changes(), 1U);
    EXPECT_THROW(file.Save(), FileError);
}

TEST(RecordFile, KeepsWhatStandsAroundRecords) {
    const std::string stray = std::string("\r\n") + '\0' + "\x1A text between \x1D";
    const std::string damaged = "00123nam  2200025   4500not at all\x1D";
    const TemporaryFile on(Marc("One") + stray + damaged + Marc("Two") + "\n", ".mrc");
    RecordFile file(on.Path());
    FindAll(file);
    const std::size_t last = file.Size() - 1;
    EXPECT_EQ(TitleAt(file, last), "Two");
    EXPECT_FALSE(file.IsDamaged(0));
    EXPECT_TRUE(file.IsDamaged(last - 1));
    EXPECT_NE(file.FaultAt(last - 1), nullptr);
    const TestRecord changed(Titled("2"));
    file.Replace(last, changed.record);
    file.Save();
    EXPECT_EQ(on.Read(), Marc("One") + stray + damaged + Marc("2") + "\n");
}

TEST(RecordFile, KeepsTheNamespaceOfACollection) {
    const std::string head =
        "<m:collection xmlns:m=\"http://www.loc.gov/MARC21/slim\"><!-- kept -->";
    const std::string record =
        "<m:record><m:leader>00000nam a2200000 a 4500</m:leader><m:datafield tag=\"245\" "
        "ind1=\"1\" ind2=\"0\"><m:subfield code=\"a\">One</m:subfield></m:datafield></m:record>";
    const std::string tail = "<!-- this too --></m:collection>\n";
    const TemporaryFile on(head + record + record + tail, ".xml");
    RecordFile file(on.Path());
    FindAll(file);
    ASSERT_EQ(file.Size(), 2U);
    const TestRecord changed(Titled("<2>"));
    file.Replace(0, changed.record);
    file.Save();
    const std::string saved = on.Read();
    EXPECT_TRUE(saved.starts_with(head + "<record xmlns=")) << saved;
    EXPECT_TRUE(saved.ends_with(record + tail)) << saved;
    RecordFile again(on.Path());
    FindAll(again);
    ASSERT_EQ(again.Size(), 2U);
    EXPECT_EQ(TitleAt(again, 0), "<2>");
}

TEST(RecordFile, SavesNothingOverTheWorkOfAnother) {
    const TemporaryFile on(Marc("One"), ".mrc");
    RecordFile file(on.Path());
    FindAll(file);
    const TestRecord changed(Titled("Mine"));
    file.Replace(0, changed.record);
    WriteOutput(on.Path(), Marc("Theirs"));
    EXPECT_TRUE(file.HasChangedOnDisk());
    EXPECT_THROW(file.Save(), FileError);
    EXPECT_EQ(on.Read(), Marc("Theirs"));
    EXPECT_EQ(TitleAt(file, 0), "Mine");
    EXPECT_TRUE(file.IsChanged(0));
}

TEST(RecordFile, SaysWhyItCantBeSaved) {
    const std::string packed = InForm(".mrc.gz", "Two");
    const struct {
        const char* name;
        std::string bytes;
        std::string ending;
    } cases[] = {
        {"cut short", packed.substr(0, packed.size() - 6), ".mrc.gz"},
        {"packed by another name", packed, ".mrc"},
        {"another encoding",
         "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><collection "
         "xmlns=\"http://www.loc.gov/MARC21/slim\"><record><leader>00000nam a2200000 a "
         "4500</leader><controlfield tag=\"001\">x</controlfield></record></collection>",
         ".xml"},
    };
    for (const auto& [name, bytes, ending] : cases) {
        SCOPED_TRACE(name);
        const TemporaryFile on(bytes, ending);
        RecordFile file(on.Path());
        FindAll(file);
        ASSERT_GE(file.Size(), 1U);
        const TestRecord changed(Titled("Mine"));
        file.Replace(0, changed.record);
        EXPECT_THROW(file.Save(), FileError);
        EXPECT_EQ(on.Read(), bytes);
    }
}

TEST(RecordFile, NamesTheRecordThatIsTooLong) {
    const TemporaryFile on(Marc("One") + Marc("Two"), ".mrc");
    RecordFile file(on.Path());
    FindAll(file);
    const TestRecord changed(Titled(std::string(10000, 'x')));
    file.Replace(1, changed.record);
    try {
        file.Save();
        FAIL() << "saved";
    } catch (const FileError& error) {
        EXPECT_NE(std::string(error.what()).find("record 2"), std::string::npos) << error.what();
    }
    EXPECT_EQ(on.Read(), Marc("One") + Marc("Two"));
}

}  // namespace
}  // namespace quillory
