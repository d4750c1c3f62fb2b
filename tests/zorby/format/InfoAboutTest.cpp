#include <zorby/format/InfoAboutDefaultData.h>
#include <zorby/format/InfoAboutField.h>
#include <zorby/format/InfoAboutIndicator.h>
#include <zorby/format/InfoAboutPriority.h>
#include <zorby/format/InfoAboutSubfield.h>
#include <zorby/format/InfoAboutSubfieldText.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <tests/zorby/archive/Persisted.h>
#include <vector>

using namespace zorby;
using namespace std::string_literals;

namespace {

// The fields are what Create takes.
template <class Record, class... Fields>
std::unique_ptr<CObject> Made(Fields... fields) {
    auto record = std::make_unique<Record>();
    record->Create(fields...);
    return record;
}

struct WireCase {
    std::string bytes;
    std::unique_ptr<CObject> record;
    const char* name;
};

std::vector<WireCase> WireCases() {
    const std::string tag = "\xF5\0\0\0"s;  // 245
    const std::string one = "\1\0\0\0"s;
    const std::string two = "\2\0\0\0"s;
    std::vector<WireCase> cases;
    const auto add = [&](const char* name, std::unique_ptr<CObject> record, std::string bytes) {
        cases.push_back({std::move(bytes), std::move(record), name});
    };
    add("CInfoAboutField", Made<CInfoAboutField>(245U, "T", 1, 2, 1), tag + "\1T" + two + one);
    add("CInfoAboutSubfield", Made<CInfoAboutSubfield>(245U, 'a', "T", 1, 2, 3, 4, 5),
        "\1T" + tag + "a" + two + one + "\3\0\0\0\4\0\0\0"s);
    add("CInfoAboutFieldPriority", Made<CInfoAboutFieldPriority>(245U, 2), tag + two);
    add("CInfoAboutSubfieldPriority", Made<CInfoAboutSubfieldPriority>(245U, "ab", 1),
        tag + "\2ab" + one);
    add("CInfoAboutSubfieldPrompt", Made<CInfoAboutSubfieldPrompt>(245U, "ab"), tag + "\2ab");
    add("CInfoAboutSubfieldRules", Made<CInfoAboutSubfieldRules>(245U, 'a', "R"),
        "\1R" + tag + "a");
    add("CInfoAboutSubfieldReminders", Made<CInfoAboutSubfieldReminders>(245U, 'a', ""),
        "\0"s + tag + "a");
    add("CInfoAboutSubfieldExamples", Made<CInfoAboutSubfieldExamples>(245U, 'a', "E"),
        "\1E" + tag + "a");
    add("CInfoAboutIndicatorName", Made<CInfoAboutIndicatorName>(245U, 2, "N"), tag + two + "\1N");
    add("CInfoAboutIndicatorExplanation", Made<CInfoAboutIndicatorExplanation>(245U, 1, "N"),
        tag + one + "\1N");
    add("CInfoAboutIndicatorValue", Made<CInfoAboutIndicatorValue>(245U, 1, '_', "N"),
        tag + one + "_\1N");
    add("CInfoAboutIndicatorDefault", Made<CInfoAboutIndicatorDefault>(245U, '1', '_'), tag + "1_");
    add("CInfoAboutDefaultData", Made<CInfoAboutDefaultData>(245U, '1', '_', 'a', "D"),
        tag + "1_a\1D");
    add("CInfoAboutDefaultData", Made<CInfoAboutDefaultData>('b', "D"), "\0\0\0\0\0\0b\1D"s);
    return cases;
}

TEST(InfoAbout, EveryRecordHasItsBytes) {
    for (const WireCase& test : WireCases()) {
        SCOPED_TRACE(test.name);
        const CRuntimeClass& runtimeClass = *test.record->GetRuntimeClass();
        EXPECT_STREQ(runtimeClass.name, test.name);
        EXPECT_EQ(Store(*test.record), test.bytes);
        const auto loaded = runtimeClass.CreateObject();
        EXPECT_EQ(Load(test.bytes, *loaded), test.bytes.size());
        EXPECT_EQ(Store(*loaded), test.bytes);
    }
}

template <class List>
void ExpectListOf(const WireCase& element) {
    const auto list = List::kRuntimeClass.CreateObject();
    EXPECT_EQ(list->GetRuntimeClass()->name, element.name + "List"s);
    Load("\1\0\0\0"s + element.bytes, *list);
    Load("\1\0\0\0"s + element.bytes, *list);
    EXPECT_EQ(Load("\xFF\xFF\xFF\xFF"s + element.bytes, *list), 4U) << element.name;
    EXPECT_EQ(Store(*list), "\2\0\0\0"s + element.bytes + element.bytes) << element.name;
}

template <class... Lists>
void ExpectListsOf(const std::vector<WireCase>& elements) {
    std::size_t at = 0;
    (ExpectListOf<Lists>(elements[at++]), ...);
}

TEST(InfoAbout, EveryListIsACountAndItsRecords) {
    ExpectListsOf<CInfoAboutFieldList, CInfoAboutSubfieldList, CInfoAboutFieldPriorityList,
                  CInfoAboutSubfieldPriorityList, CInfoAboutSubfieldPromptList,
                  CInfoAboutSubfieldRulesList, CInfoAboutSubfieldRemindersList,
                  CInfoAboutSubfieldExamplesList, CInfoAboutIndicatorNameList,
                  CInfoAboutIndicatorExplanationList, CInfoAboutIndicatorValueList,
                  CInfoAboutIndicatorDefaultList, CInfoAboutDefaultDataList>(WireCases());
}

TEST(InfoAbout, TheUserDefinedFlagIsNotStored) {
    CInfoAboutField field;
    field.Create(590, "N", 1, 0, 1);
    Load(Store(field), field);
    EXPECT_EQ(field.IsUserDefined(), 0);
    CInfoAboutSubfield subfield;
    subfield.Create(590, 'a', "N", 1, 0, 0, 0, 1);
    Load(Store(subfield), subfield);
    EXPECT_EQ(subfield.IsUserDefined(), 0);
}

TEST(InfoAbout, ADamagedListLeavesTheListAsItWas) {
    CInfoAboutFieldList list;
    list.AddField(245, "Title", 0, 1, 0);
    list.AddField(500, "Note", 1, 0, 0);
    const std::string bytes = Store(list);
    const std::string absurd = "\xFF\xFF\xFF\x7F" + bytes.substr(4);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_THROW(Load(bytes.substr(0, size), list), CArchiveException) << size;
        EXPECT_EQ(Store(list), bytes) << size;
    }
    EXPECT_THROW(Load(absurd, list), CArchiveException);
    EXPECT_EQ(list.GetSize(), 2);
}

