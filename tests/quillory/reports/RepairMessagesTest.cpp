#include <quillory/faults/FaultCode.h>
#include <quillory/reports/RepairMessages.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>
#include <vector>

namespace quillory {
namespace {

const CodeLists& Lists() {
    static const CodeLists lists{CodeStatus(CODES_FILE)};
    return lists;
}

Repair OfElement(RepairClass repairClass, const Place& place, zorby::CFPart part,
                 const std::string& before, const std::string& after) {
    return {RepairKind::Replaced, repairClass, place, ElementOfPart(part), before, after};
}

Repair OfField(RepairKind kind, const Place& place, const std::string& before,
               const std::string& after, FaultCode fault) {
    return {.kind = kind,
            .repairClass = RepairClass::Length,
            .place = place,
            .before = before,
            .after = after,
            .fault = fault};
}

// What is said of repairs, without file and record, and what is written of them.
struct Told {
    std::vector<std::string> lines;
    std::string file;
};
Told Tell(const std::vector<Repair>& repairs, bool all, const std::string& ending = "") {
    const TemporaryFile file("", ending);
    MemoryPort port;
    Reporter reporter(port, {.all = all});
    reporter.BeginFile("in.mrc");
    Item item;
    item.number = 1;
    RepairMessages messages(MakeRepairFile(file.Path(), Lists(), reporter), Lists(), reporter);
    RepairCounter counter;
    counter.Count(repairs);
    messages.TakeRecord(item, repairs);
    messages.Complete(counter.Totals());
    messages.Finish(counter.Totals(), false);
    const std::string start = ItemPlace("in.mrc", item) + ": ";
    for (std::string& line : port.lines) {
        if (line.starts_with(start)) line.erase(0, start.size());
    }
    return {port.lines, file.Read()};
}

const Place kLanguage = Place::OfField("008", 1).Positions(35, 37);

TEST(RepairMessages, NameThePlaceBothValuesAndTheClass) {
    using zorby::CFPart;
    const Place color = Place::OfField("007", 2).Positions(3, 3);
    Repair national =
        OfElement(RepairClass::NationalCode, kLanguage, CFPart::CFP008Language, "fra", "fre");
    national.source = "ISO 639-2/T";
    Repair left =
        OfElement(RepairClass::UnknownValue, kLanguage, CFPart::CFP008Language, "n\033 ", "n\033 ");
    left.kind = RepairKind::Left;
    left.fault = FaultCode::kNoCodeOfFormat;
    const struct {
        Repair repair;
        std::string message;
    } cases[] = {
        {national, "008/35-37 Language: fra -> fre (French) [national-code: ISO 639-2/T]"},
        {left,
         "008/35-37 Language: \"n?#\" is not a value of the format, and nothing says what is "
         "meant; left as it was [unknown-value]"},
        {OfElement(RepairClass::NotCoded, color, CFPart::CFP007ElectronicColor, "?", "|"),
         "007[2]/03 Color: ? -> | (No attempt to code) [not-coded]"},
        {OfElement(RepairClass::UnknownValue, Place::OfField("006", 3).Positions(1, 4),
                   CFPart::CFP006BooksIllustrations, "a9b ", "a||b"),
         "006[3]/01-04 Illustrations: a9b# (Illustrations; Maps) -> a||b (Illustrations; No "
         "attempt to code; Maps) [unknown-value]"},
        {OfField(RepairKind::Length, Place::OfField("007", 2), "co cga", "co cga||||||||",
                 FaultCode::kFieldFilledUp),
         "007[2]: 6 bytes, the format has 14; filled up as not coded [length]"},
        {OfField(RepairKind::Length, Place::OfField("007", 1), "ta \033x", "ta",
                 FaultCode::kFieldCut),
         "007: 5 bytes, the format has 2; cut:  ?x [length]"},
        {OfField(RepairKind::Length, Place::OfField("007", 1), "ta ", "ta", FaultCode::kFieldCut),
         "007: 3 bytes, the format has 2; cut: blanks [length]"},
        {{.kind = RepairKind::Left, .fault = FaultCode::kUnknownTypeOfRecord},
         "leader/06 is not a type of record, so the material is unknown; left as it was "
         "[unknown-value]"},
    };
    for (const auto& c : cases) EXPECT_EQ(Tell({c.repair}, true).lines.front(), c.message);
    EXPECT_EQ(Tell({national}, false).lines.size(), 1U);  // the totals
    EXPECT_EQ(Tell({left}, false).lines.size(), 2U);
}

TEST(RepairMessages, EndWithATableByClassAndElement) {
    const Repair language =
        OfElement(RepairClass::Case, kLanguage, zorby::CFP008Language, "ENG", "eng");
    Repair left = language;
    left.kind = RepairKind::Left;
    left.fault = FaultCode::kNoCodeOfFormat;
    const Repair length = OfField(RepairKind::Length, Place::OfField("007", 2), "co",
                                  "co |||||||||||", FaultCode::kFieldFilledUp);
    EXPECT_EQ(Tell({length, language, left, language}, false).lines.back(),
              "3 repairs made in 1 of 1 record, 1 left that can't be repaired, with the first of "
              "each kind:\n"
              "       2  case        008/35-37 Language  ENG -> eng (English)\n"
              "       1  case, left  008/35-37 Language  \"ENG\" is not a value of the format, and "
              "nothing says what is meant\n"
              "       1  length      007                 2 bytes, the format has 14; filled up as "
              "not coded\n");
}

TEST(RepairMessages, AreWrittenWithTheOccurrenceApart) {
    const Repair second =
        OfElement(RepairClass::UnknownValue, Place::OfField("007", 2).Positions(3, 3),
                  zorby::CFP007ElectronicColor, "\351", "|");
    EXPECT_EQ(Tell({second}, true).file,
              "{\"file\":\"in.mrc\",\"record\":1,\"offset\":0,\"control_number\":\"\","
              "\"outcome\":\"repaired\",\"class\":\"unknown-value\",\"place\":\"007/03\","
              "\"occurrence\":2,\"name\":\"Color\",\"old\":\"\303\251\",\"old_text\":\"\","
              "\"new\":\"|\",\"new_text\":\"No attempt to code\",\"reason\":\"\"}\n");
    const Repair left{.kind = RepairKind::Left, .fault = FaultCode::kUnknownTypeOfRecord};
    EXPECT_NE(Tell({left}, true).file.find("\"place\":\"\",\"occurrence\":1,"), std::string::npos);
}

TEST(RepairMessages, MakeAPage) {
    const Repair repair =
        OfElement(RepairClass::Case, kLanguage, zorby::CFP008Language, "<b>", "eng");
    const std::string page = Tell({repair, repair}, false, ".html").file;
    EXPECT_NE(page.find("<td>case</td><td></td><td>008/35-37 Language</td>"
                        "<td class=\"number\">2</td><td>&lt;b&gt; -&gt; eng (English)</td>"),
              std::string::npos)
        << page;
    EXPECT_EQ(page.find("{{"), std::string::npos);
    EXPECT_TRUE(page.ends_with("</html>\n"));
}

}  // namespace
}  // namespace quillory
