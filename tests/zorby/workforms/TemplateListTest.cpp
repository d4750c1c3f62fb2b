#include <zorby/controlfields/AdditionalMaterialsList.h>
#include <zorby/layouts/GlobalEditing.h>
#include <zorby/settings/Profile.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <tests/zorby/workforms/Workforms.h>

using namespace zorby;

namespace {

class TemplateList : public Workforms {
protected:
    static std::string Name(const CTemplate* workform) {
        return workform == nullptr ? "(none)" : workform->GetName();
    }
};

TEST_F(TemplateList, LoadsOrTellsWhyNot) {
    EXPECT_EQ(CTemplateList::InitializeTemplateList("/nowhere/"), 0);
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "File \"/nowhere/zorby.ttm\"could not be opened.  Can't start program.  Code: 2");
    EXPECT_EQ(CTemplateList::TheOneAndOnly(), nullptr);
    EXPECT_EQ(CTemplateList::GetStandardTemplate(kBook), nullptr);

    // Nothing to fall back on: no list, and no endless search for a base.
    WriteStandard(StandardList("Book"));
    EXPECT_EQ(Start(), 0);
    ASSERT_EQ(messages.messages.size(), 2U);
    EXPECT_NE(messages.messages[1].text.find(kBook), std::string::npos);
    EXPECT_EQ(CTemplateList::TheOneAndOnly(), nullptr);

    const std::string bytes = StandardList();
    for (std::size_t size = 0; size < bytes.size(); size += 11) {
        WriteStandard(bytes.substr(0, size));
        EXPECT_THROW(Start(), CArchiveException) << size;
        EXPECT_EQ(CTemplateList::TheOneAndOnly(), nullptr) << size;
    }
    WriteStandard(bytes);
    EXPECT_EQ(Start(), 1);
    EXPECT_NE(CTemplateList::TheOneAndOnly(), nullptr);
}

TEST_F(TemplateList, FindsTheFirstThatMatches) {
    Start();
    EXPECT_EQ(Name(CTemplateList::GetTemplate(MTBook)), kBook);
    EXPECT_EQ(Name(CTemplateList::GetTemplate(MTKit)), "(none)");
    EXPECT_EQ(Name(CTemplateList::GetStandardTemplate("Large print")), "Large print");
    EXPECT_EQ(Name(CTemplateList::GetStandardTemplate("large print")), kBook);
    EXPECT_EQ(Name(CTemplateList::GetTemplate(CF006Books, CF007Video)), kBook);
    EXPECT_EQ(Name(CTemplateList::GetTemplate(CF006MusicSound, CF007None)), "Music");
    EXPECT_EQ(Name(CTemplateList::GetTemplate(CF006MusicSound, CF007Microform)), "Music");
    EXPECT_EQ(Name(CTemplateList::GetTemplate(CF006MusicSound, CF007Electronic)), "Music");
    EXPECT_EQ(Name(CTemplateList::GetTemplate(CF006MusicSound, CF007Sound)), "(none)");
    EXPECT_EQ(Name(CTemplateList::GetTemplate(CF006Map, CF007Map)), "Map");
    EXPECT_EQ(Name(CTemplateList::GetTemplate(CF006Map, CF007None)), "(none)");

    std::vector<std::string> names;
    CTemplateList::GetTemplateNames(names, "Map");
    EXPECT_EQ(names, std::vector<std::string>{"Map"});
    CTemplateList::GetTemplateNames(names, nullptr);
    EXPECT_EQ(names.size(), 5U);
    CStringAndUINTArraySorted entries;
    entries.push_back({"old", 9});
    CTemplateList::GetTemplateNames(entries);
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[3].value, 4U);
}

TEST_F(TemplateList, ByID) {
    Start();
    host.standard = {{3, "Map"}, {99, "Music"}};
    EXPECT_EQ(Name(CTemplateList::GetTemplate(3)), "Map");
    EXPECT_EQ(Name(CTemplateList::GetTemplate(99)), "Music");
    EXPECT_EQ(Name(CTemplateList::GetTemplate(50)), kBook);
    EXPECT_EQ(Name(CTemplateList::GetTemplate(-5)), kBook);
    EXPECT_EQ(CTemplateList::GetTemplate(100), nullptr);
    host.entries[100] = {"Damaged", "\005abc", 1};
    EXPECT_THROW(CTemplateList::GetTemplate(100), CArchiveException);
    EXPECT_EQ(host.entries[100].block, "\005abc");
}