std::string Name(const CInfoAboutSubfield* subfield) {
    return subfield ? subfield->GetName() : "none";
}

TEST(InfoAbout, TheFirstOfSeveralMatchesCounts) {
    CInfoAboutSubfieldList list;
    list.AddSubfield(245, 'a', "first", 0, 0, 0, 2, 1);
    list.AddSubfield(245, 'b', "b", 0, 0, 1, 0, 0);
    list.AddSubfield(246, 'a', "other", 0, 0, 1, 0, 0);
    list.AddSubfield(245, 'a', "second", 0, 0, 1, 0, 0);
    EXPECT_EQ(Name(list.Find(245, 'a')), "first");
    EXPECT_EQ(list.GetPriority(245, 'a'), 1);
    EXPECT_EQ(list.GetPriority(245, 'b') + list.GetPriority(245, 'z'), 0);
    std::string codes = "x";
    list.AllSubfieldCodesForTag(245, codes);
    list.GetSubfieldsToPromptFor(245, codes);
    EXPECT_EQ(codes, "xababa");

    list.RemoveUserDefined();
    EXPECT_EQ(Name(list.Find(245, 'a')), "second");
    EXPECT_EQ(list.GetSize(), 3);
    EXPECT_EQ(list.GetAt(2)->GetName(), "second");
    EXPECT_EQ(list.GetAt(3), nullptr);
    EXPECT_EQ(list.GetAt(-1), nullptr);
    list.AddSubfield(900, 'a', "new", 0, 0, 0, 0, 0);
    EXPECT_EQ(Name(list.Find(900, 'a')), "new");
    EXPECT_EQ(Name(list.Find(901, 'a')), "none");
}

