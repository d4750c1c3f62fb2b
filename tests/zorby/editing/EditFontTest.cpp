#include <zorby/editing/EditControls.h>

#include <gtest/gtest.h>

#include <tests/zorby/editing/Editing.h>
#include <utility>

using namespace zorby;

namespace {

using EditFont = Editing;
const CFont kAnsiFont = {.faceName = "Plain", .height = -10};
const CFont kSilFont = {.faceName = "Diacritics", .height = -10};

TEST_F(EditFont, AHighFontIsReduced) {
    const std::pair<int, int> heights[] = {{-16, -12}, {16, 12}, {-12, -12}, {10, 10}, {0, 0}};
    for (const auto& [asked, used] : heights) {
        edit.SetFont({.faceName = "A", .height = asked}, false);
        EXPECT_EQ(box.font.height, used) << asked;
        EXPECT_EQ(box.font.faceName, "A");
    }
}

TEST_F(EditFont, ADiacriticAtTheStartStandsOnABlankInOneDisplayType) {
    edit.SetWindowTextA("");
    edit.EnsureCorrectFont(kSilFont);
    Type("\xA4x");
    EXPECT_EQ(Real(), "\x1F\xA4x");
    CSSetDisplayType(kDisplayANSI);
    edit.EnsureCorrectFont(kAnsiFont);
    EXPECT_EQ(Real(), "\xA4x");
    EXPECT_EQ(box.text, "\xB4x");
    edit.EnsureCorrectFont(kAnsiFont);
    EXPECT_EQ(Real(), "\xA4x");
    CSSetDisplayType(kDisplaySIL);
    edit.EnsureCorrectFont(kSilFont);
    EXPECT_EQ(Real(), "\x1F\xA4x");
    EXPECT_EQ(box.text, " \xA4x");
}

TEST_F(EditFont, WithoutATextTheFontStays) {
    edit.EnsureCorrectFont(kSilFont);
    EXPECT_TRUE(box.font.faceName.empty());
}

TEST_F(EditFont, TheFontOfAllDialogs) {
    EditControls dialog;
    dialog.AddField(7, edit);
    CEditMARCAlpha::DoInOnInitDialog(dialog);
    EXPECT_TRUE(box.font.faceName.empty()) << "none is set";
    const CFont font = {.faceName = "Everywhere", .height = 20};
    CEditMARCAlpha::SetEditFont(&font);
    CEditMARCAlpha::DoInOnInitDialog(dialog);
    CEditMARCAlpha::SetEditFont(nullptr);
    EXPECT_EQ(box.font.faceName, "Everywhere");
    EXPECT_EQ(box.font.height, 12);
}

}  // namespace