TEST_F(TemplateList, ABaseThatIsGoneBecomesTheBook) {
    Start();
    CTemplate own;
    own.CloneFrom(*CTemplateList::GetStandardTemplate("Map"));
    own.SetBaseTemplateName("No such workform");
    own.SaveYourself(1, 1);
    const TemplateHolder saved(CTemplateList::GetTemplate(100));
    std::string text;
    saved->SubfieldRules(245, 'a', text);
    EXPECT_EQ(text, "Rule of the base");
    EXPECT_EQ(saved->GetBaseTemplateName(), "No such workform");
}

TEST_F(TemplateList, ImportsMayUseAWorkformOfTheUser) {
    Start();
    host.standard = {{1, kBook}, {3, "Map"}};
    EXPECT_EQ(Name(CTemplateList::GetImportTemplate(MTMap)), "Map");
    EXPECT_EQ(Name(CTemplateList::GetImportTemplate(MTKit)), "(none)");
    CTemplate own;
    own.CloneFrom(*CTemplateList::GetStandardTemplate("Map"));
    own.SetName("My map");
    own.SaveYourself(1, 1);

    CTemplateList::WriteZorbyTemplateMapProfileInt("Map", 99);
    EXPECT_EQ(CTemplateList::GetZorbyTemplateMapProfileInt("Map"), 0);
    CTemplateList::WriteZorbyTemplateMapProfileInt("Map", 100);
    EXPECT_EQ(CTemplateList::GetZorbyTemplateMapProfileInt("Map"), 100);
    const TemplateHolder mine(CTemplateList::GetImportTemplate(MTMap));
    EXPECT_EQ(Name(mine.get()), "My map");

    // A mapping whose workform is gone, or out of use, is forgotten.
    host.entries[100].state = 0;
    EXPECT_EQ(Name(CTemplateList::GetImportTemplate(MTMap)), "Map");
    EXPECT_EQ(CTemplateList::GetZorbyTemplateMapProfileInt("Map"), 0);
    CTemplateList::WriteZorbyTemplateMapProfileInt("Map", 500);
    EXPECT_EQ(Name(CTemplateList::GetImportTemplate(MTMap)), "Map");
    EXPECT_EQ(CTemplateList::GetZorbyTemplateMapProfileInt("Map"), 0);
}

TEST_F(TemplateList, TargetsOfGlobalEditsKnowTheirWorkform) {
    Start();
    ASSERT_EQ(CCFGlobalEditingEntryArray::InitializeYourself(), 0);
    std::string dates;
    for (int i = 0; i < CCFGlobalEditingEntryArray::GetSize(); ++i) {
        const CCFGlobalEditingEntry* entry = CCFGlobalEditingEntryArray::GetAt(i);
        if (entry->GetRow().PartNumber() != CFP008DateGroup) continue;
        dates += Name(entry->GetTemplate()) + ";";
    }
    EXPECT_EQ(dates.substr(0, 20), std::string(kBook).substr(0, 20));
    EXPECT_NE(dates.find("Map"), std::string::npos);
    CCFGlobalEditingEntryArray::DestroyYourself();
    EXPECT_EQ(CCFGlobalEditingEntryArray::GetSize(), 0);
}

TEST_F(TemplateList, Default007) {
    Start();
    const std::string blank(13, ' ');
    EXPECT_EQ(CTemplateList::Default007(MTBook, 'a'), "hd bdu---bucu");
    EXPECT_EQ(CTemplateList::Default007(MTMap, 'b'), "he bmb---bucu");
    EXPECT_EQ(CTemplateList::Default007(MTKit, 'c'), "hg aob---bncn");
    EXPECT_EQ(CTemplateList::Default007(MTMixed, 's'), "cr bn ---uuuuu");
    EXPECT_EQ(CTemplateList::Default007(MTSerial, 'o'), blank);
    EXPECT_EQ(CTemplateList::Default007(MTComputerFileOther, 's'), "cr cma        ");
    EXPECT_EQ(CTemplateList::Default007(MTTactile, ' '), "fu|uuuuuuu");
    EXPECT_EQ(CTemplateList::Default007(MTMap, ' '), "aj canzn");
    EXPECT_EQ(CTemplateList::Default007(MTKit, ' '), "");

    const std::string field008(40, ' ');
    EXPECT_EQ(CTemplateList::Default007From007Byte1('a', field008.c_str()), blank);
    EXPECT_EQ(CTemplateList::Default007From007Byte1('a', "a     a           "), "ha bpu---bucu");
    EXPECT_EQ(CTemplateList::Default007From007Byte1('z', "a"), "hz uuu---uucu");
    EXPECT_EQ(CTemplateList::Default007From007Byte1('?', nullptr), "hd bdu---bucu");

    EXPECT_EQ(CTemplateList::Default007(EC_No007Microfiche), "he bmb---bucu");
    EXPECT_EQ(CTemplateList::Default007(EC_No007Slide), "gs cu  u ");
    EXPECT_EQ(CTemplateList::Default007(EC_No007Electronic), "cr bn ---uuuuu");
    EXPECT_EQ(CTemplateList::Default007(static_cast<E_ERROR_CODE>(103)), "");
}

