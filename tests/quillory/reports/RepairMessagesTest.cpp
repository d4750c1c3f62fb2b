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

Repair OfElement(RepairKind kind, const Place& place, zorby::CFPart part, const std::string& before,
                 const std::string& after) {
    return {kind, place, ElementOfPart(part), before, after};
}

// What is said of a repair, without its file and record, and what is written of it.
struct Told {
    std::string message;
    std::string row;
};
Told Tell(const Repair& repair, bool all = true) {
    const TemporaryFile file;
    MemoryPort port;
    Reporter reporter(port, {.quiet = true, .all = all});
    reporter.BeginFile("in.mrc");
    Item item;
    item.number = 1;
    RepairMessages messages(file.Path(), Lists(), reporter);
    messages.TakeRecord(item, {repair});
    messages.Finish({}, false);
    const std::string start = ItemPlace("in.mrc", item) + ": ";
    const std::string line = port.lines.empty() ? start : port.lines.front();
    EXPECT_TRUE(line.starts_with(start)) << line;
    return {line.substr(start.size()), file.Read()};
}

TEST(RepairMessages, NameThePlaceAndBothValues) {
    using zorby::CFPart;
    const Place language = Place::OfField("008", 1).Positions(35, 37);
    const Place color = Place::OfField("007", 2).Positions(3, 3);
    const std::string given = "co cga";
    const struct {
        Repair repair;
        std::string message;
    } cases[] = {
        {OfElement(RepairKind::Replaced, language, CFPart::CFP008Language, "x\033z", "und"),
         "008/35-37 Language: x?z -> und (Undetermined)"},
        {OfElement(RepairKind::Kept, language, CFPart::CFP008Language, "hrv", "und"),
         "008/35-37 Language: hrv (Croatian) kept; the library has und (Undetermined)"},
        {OfElement(RepairKind::Replaced, color, CFPart::CFP007ElectronicColor, "?", "c"),
         "007[2]/03 Color: ? -> c (Multicolored)"},
        {OfElement(RepairKind::Replaced, Place::OfField("006", 3).Positions(1, 4),
                   CFPart::CFP006BooksIllustrations, "a9b ", "a b "),
         "006[3]/01-04 Illustrations: a9b# (Illustrations; Maps) -> a#b# (Illustrations; Maps)"},
        {{RepairKind::Length, Place::OfField("007", 2), nullptr, given, "co cga||||||||",
          FaultCode::kFieldFilledUp},
         "007[2]: 6 bytes, the format has 14; filled up as not coded"},
        {{RepairKind::Length, Place::OfField("007", 1), nullptr, "ta \033x", "ta",
          FaultCode::kFieldCut},
         "007: 5 bytes, the format has 2; cut:  ?x"},
        {{RepairKind::Length, Place::OfField("007", 1), nullptr, "ta ", "ta", FaultCode::kFieldCut},
         "007: 3 bytes, the format has 2; cut: blanks"},
        {{RepairKind::Left, Place::OfField("006", 2), nullptr, "?", "?",
          FaultCode::kUnknownFirstByte},
         "006[2]: its first byte is not a type of record or a category; left as it was"},
        {{.kind = RepairKind::Left, .fault = FaultCode::kUnknownTypeOfRecord},
         "leader/06 is not a type of record, so the material is unknown; left as it was"},
    };
    for (const auto& c : cases) EXPECT_EQ(Tell(c.repair).message, c.message);

    EXPECT_EQ(Tell(cases[1].repair, false).message, "");
    EXPECT_NE(Tell(cases[1].repair, false).row, "");
}

TEST(RepairMessages, AreWrittenWithTheOccurrenceApart) {
    const Repair second = OfElement(RepairKind::Replaced, Place::OfField("007", 2).Positions(3, 3),
                                    zorby::CFP007ElectronicColor, "\351", "c");
    EXPECT_EQ(Tell(second).row,
              "{\"file\":\"in.mrc\",\"record\":1,\"offset\":0,\"control_number\":\"\","
              "\"outcome\":\"repaired\",\"place\":\"007/03\",\"occurrence\":2,\"name\":\"Color\","
              "\"old\":\"\303\251\",\"old_text\":\"\",\"new\":\"c\",\"new_text\":\"Multicolored\","
              "\"reason\":\"\"}\n");
    const Repair left{.kind = RepairKind::Left, .fault = FaultCode::kUnknownTypeOfRecord};
    EXPECT_NE(Tell(left).row.find("\"place\":\"\",\"occurrence\":1,"), std::string::npos);
}

}  // namespace
}  // namespace quillory
