#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <array>
#include <string>

using namespace zorby;

namespace {

using Change = std::string;

void Note(CFPart part, void* changes) {
    *static_cast<Change*>(changes) += std::to_string(part) + " ";
}

Change ChangesOf(CCFMainMaterial main, MaterialType material) {
    const CCFMainMaterial before = main;
    Change changes;
    main.SetInvalidValuesToDefault(Note, &changes, material);
    return main.IsEqualTo(before) != 0 ? changes : changes + "changed";
}

Change ChangesOf(CCFAdditionalMaterial additional) {
    const CCFAdditionalMaterial before = additional;
    Change changes;
    additional.SetInvalidValuesToDefault(Note, &changes);
    return additional.IsEqualTo(before) != 0 ? changes : changes + "changed";
}

// Codes of 2016 for recordings online, which the menus of the library lack.
Change CodesOf2016(const std::string& field007, MaterialType material) {
    struct Code {
        CFPart part;
        std::size_t position;
        char value;
    };
    constexpr std::array<Code, 4> kCodes{{{CFP007SoundSMD, 1, 'r'},
                                          {CFP007SoundSpeedOther, 3, 'n'},
                                          {CFP007SoundKindOfTape, 9, 'n'},
                                          {CFP007SoundKindOfMaterial, 10, 'n'}}};
    Change changes;
    if (!field007.starts_with('s')) return changes;
    for (const Code& code : kCodes) {
        const bool isMet = code.part != CFP007SoundKindOfTape || material == MTSoundOther;
        if (isMet && field007[code.position] == code.value) Note(code.part, &changes);
    }
    return changes.empty() ? changes : changes + "changed";
}

Change CodesOf2016(const CCFAdditionalMaterial& additional) {
    std::string field006;
    std::string field007;
    additional.GetAll(field006, field007);
    return CodesOf2016(field007, additional.GetMaterialType());
}

// What a new record begins with must need no repair.
TEST(StandardWorkforms, NeedNoRepair) {
    ASSERT_EQ(CTemplateList::InitializeTemplateList(DATA_FOLDER), 1);
    const CTemplateList& list = *CTemplateList::TheOneAndOnly();
    ASSERT_GT(list.GetSize(), kLastMaterialType);
    for (int i = 0; i < list.GetSize(); ++i) {
        const CTemplate& workform = *list.GetAt(i);
        EXPECT_EQ(ChangesOf(workform.GetMainMaterial(), workform.GetMaterialType()),
                  CodesOf2016(workform.GetMainMaterial().GetField007(), workform.GetMaterialType()))
            << workform.GetName();
        for (int entry = 0; entry < workform.GetAMList().GetSize(); ++entry) {
            const CCFAdditionalMaterial& additional = *workform.GetAMList().GetAt(entry);
            EXPECT_EQ(ChangesOf(additional), CodesOf2016(additional))
                << workform.GetName() << ", additional material " << entry + 1;
        }
    }
    CTemplateList::DestroyTemplateList();
}

}  // namespace
