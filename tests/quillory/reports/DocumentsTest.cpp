#include <quillory/reports/CodeRows.h>
#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/DictionarySearch.h>
#include <quillory/reports/FieldDocument.h>
#include <quillory/reports/HoldingsTypeDocument.h>
#include <quillory/reports/SettingRows.h>
#include <quillory/reports/StoredRecordRow.h>
#include <quillory/reports/WorkformDocument.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quillory {
namespace {

const IndicatorDocument kIndicator{
    "245",
    1,
    "Title added entry",
    "Whether an added entry is made:\nit is not,  where the work is entered under its title alone.",
    {{"0", "No added entry", false}, {"#", "Undefined", true}}};
const SubfieldDocument kSubfield{.tag = "245",
                                 .code = "a",
                                 .name = "Título",
                                 .repeatable = false,
                                 .mandatory = true,
                                 .prompted = true,
                                 .priority = false,
                                 .userDefined = false};

FieldDocument Field(bool withSubfields) {
    FieldDocument field{.tag = "245",
                        .name = "Title statement",
                        .explanation = "",
                        .repeatable = false,
                        .mandatory = true,
                        .userDefined = true,
                        .codes = "abc",
                        .indicators = {},
                        .subfields = {}};
    if (withSubfields) field.subfields = {kSubfield};
    return field;
}

HoldingsTypeDocument Holdings() {
    return {.type = 7,
            .name = "System",
            .formerNames = {"Older", "Oldest"},
            .tags = "852",
            .isInForce = true,
            .elements = {{{.id = 3,
                           .name = "Bar code",
                           .tag = "852",
                           .subfield = "$p",
                           .repeatDelimiter = ";",
                           .oncePerRecord = true,
                           .help = "As it is\nprinted."}}}};
}

CodedElements Elements() {
    CodedElementDocument codes{.place = "008/18-21",
                               .name = "Illustrations",
                               .forms = {"books"},
                               .parts = {16, 17},
                               .also = "006/01-04",
                               .width = 4,
                               .codes = {},
                               .codeLength = 1,
                               .formerName = {}};
    codes.codes = {
        {" ", "None", CodeState::Known, "", "", "", true},
        {"x y", "Old", CodeState::Obsolete, "1990", "2008", "p q", true},
        {"n", "New", CodeState::Newer, "2012", "", "", true},
        {"l", "Own", CodeState::Known, "", "", "", false},
    };
    return {codes,
            {.place = "007/00",
             .name = "Étoile",
             .forms = {"all"},
             .parts = {},
             .also = {},
             .width = 1,
             .codes = {},
             .codeLength = 0,
             .formerName = "Star"}};
}

WorkformRow Row(int id, const std::string& name) {
    return {.id = id,
            .name = name,
            .isStandard = id < 100,
            .material = "Books",
            .materialType = 1,
            .base = {}};
}

WorkformRows Rows() {
    WorkformRows rows = {Row(1, "Book"), Row(101, "本")};
    rows[1].base = "Gone";
    rows[1].baseIsMissing = true;
    return rows;
}

WorkformDocument Workform() {
    WorkformDocument workform;
    workform.row = Rows()[1];
    DecodedElement date{
        Place::OfField("008").Positions(0, 5), "Date", " 99", ElementState::Free, {}, "a day"};
    DecodedElement code{Place::OfField("008").Positions(6, 6),
                        "Kind",
                        "s",
                        ElementState::Coded,
                        {{"s", "Single", CodeState::Unknown, "", "", "", false}},
                        ""};
    workform.controlFields = {{" 99s", {Place::OfField("008"), zorby::CF006None, {date, code}}}};
    WorkformSubfield subfield{.code = "a",
                              .name = "Title",
                              .isPrompted = true,
                              .isPriority = true,
                              .rules = "One.\nTwo.",
                              .reminders = {},
                              .examples = {},
                              .data = ""};
    workform.fields = {{"245", "Title statement", true, {subfield}, "1#"}};
    subfield.data.reset();
    workform.otherFields = {{"500", "Note", false, {}, {}}};
    workform.indicators = {{"245", 2, "Articles", "0", ""}};
    workform.holdings = 2;
    return workform;
}

StoredRecord Stored(int workform) {
    StoredRecord record;
    record.id = 12;
    record.summary = {"é1", "Roughing it", "am"};
    record.added = 86399;
    record.changed = 951782400;  // a leap day
    record.workform = workform;
    return record;
}

// Line ends as "/", so that a text stands in one line of the table.
std::string Flat(std::string text) {
    std::ranges::replace(text, '\n', '/');
    return text;
}

TEST(Documents, AsText) {
    const struct {
        const char* name;
        std::string text;
        const char* expected;
    } kCases[] = {
        {"indicator", ToText(kIndicator),
         "Title added entry/"
         "    Whether an added entry is made: it is not, where the work is entered/"
         "    under its title alone./"
         "    0  No added entry/    #  Undefined  (default)/"},
        {"subfield", ToText(kSubfield),
         "    Título                                          not repeatable, required, prompted/"},
        {"field", ToText(Field(false)),
         "Title statement, not repeatable, required, user-defined/Subfields: abc/"},
        {"hits", ToText(SearchHits{{"245", "Title"}, {"245/2", "# Blank"}}),
         "245     Title/245/2   # Blank/"},
        {"holdings", ToText(Holdings()),
         "  7  System                                      852  (formerly Older)"
         "  (formerly Oldest)  in force/"
         "  3  852 $p      Bar code, several values divided by \";\", once a record/"
         "       As it is printed./"},
        {"elements", ToText(Elements()),
         "008/18-21  Illustrations (books)/"
         "    up to 4 codes; parts 16, 17; also 006/01-04/"
         "    #  None/"
         "    x#y  Old  (obsolete since 2008, now p or q)/"
         "    n  New  (newer than the library's list, of 2012)/"
         "    l  Own/"
         "/007/00  Étoile/    1 character; was Star/"},
        {"elements in brief", ToBriefText(Elements()),
         "008/18-21  Illustrations (books)  up to 4 codes; parts 16, 17; also 006/01-04/"
         "007/00  Étoile                    1 character; was Star/"},
        {"codes",
         ToText(CodeRows{
             {"008", "books", "35-37", 7, "Language", "e#", "", "E", "newer", "1", "", "f"}}),
         "field\tform\tpositions\tpart\tlist\tcode\tsecond_code\ttext\tstatus\tsince\tuntil\tuse/"
         "008\tbooks\t35-37\t7\tLanguage\te#\t\tE\tnewer\t1\t\tf/"},
        {"workforms", ToText(Rows(), true), "1    Book  Books/101  本    Books  Gone (missing)/"},
        {"workforms without bases", ToText(Rows(), false), "1    Book  Books/101  本    Books/"},
        {"workform", ToText(Workform(), {.width = 40}),
         "本 (workform 101)/Material  Books/Based on  Gone (missing)/Holdings  2/"
         "/Control fields/008     #99s/"
         "        00-05  Date  #99  a day/        06     Kind  s    ? unknown code/"
         "/Fields of a new record/245 1#  Title statement (priority)/"
         "        $a  Title (prompt, priority)/"
         "            Rule: One./                  Two./"
         "/Help for other fields/500     Note/"
         "/Indicators/245/2   Articles, default 0/"},
        {"record", ToText(Stored(0)), "12       é1               am Roughing it/"},
        {"settings", ToText(SettingRows{{0, "ZP_A", "1"}, {{}, "holdings.EasyOrCustom", "Easy"}}),
         "  0 ZP_A                                       1/"
         "holdings.EasyOrCustom                         Easy/"},
    };
    for (const auto& [name, text, expected] : kCases) EXPECT_EQ(Flat(text), expected) << name;
    const std::string field = ToText(Field(true));
    EXPECT_TRUE(field.ends_with("\nSubfields\n" + ToText(kSubfield))) << field;
}

TEST(Documents, AsJson) {
    const struct {
        const char* name;
        std::string json;
        const char* expected;
    } kCases[] = {
        {"indicator", JsonLine(kIndicator),
         R"({"tag":"245","indicator":1,"name":"Title added entry","explanation":"Whether an added )"
         R"(entry is made:\nit is not,  where the work is entered under its title alone.","values":)"
         R"([{"value":"0","name":"No added entry","default":false},)"
         R"({"value":"#","name":"Undefined","default":true}]})"},
        {"field", JsonLine(Field(true)),
         R"({"tag":"245","name":"Title statement","repeatable":false,"mandatory":true,)"
         R"("user_defined":true,"codes":"abc","indicators":[],"subfields":[{"tag":"245","code":"a",)"
         R"("name":"Título","repeatable":false,"mandatory":true,"prompted":true,"priority":false,)"
         R"("user_defined":false}]})"},
        {"hits", JsonLine(SearchHits{{"245", "T"}}), R"([{"place":"245","name":"T"}])"},
        {"holdings", JsonLine(Holdings()),
         R"({"type":7,"name":"System","former_names":["Older","Oldest"],"tags":"852",)"
         R"("in_force":true,"elements":[{"id":3,"name":"Bar code","tag":"852","subfield":"$p",)"
         R"("repeat_delimiter":";","once_per_record":true,"help":"As it is\nprinted."}]})"},
        {"elements", JsonLine(Elements()),
         R"([{"place":"008/18-21","name":"Illustrations","forms":["books"],"parts":[16,17],)"
         R"("also":"006/01-04","width":4,"codes":[)"
         R"({"code":"#","text":"None","status":"current"},)"
         R"({"code":"x#y","text":"Old","status":"obsolete","since":"1990","until":"2008",)"
         R"("use":"p q"},{"code":"n","text":"New","status":"newer","since":"2012"},)"
         R"({"code":"l","text":"Own","status":"local"}],"code_length":1},)"
         R"({"place":"007/00","name":"Étoile","forms":["all"],"parts":[],"width":1,"codes":[],)"
         R"("former_name":"Star"}])"},
        {"codes", JsonLine(CodeRow{"006", "", "00", 3, "", "a#", "b", "", "", "", "", ""}),
         R"({"field":"006","form":"","positions":"00","part":3,"list":"","code":"a#",)"
         R"("second_code":"b",)"
         R"("text":"","status":"","since":"","until":"","use":""})"},
        {"workforms", JsonLine(Rows()),
         R"([{"id":1,"name":"Book","standard":true,"material":"Books","material_type":1},)"
         R"({"id":101,"name":"本","standard":false,"material":"Books","material_type":1,)"
         R"("base":"Gone","base_is_missing":true}])"},
        {"workform", JsonLine(Workform()),
         R"({"id":101,"name":"本","standard":false,"material":"Books","material_type":1,)"
         R"("base":"Gone","base_is_missing":true,"control_fields":[{"tag":"008","content":"#99s",)"
         R"("elements":[{"place":"008/00-05","name":"Date","value":"#99","text":"a day"},)"
         R"({"place":"008/06","name":"Kind","value":"s","codes":)"
         R"([{"code":"s","text":"Single","status":"unknown"}]}]}],)"
         R"("fields":[{"tag":"245","name":"Title statement","priority":true,"subfields":)"
         R"([{"code":"a","name":"Title","prompt":true,"priority":true,"rules":"One.\nTwo.",)"
         R"("data":""}],"indicators":"1#"}],)"
         R"("other_fields":[{"tag":"500","name":"Note","priority":false,"subfields":[]}],)"
         R"("indicators":[{"tag":"245","indicator":2,"name":"Articles","default":"0"}],)"
         R"("holdings":2})"},
        {"record", JsonLine(Stored(101)),
         R"({"id":12,"control_number":"é1","title":"Roughing it","type":"am",)"
         R"("added":"1970-01-01T23:59:59Z","changed":"2000-02-29T00:00:00Z","workform":101})"},
        {"record without workform", JsonLine(Stored(0)),
         R"({"id":12,"control_number":"é1","title":"Roughing it","type":"am",)"
         R"("added":"1970-01-01T23:59:59Z","changed":"2000-02-29T00:00:00Z"})"},
        {"settings", JsonLine(SettingRows{{0, "ZP_A", "1"}, {{}, "holdings.EasyOrCustom", "Easy"}}),
         R"([{"id":0,"name":"ZP_A","value":"1"},)"
         R"({"name":"holdings.EasyOrCustom","value":"Easy"}])"},
    };
    for (const auto& [name, json, expected] : kCases) {
        EXPECT_EQ(json, std::string(expected) + "\n") << name;
    }
}

TEST(Documents, WorkformsOfAMaterialStandTogether) {
    WorkformRows rows;
    for (const int type : {5, 2, 5, 9, 2}) {
        rows.push_back(Row(static_cast<int>(rows.size()) + 1, "x"));
        rows.back().materialType = type;
    }
    SortByMaterial(rows);
    std::string ids;
    for (const WorkformRow& row : rows) ids += std::to_string(row.id);
    EXPECT_EQ(ids, "13254");
}

}  // namespace
}  // namespace quillory