TEST_F(TemplateList, DefaultsFromTheWorkforms) {
    Start();
    EXPECT_EQ(CTemplateList::DefaultLdr(CF006Books, CF007Sound), "00000nam a2200000 i 4500");
    EXPECT_EQ(CCFMainMaterial::DefaultLdr(CF006Visual, CF007None), "");
    EXPECT_EQ(CTemplateList::Default008(MTBook), "261121s        xx a  j s    000 1 eng  ");
    EXPECT_EQ(CTemplateList::Default008(CF006Map, CF007Map).substr(0, 7), "261121s");
    EXPECT_EQ(CTemplateList::Default006(MTMusic),
              "c" + CTemplateList::Default006(MTBook).substr(1));
    EXPECT_EQ(CTemplateList::Default006(MTNotatedMusic), "");
    EXPECT_EQ(CTemplateList::Default006(CF006None, CF007None), "");
    EXPECT_EQ(CTemplateList::Default006Additional(MTBook), "m     o  d        ");

    CFType type006 = CF006Visual;
    CFType type007 = CF007Video;
    CTemplateList::Get006007TypesForMaterialType(MTBook, 'o', type006, type007);
    EXPECT_EQ(type006, CF006Books);
    EXPECT_EQ(type007, CF007Electronic);
    CTemplateList::Get006007TypesForMaterialType(MTMap, 's', type006, type007);
    EXPECT_EQ(type007, CF007Map);
    CTemplateList::Get006007TypesForMaterialType(MTMixed, 's', type006, type007);
    EXPECT_EQ(type006, CF006None);
    EXPECT_EQ(type007, CF007None);

    std::string name = "old";
    CTemplateList::GetMaterialTypeName(MTKit, name);
    EXPECT_EQ(name, "old");
    CTemplateList::GetMaterialTypeName(MTTactile, name);
    EXPECT_EQ(name, "Tactile Material");
    CTemplateList::GetMaterialTypeName(MTMusic, name);
    EXPECT_EQ(name, "Music");
}

TEST_F(TemplateList, AdditionalMaterialsAreMadeByTheStandard) {
    Start();
    CCFAdditionalMaterialsList list;
    list.AddEmptyAtEnd();
    const std::string field008 = "012345678901234567ABCDEFGHIJKLMNOPQ34567";
    const auto made = [&](MaterialType material, CFType type006, CFType type007,
                          std::string_view field007, std::string_view field006) {
        list.ChangeAdditionalMaterial(0, material, type006, type007, field007, field006);
        list.ChangeAdditionalMaterial(1, material, type006, type007, field007, field006);
        std::string all007, all006, name;
        list.GetDisplayableAM007006(0, all007, all006, name);
        return all006 + "/" + all007 + "/" + name;
    };
    EXPECT_EQ(made(MTMap, CF006Map, CF007Map, "aj canzn1234567890123456789", field008),
              "eABCDEFGHIJKLMNOPQ/aj canzn/Map");
    EXPECT_EQ(made(MTText, CF006None, CF007Text, "t", "a12345678901234567"),
              std::string("\0", 1) + "12345678901234567/t/Text");
    EXPECT_EQ(made(MTBookComputerFile, CF006Books, CF007None, "cr", field008).substr(0, 2), "mA");
    EXPECT_EQ(made(MTMusic, CF006MusicSound, CF007None, "", "i12345678901234567").substr(0, 2),
              "i1");
    EXPECT_EQ(made(MTMusic, CF006MusicSound, CF007None, "", "x12345678901234567").substr(0, 2),
              "c1");
    std::string name = "old";
    std::string unused;
    list.GetDisplayableAM007006(1, unused, unused, name);
    EXPECT_EQ(name, "old");
}

}  // namespace
