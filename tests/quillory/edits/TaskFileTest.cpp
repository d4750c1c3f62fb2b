#include <quillory/edits/TaskFile.h>

#include <gtest/gtest.h>

#include <tests/quillory/edits/EditFixture.h>

namespace quillory {
namespace {

// A condition that holds of records with fields of the tag that it is.
RecordCondition HasTag(const std::string& tag) {
    if (tag.size() != 3) throw UsageError("no condition: " + tag);
    return [tag](const Record& record) {
        return std::ranges::any_of(record.fields,
                                   [&tag](const auto& field) { return field.tag == tag; });
    };
}

EditTask Read(std::string_view toml) {
    return ReadTask(toml, "task.toml", {TestTools(), HasTag});
}

std::string Edited(std::string_view toml, std::string_view fields) {
    TestRecord test(Divided(fields), '$');
    RecordEditor editor(Read(toml), {});
    Losses losses;
    editor.Carry(test.record, losses);
    return FieldsOf(test.record);
}

TEST(TaskFile, StepsAreDoneInTheirOrder) {
    constexpr const char* kTask = R"(
        # Publication, as RDA has it.
        [[edit]]
        do = "rename"
        place = "260"
        as = "264"
        [[edit]]
        do = "indicators"
        place = "264"
        value = "_1"
        [[edit]]
        do = "replace"
        place = "264a"
        text = "S.l."
        with = "Place not identified"
        ignore-case = true
        first = true
    )";
    EXPECT_EQ(Edited(kTask, "260  $a[s.l.] s.l."), "264 1$a[Place not identified] s.l.");
}

TEST(TaskFile, AStepIsDoneWhereItsConditionsHold) {
    constexpr const char* kTask = R"(
        where = "245"
        [[edit]]
        do = "add"
        place = "500"
        text = "__$aOne"
        where = "100"
        [[edit]]
        do = "add"
        place = "500"
        text = "__$aTwo"
        where = "500"
        [[edit]]
        do = "delete"
        place = "9XX"
        only-when = "901"
    )";
    EXPECT_EQ(Edited(kTask, "1001 $aN\n24510$aT\n900  $aX\n901  $aY"),
              "1001 $aN\n24510$aT\n500  $aOne\n500  $aTwo\n900  $aX");
    EXPECT_EQ(Edited(kTask, "24510$aT"), "24510$aT");
    EXPECT_EQ(Edited(kTask, "1001 $aN\n901  $aY"), "1001 $aN\n901  $aY");
}

TEST(TaskFile, SaysWhereItIsWrongAndWhatIsAllowed) {
    const struct {
        const char* toml;
        const char* text;
    } kWrong[] = {
        {"", "task.toml:1:1: no edits"},
        {"edit = 1", "task.toml:1:8: no edits"},
        {"edit = [1]", "task.toml:1:9: no edits"},
        {"title = 'x'", "task.toml:1:1: there is no key \"title\" here; the keys are where, edit"},
        {"[[edit]]\ndo = 'x", "task.toml:2:8: malformed TOML: "},
        {"[[edit]]\nplace = '245'", "task.toml:1:1: do: is missing; edit needs it"},
        {"[[edit]]\ndo = 'ad'",
         "task.toml:2:6: there is no operation \"ad\"; the operations are add, "},
        {"[[edit]]\ndo = 'add'\nplace = '245a'", "task.toml:1:1: text: is missing; add needs it"},
        {"[[edit]]\ndo = 'add'\n  place = '24'\ntext = 'x'",
         "task.toml:3:11: place: \"24\" is not a place"},
        {"[[edit]]\ndo = 'trim'\nplace = '245'\nsign = '.'",
         "task.toml:4:1: there is no key \"sign\" here; the keys are do, place, signs, at, where"},
        {"[[edit]]\ndo = 'trim'\nplace = [245]", "task.toml:3:9: neither a text nor a number"},
        {"[[edit]]\ndo = 'trim'\nplace = 245\nwhere = 'bad one'",
         "task.toml:4:9: no condition: bad one"},
    };
    for (const auto& row : kWrong) {
        SCOPED_TRACE(row.toml);
        try {
            Read(row.toml);
            ADD_FAILURE() << "was taken";
        } catch (const FileError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(row.text)) << error.what();
        }
    }
}

}  // namespace
}  // namespace quillory