const CInfoAboutField* SlowFind(const CInfoAboutFieldList& list, unsigned tag) {
    for (int i = 0; i < list.GetSize(); ++i) {
        if (list.GetAt(i)->GetTag() == tag) return list.GetAt(i);
    }
    return nullptr;
}

TEST(InfoAbout, LookupsAgreeWithAWalkOfTheList) {
    std::mt19937 generator(245);
    const auto below = [&](unsigned end) { return static_cast<unsigned>(generator() % end); };
    CInfoAboutFieldList list;
    const std::string stored = "\2\0\0\0\7\0\0\0\0\0\0\0\0\0\0\0\0\4\0\0\0\0\0\0\0\0\0\0\0\0"s;
    for (int step = 0; step < 400; ++step) {
        const unsigned action = below(20);
        if (action == 0) list.RemoveUserDefined();
        if (action == 1) Load(stored, list);
        if (action > 1) list.AddField(below(12), "", 0, 0, below(2) == 0);
        for (unsigned tag = 0; tag < 13; ++tag) {
            ASSERT_EQ(list.Find(tag), SlowFind(list, tag)) << "step " << step << ", tag " << tag;
        }
    }
}

TEST(InfoAbout, AllTagsKeepsTheOrderOfTheList) {
    CInfoAboutFieldList list;
    for (const unsigned tag : {500U, 8U, 245U, 500U, 1000U, 0U}) list.AddField(tag, "", 0, 0, 0);
    EXPECT_EQ(*list.AllTags(0, 999), (std::vector<unsigned>{500, 8, 245, 500, 0}));
    EXPECT_EQ(*list.AllTags(8, 500), (std::vector<unsigned>{500, 8, 245, 500}));
    EXPECT_TRUE(list.AllTags(246, 245)->empty());
}

TEST(InfoAbout, WorkformListsFindTheFirstMatch) {
    CInfoAboutFieldPriorityList fields;
    CInfoAboutSubfieldPriorityList subfields;
    CInfoAboutSubfieldPromptList prompts;
    CInfoAboutSubfieldRulesList rules;
    CInfoAboutSubfieldRemindersList reminders;
    CInfoAboutSubfieldExamplesList examples;
    for (const int priority : {1, 2}) {
        fields.AddFieldPriority(245, priority);
        subfields.AddSubfieldPriority(245, priority == 1 ? "ab" : "bc", priority);
    }
    for (const char* text : {"", "ab"}) {
        prompts.AddSubfieldPrompt(245, text);
        rules.AddSubfieldRules(245, 'a', text);
        reminders.AddSubfieldReminders(245, 'a', text);
        examples.AddSubfieldExamples(245, 'a', text);
    }
    EXPECT_EQ(fields.Find(245), fields.GetAt(0));
    EXPECT_EQ(subfields.Find(245, 'b'), subfields.GetAt(0));
    EXPECT_EQ(subfields.Find(245, 'c'), subfields.GetAt(1));
    EXPECT_EQ(subfields.Find(245, 'd'), nullptr);
    EXPECT_EQ(prompts.Find(245), prompts.GetAt(0));
    EXPECT_EQ(rules.Find(245, 'a'), rules.GetAt(0));
    EXPECT_EQ(rules.Find(245, 'b'), nullptr);
    EXPECT_EQ(reminders.Find(245, 'a')->GetText(), "");
    EXPECT_EQ(examples.Find(246, 'a'), nullptr);
}

