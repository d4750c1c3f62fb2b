#include <zorby/archive/MemoryStream.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <tests/zorby/workforms/Workforms.h>

using namespace zorby;

namespace {

class Template : public Workforms {
protected:
    Template() { Start(); }

    static CTemplate& Standard(const char* name) {
        return *CTemplateList::GetStandardTemplate(name);
    }

    static std::string Tags(const CTagArray& tags) {
        std::string text;
        for (const unsigned tag : tags) text += std::to_string(tag) + " ";
        return text;
    }
    static std::string Menu(const std::unique_ptr<CMARCInfo>& menu) {
        if (!menu) return "(none)";
        std::string text;
        for (int i = 0; i < menu->GetSize(); ++i) {
            char code = 0;
            std::string name;
            menu->GetCodeAt(i, &code);
            menu->GetStringAt(i, name);
            text += std::string(1, code) + "=" + name + ";";
        }
        return text;
    }
};

TEST_F(Template, LooksInItsOwnListsThenItsBaseThenTheDictionary) {
    const CTemplate& book = Standard(kBook);
    const CTemplate& largePrint = Standard("Large print");
    const CTemplate& music = Standard("Music");
    EXPECT_TRUE(book.IsBaseTemplate());
    EXPECT_EQ(book.GetBaseTemplateName(), kBook);
    EXPECT_FALSE(largePrint.IsBaseTemplate());

    std::string text = "old";
    largePrint.SubfieldRules(245, 'a', text);
    EXPECT_EQ(text, "Rule of the base");
    largePrint.SubfieldRules(245, 'b', text);
    EXPECT_EQ(text, "Own rule");
    largePrint.SubfieldExamples(245, 'a', text);
    EXPECT_EQ(text, "Example");
    largePrint.SubfieldReminders(245, 'a', text);
    EXPECT_EQ(text, "");

    largePrint.SubfieldPrompt(245, text);
    EXPECT_EQ(text, "ab");
    text.clear();
    music.SubfieldPrompt(245, text);
    EXPECT_EQ(text, "a");
    EXPECT_EQ(largePrint.FieldPriority(245), 1);
    EXPECT_EQ(music.FieldPriority(245), 0);
    EXPECT_EQ(largePrint.SubfieldPriority(245, 'a'), 1);
    EXPECT_EQ(largePrint.SubfieldPriority(245, 'b'), 0);
    EXPECT_EQ(largePrint.FieldIndicator(500, 2), '4');
    EXPECT_EQ(music.FieldIndicator(245, 1), '1');

    largePrint.MARCInfoIndicatorExplanationFor(245, 2, text);
    EXPECT_EQ(text, "Of the base");
    largePrint.MARCInfoIndicatorExplanationFor(245, 1, text);
    EXPECT_EQ(text, "Whether to trace the title");
    largePrint.MARCInfoIndicatorExplanationFor(500, 1, text);
    EXPECT_EQ(text, "This is an undefined indicator");
    largePrint.MARCInfoIndicatorNameFor(245, 1, EDO_NameOnly, text);
    EXPECT_EQ(text, "Own name");
    largePrint.MARCInfoIndicatorNameFor(245, 2, EDO_NameOnly, text);
    EXPECT_EQ(text, "Indicator 2");

    EXPECT_EQ(CTemplate::FieldRepeatable(245), 0);
    EXPECT_EQ(CTemplate::FieldRepeatable(777), 1);
    EXPECT_EQ(CTemplate::FieldMandatory(245), 1);
    EXPECT_EQ(CTemplate::SubfieldRepeatable(245, 'x'), 1);
    EXPECT_EQ(CTemplate::SubfieldMandatory(245, 'a'), 1);
}

TEST_F(Template, AnEmptyPromptAndAnEmptyIndicatorOfItsOwn) {
    CTemplate own;
    own.CloneFrom(Standard(kBook));
    own.AddSubfieldPrompt(245, "");
    own.AddIndicatorDefault(500, '\0', '9');
    std::string text = "old";
    own.SubfieldPrompt(245, text);
    EXPECT_EQ(text, "");
    EXPECT_EQ(own.FieldIndicator(500, 1), '3');
    EXPECT_EQ(own.FieldIndicator(500, 2), '9');
}

TEST_F(Template, DefaultDataInTheOrderOfFields) {
    CTemplate workform;
    workform.AddDefaultData('z', "before any field");
    workform.AddDefaultData(245, '1', '0', 'c', "");
    workform.AddDefaultData('a', "Title");
    workform.AddDefaultData(500, '_', '_', 'a', "Note");
    workform.AddDefaultData(245, '0', '0', 'b', "again");
    EXPECT_EQ(workform.SubsInTemplateOrder(245), "cab");
    EXPECT_EQ(workform.SubsInTemplateOrder(500), "a");
    EXPECT_EQ(CTemplate().SubsInTemplateOrder(245), "ab");
    // To tag 0 belong the entries that have no tag.
    EXPECT_EQ(workform.SubsInTemplateOrder(0), "za");
    EXPECT_EQ(workform.DefaultDataIncludes(0, 'z'), 1);
    EXPECT_EQ(workform.DefaultDataIncludes(0, 'c'), 0);
    EXPECT_EQ(workform.DefaultDataIncludes(245, 'b'), 1);
    EXPECT_EQ(workform.DefaultDataIncludes(500, 'b'), 0);
    EXPECT_EQ(workform.DefaultDataIncludes(245, 'z'), 0);

    std::string all;
    for (const auto* data = workform.GetDefaultDataFirst(0); data != nullptr;
         data = workform.GetDefaultDataNext(0)) {
        all += data->GetSubCode();
    }
    EXPECT_EQ(all, "zcaab");
    EXPECT_EQ(workform.GetDefaultDataFirst(245)->GetSubCode(), 'c');
    EXPECT_EQ(workform.GetDefaultDataNext(245)->GetSubCode(), 'b');
    EXPECT_EQ(workform.GetDefaultDataNext(245), nullptr);
    EXPECT_EQ(workform.GetDefaultDataFirst(100), nullptr);
    EXPECT_EQ(workform.GetDefaultDataAt(4)->GetDefaultData(), "again");
    EXPECT_EQ(workform.GetDefaultDataAt(-1), nullptr);
}

TEST_F(Template, WhatMayBeAdded) {
    CTagArray existing;
    existing.push_back(245);
    existing.push_back(500);
    EXPECT_EQ(Tags(*CTemplate::FieldsAvailableToAddViaMenu(existing, 0)), "8 500 852 ");
    EXPECT_EQ(Tags(*CTemplate::FieldsAvailableToAdd(existing, 1, 0)), "8 245 500 852 ");
    EXPECT_EQ(Tags(*CTemplate::FieldsAvailableToAdd(existing, 0, 245)), "8 500 852 245 ");
    const auto any = CTemplate::FieldsAvailableToAddViaEdit(existing, 0, 1, 0);
    EXPECT_EQ(any->size(), 3U + 999 - 4 - 1);
    EXPECT_FALSE(any->Find(245));
    for (const unsigned tag : {5U, 6U, 7U}) EXPECT_FALSE(any->Find(tag)) << tag;
    EXPECT_EQ(std::count(any->begin(), any->end(), 8U), 1);  // the dictionary's
    EXPECT_EQ(CTemplate::FieldsAvailableToAddViaEdit(existing, 1, 1, 0)->size(), 4U + 999 - 4);

    std::string codes;
    CTemplate::SubfieldsAvailableToAddViaMenu(245, "a", 'x', codes);
    EXPECT_EQ(codes, "bx");
    codes.clear();
    CTemplate::SubfieldsAvailableToAdd(245, "ab", 1, 'b', codes);
    EXPECT_EQ(codes, "ab");
    codes.clear();
    CTemplate::SubfieldsAvailableToAddViaEdit(245, "a", 0, 1, '\0', codes);
    EXPECT_EQ(codes, "babcdefghijklmnopqrstuvwxyz0123456789!\"#$%&'()*+,-./:;<=>?");
}

TEST_F(Template, Menus) {
    EXPECT_EQ(CTemplate::MARCInfoFieldTagAndName(CTagArray(), EDO_NameOnly), nullptr);
    const auto fields =
        CTemplate::MARCInfoFieldTagAndName(*CMARCFormat::AllTags(0, 999), EDO_NameOnly);
    std::uint32_t tag = 0;
    fields->GetCodeAt(0, &tag);
    EXPECT_EQ(tag, 8U);
    EXPECT_EQ(Menu(CTemplate::MARCInfoSubfieldCodeAndName(245, "", EDO_NameOnly)), "(none)");
    EXPECT_EQ(Menu(CTemplate::MARCInfoSubfieldCodeAndName(245, "ab", EDO_NameOnly)),
              "b=Remainder;a=Title;");
    EXPECT_EQ(Menu(CTemplate::MARCInfoIndicatorCodeAndText(245, 1, EDO_NameOnly, false)),
              "0=No;1=Yes;");
    EXPECT_EQ(Menu(CTemplate::MARCInfoIndicatorCodeAndText(650, 2, EDO_NameOnly, true)),
              "_=Undefined;");
    std::unique_ptr<CMARCInfo> first, second;
    std::string explanation1, explanation2, name1, name2;
    Standard(kBook).MARCInfoIndicators(245, first, second, explanation1, explanation2, name1, name2,
                                       EDO_NameOnly);
    EXPECT_EQ(Menu(first), "0=No;1=Yes;");
    EXPECT_EQ(Menu(second), "_=Undefined;");
    EXPECT_EQ(explanation2, "Of the base");
    EXPECT_EQ(name1, "Indicator 1");
    EXPECT_EQ(name2, "Name in the base");
}

TEST_F(Template, SearsIsOfferedForSubjects) {
    CMARCFormat format;
    format.AddIndicatorValue(650, 2, '0', "LCSH");
    format.AddIndicatorValue(650, 2, '4', "Zzz");
    folder.Write("MARCBibl.tfm", Store(format));
    CMARCFormat::InitializeYourself("");
    EXPECT_EQ(Menu(CTemplate::MARCInfoIndicatorCodeAndText(650, 2, EDO_NameAndCode, true)),
              "0=LCSH (0);7=Sears specified in $2;4=Zzz (4);");
    EXPECT_EQ(Menu(CTemplate::MARCInfoIndicatorCodeAndText(650, 2, EDO_NameOnly, false)),
              "0=LCSH;4=Zzz;");
}

TEST_F(Template, CloneRestsOnItsOrigin) {
    CTemplate own;
    own.AddDefaultData(300, '_', '_', 'a', "");
    own.CloneFrom(Standard("Large print"));
    EXPECT_EQ(own.GetBaseTemplateName(), kBook);
    EXPECT_EQ(own.GetName(), "Large print");
    EXPECT_NE(own.IsSavedTemplate(), 0);
    EXPECT_EQ(own.GetDefaultData().GetSize(), 0);
    std::string text;
    own.SubfieldRules(245, 'b', text);
    EXPECT_EQ(text, "Own rule");

    CTemplate book;
    book.CloneFrom(Standard(kBook));
    CTemplate copy;
    copy.AddDefaultData(300, '_', '_', 'a', "");
    copy.CloneFrom(book);
    EXPECT_EQ(copy.GetDefaultData().GetSize(), 1);
    EXPECT_EQ(copy.GetMaterialType(), MTBook);
}

TEST_F(Template, ArchiveForm) {
    CTemplate workform;
    workform.SetName("N");
    workform.SetID(300);
    workform.AddSubfieldPrompt(245, "a");
    workform.AddDefaultData(245, '1', '0', 'a', "T");
    const std::string stored = Store(workform);
    const std::string main = [] {
        CCFMainMaterial blank;
        return Store(blank);
    }();
    const std::string zero(4, '\0');
    const std::string prompt("\1\0\0\0\365\0\0\0\001a", 10);
    const std::string data("\1\0\0\0\365\0\0\00010a\001T", 13);
    const std::string lists("\1\0\0\0\0\1\0\0\0\0", 10);
    EXPECT_EQ(stored, "\001N" + std::string("\054\1\0\0\0", 5) + zero + main + prompt +
                          std::string(8 * 4, '\0') + data + lists);
    CTemplate loaded;
    EXPECT_EQ(Load(stored, loaded), stored.size());
    EXPECT_EQ(Store(loaded), stored);
    for (std::size_t size = 0; size < stored.size(); size += 7) {
        CTemplate cut;
        EXPECT_THROW(Load(stored.substr(0, size), cut), CArchiveException) << size;
    }
}

TEST_F(Template, SavedByOneProgramAndUsedByTheNext) {
    CTemplate own;
    own.CloneFrom(Standard("Large print"));
    own.SetName("My large print");
    own.AddRET(300, 'a', "", "", "Measure it");
    host.updates.clear();
    ASSERT_EQ(own.SaveYourself(3, 5), 1);
    EXPECT_EQ(host.updates, std::vector<std::string>{"0 \\My large print 3 3 1 5 1"});
    EXPECT_EQ(own.GetID(), 100);

    CTemplateList::DestroyTemplateList();
    Start();
    host.entries[100].name = "Renamed";
    const TemplateHolder saved(CTemplateList::GetTemplate(100));
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(saved->GetName(), "Renamed");
    EXPECT_EQ(saved->GetID(), 100);
    EXPECT_NE(saved->IsSavedTemplate(), 0);
    std::string text;
    saved->SubfieldReminders(300, 'a', text);
    EXPECT_EQ(text, "Measure it");
    saved->SubfieldExamples(245, 'a', text);
    EXPECT_EQ(text, "Example");

    // Saving again is a new entry, as far as the library knows.
    EXPECT_EQ(saved->SaveYourself(1, 1), 1);
    EXPECT_EQ(saved->GetID(), 101);
    host.nextID = 0;
    EXPECT_EQ(saved->SaveYourself(1, 1), 0);
    EXPECT_EQ(saved->GetID(), 101);
}

TEST_F(Template, CallsOfTheHost) {
    EXPECT_EQ(host.updates, (std::vector<std::string>{"1 " + std::string(kBook) + " 0 0 0 1 1",
                                                      "2 Music 0 0 0 1 1", "3 Map 0 0 0 1 1",
                                                      "4 Large print 0 0 0 1 1"}));
    host.updates.clear();
    EXPECT_EQ(CTemplate::Lock(0, 5), 0);
    EXPECT_EQ(CTemplate::Lock(7, 0), 0);
    EXPECT_EQ(CTemplate::Lock(7, 5), 1);
    CTemplate workform;
    workform.Unlock(0);
    workform.Unlock(7);
    workform.SetName("New");
    EXPECT_EQ(workform.GetID(), 100);
    EXPECT_EQ(workform.GetID(), 100);
    EXPECT_EQ(host.updates, (std::vector<std::string>{"7 (null) 5 5 1 1 1", "7 (null) 0 0 0 1 1",
                                                      "0 New 0 0 0 1 1"}));
    EXPECT_EQ(CTemplate::CanAllocateNextTemplateID(), 101);
    CTemplate::DeleteFromDB(100);
    EXPECT_TRUE(host.entries.empty());

    CTemplate::InitTemplateCB({});
    EXPECT_EQ(workform.SaveYourself(1, 1), 0);
    EXPECT_EQ(CTemplate::Lock(7, 5), 0);
    EXPECT_EQ(CTemplateList::GetTemplate(1), nullptr);
    EXPECT_EQ(CTemplateList::GetTemplate(100), nullptr);
}

TEST_F(Template, NameLists) {
    host.standard = {{1, "One"}, {2, "Two"}};
    CStringAndUINTArraySorted list;
    list.push_back({"old", 9});
    CTemplate::TemplateNames(list);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1].text, "Two");
    EXPECT_EQ(CTemplate::GetTemplateName(9), "");

    for (const char* base : {"Music", kBook, "Music"}) {
        CTemplate own;
        own.CloneFrom(Standard(base));
        own.SetName("My " + own.GetName());
        own.SaveYourself(1, 1);
    }
    list.clear();
    CTemplate::UDTemplateNames(list, "");
    EXPECT_EQ(list.size(), 3U);
    list.clear();
    CUIntArray ids;
    CTemplate::UDTemplateNamesAndBaseTemplateNames(list, ids);
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(ids, (CUIntArray{1, 2, 2}));
    EXPECT_EQ(list[0].value, 101U);
    EXPECT_EQ(list[2].value, 102U);
}

}  // namespace
