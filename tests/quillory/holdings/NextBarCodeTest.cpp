#include <quillory/holdings/NextBarCode.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <tests/quillory/holdings/HoldingsFixture.h>

namespace quillory {
namespace {

TEST_F(HoldingsFixture, BarCodesStandAtAPlace) {
    EXPECT_TRUE(IsPlaceOfBarCode(*ParsePlace("852 $p")));
    for (const char* other : {"852 $h", "245 $p", "852", "852/1", "LDR", "949 $p"}) {
        EXPECT_FALSE(IsPlaceOfBarCode(*ParsePlace(other))) << other;
    }
    EXPECT_FALSE(HasNextBarCode());
    zorby::CHoldingsSelector::SetNextBarCode("T0099");
    EXPECT_TRUE(HasNextBarCode());
}

}  // namespace
}  // namespace quillory