TEST(InfoAbout, NamesAreShownAsTheOptionSays) {
    struct OptionCase {
        int option;
        const char* indicator;
        const char* second;
        const char* value;
    };
    const OptionCase cases[] = {
        {0, "Type (First indicator)", "Type (Second indicator)", "None (_)"},
        {1, "Type", "Type", "None"},
        {2, "First indicator (Type)", "Second indicator (Type)", "_ (None)"},
        {3, "First indicator", "Second indicator", "_"},
        {4, "Type (First indicator)", "Type (Second indicator)", "None (_)"},
        {-1, "Type (First indicator)", "Type (Second indicator)", "None (_)"},
    };
    CInfoAboutIndicatorNameList names;
    names.AddIndicatorName(245, 1, "Type");
    names.AddIndicatorName(245, 2, "Type");
    CInfoAboutIndicatorValue value;
    value.Create(245, 1, '_', "None");
    for (const OptionCase& test : cases) {
        SCOPED_TRACE(test.option);
        const auto option = static_cast<EDISPLAYOPTIONS>(test.option);
        std::string text = "old";
        names.GetIndicatorNameFor(245, 1, option, text);
        EXPECT_EQ(text, test.indicator);
        names.GetIndicatorNameFor(245, 2, option, text);
        EXPECT_EQ(text, test.second);
        names.GetIndicatorNameFor(246, 2, option, text);
        EXPECT_EQ(text, "Indicator 2");
        value.Name(option, text);
        EXPECT_EQ(text, test.value);
    }
    std::string text = "old";
    names.AddIndicatorName(100, 1, "");
    names.GetIndicatorNameFor(100, 1, EDO_NameOnly, text);
    EXPECT_EQ(text, "Indicator 1");
}

TEST(InfoAbout, ExplanationsAndDefaultsOfIndicators) {
    CInfoAboutIndicatorExplanationList explanations;
    explanations.AddIndicatorExpl(245, 1, "");
    std::string text = "old";
    explanations.GetIndicatorExplanationFor(245, 2, text);
    EXPECT_EQ(text, "old");
    explanations.GetIndicatorExplanationFor(245, 1, text);
    EXPECT_EQ(text, "");

    CInfoAboutIndicatorDefaultList defaults;
    defaults.AddIndicatorDefault(245, '1', '_');
    EXPECT_EQ(defaults.DefaultIndicator(245, 1), '1');
    EXPECT_EQ(defaults.DefaultIndicator(245, 2), '_');
    EXPECT_EQ(defaults.DefaultIndicator(245, 7), '_');
    EXPECT_EQ(defaults.DefaultIndicator(246, 1), '\0');
}

TEST(InfoAbout, TheWalkOverIndicatorValuesHasOnePlace) {
    CInfoAboutIndicatorValueList list;
    list.AddIndicatorValue(245, 1, '0', "");
    list.AddIndicatorValue(100, 1, '1', "");
    list.AddIndicatorValue(245, 2, '2', "");
    list.AddIndicatorValue(245, 1, '3', "");
    list.AddIndicatorValue(100, 1, '4', "");
    EXPECT_EQ(list.GetIndicatorValueMatchFirst(245, 1)->GetValue(), '0');
    EXPECT_EQ(list.GetIndicatorValueMatchNext(245, 1)->GetValue(), '3');
    EXPECT_EQ(list.GetIndicatorValueMatchNext(100, 1)->GetValue(), '4');
    EXPECT_EQ(list.GetIndicatorValueMatchNext(245, 1), nullptr);
    list.AddIndicatorValue(245, 1, '5', "");
    EXPECT_EQ(list.GetIndicatorValueMatchNext(245, 1)->GetValue(), '5');
    EXPECT_EQ(list.GetIndicatorValueMatchFirst(245, 2)->GetValue(), '2');
    EXPECT_EQ(list.GetIndicatorValueMatchFirst(999, 1), nullptr);
    EXPECT_EQ(list.GetIndicatorValueMatchNext(245, 1), nullptr);
}

TEST(InfoAbout, DefaultDataIsWalkedAndCopiedInOrder) {
    CInfoAboutDefaultDataList list;
    EXPECT_EQ(list.GetFirst(), nullptr);
    list.AddDefaultData(245, '_', '0', 'a', "Title");
    list.AddDefaultData('c', "Author");
    list.CloneFrom(list);
    std::string walked;
    for (const auto* data = list.GetFirst(); data; data = list.GetNext()) {
        walked += std::to_string(data->GetTag()) + data->GetSubCode() + data->GetDefaultData();
    }
    EXPECT_EQ(walked, "245aTitle0cAuthor245aTitle0cAuthor");
    EXPECT_EQ(list.GetNext(), nullptr);
    const CInfoAboutDefaultData& first = *list.GetFirst();
    EXPECT_EQ(first.GetIndicator(1), '\0');
    EXPECT_EQ(first.GetIndicatorRaw(1), '_');
    EXPECT_EQ(first.GetIndicator(2), '0');
}

}  // namespace
