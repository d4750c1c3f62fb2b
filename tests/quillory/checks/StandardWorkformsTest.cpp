#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

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

// What a new record begins with must need no repair.
TEST(StandardWorkforms, NeedNoRepair) {
    ASSERT_EQ(CTemplateList::InitializeTemplateList(DATA_FOLDER), 1);
    const CTemplateList& list = *CTemplateList::TheOneAndOnly();
    ASSERT_GT(list.GetSize(), kLastMaterialType);
    for (int i = 0; i < list.GetSize(); ++i) {
        const CTemplate& workform = *list.GetAt(i);
        EXPECT_EQ(ChangesOf(workform.GetMainMaterial(), workform.GetMaterialType()), "")
            << workform.GetName();
        for (int entry = 0; entry < workform.GetAMList().GetSize(); ++entry) {
            EXPECT_EQ(ChangesOf(*workform.GetAMList().GetAt(entry)), "")
                << workform.GetName() << ", additional material " << entry + 1;
        }
    }
    CTemplateList::DestroyTemplateList();
}

}  // namespace
