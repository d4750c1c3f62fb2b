#include <gtest/gtest.h>

#include <tests/quillory/edits/EditFixture.h>
#include <tests/quillory/holdings/HoldingsFixture.h>

namespace quillory {
namespace {

class HoldingsOperationsTest : public HoldingsFixture {};

TEST_F(HoldingsOperationsTest, MoveElementMovesValuesWithinACopy) {
    const struct {
        const char* system;
        const char* elements;
        const char* into;
        const char* before;
        const char* after;
    } kRows[] = {
        {"1", "Price", "Location", "852  $pB1$933", "852  $b33$pB1"},
        {"1", "price", "100", "852  $bMain$pB1$933\n852  $bMain", "852  $b33$pB1\n852  $bMain"},
        {"1", "Price, Location", "Location, Price", "852  $bMain$933", "852  $b33$9Main"},
        // What is no element goes along, and indicators stay.
        {"1", "Price", "Location", "8524 $xKept$933\n24510$aT", "8524 $b33$xKept\n24510$aT"},
        // Nothing to move: the field keeps its order.
        {"1", "Price", "Location", "852  $zZ$9$bMain", "852  $zZ$9$bMain"},
        {"1", "Price", "Location", "24510$aT$933", "24510$aT$933"},
        // A repeating item keeps its values apart, and the target's own value gives way.
        {"3", "Public note 1", "Public note 2", "852  $zone$ztwo$zthree", "852  $zone$zthree"},
        // From one tag to another, where a field comes or goes.
        {"9", "Price", "Vendor", "24510$aT\n852  $h813$95", "24510$aT\n852  $h813\n961  $a5"},
        {"9", "Vendor", "Price", "24510$aT\n852  $h813\n961  $aV", "24510$aT\n852  $h813$9V"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(Edited("move-element",
                         {{"elements", row.elements}, {"into", row.into}, {"system", row.system}},
                         row.before),
                  row.after)
            << row.before;
    }
}

TEST_F(HoldingsOperationsTest, MoveElementSaysWhichElementIsWrong) {
    const struct {
        ParameterTexts parameters;
        const char* text;
    } kWrong[] = {
        {{{"elements", "Price"}, {"into", "Price, Vendor"}, {"system", "9"}}, "into: name one"},
        {{{"elements", ","}, {"into", "Price"}, {"system", "9"}},
         "elements: \"\" is not an element"},
        {{{"elements", "Price,608"}, {"into", "Price"}, {"system", "9"}}, "elements: a name more"},
        {{{"elements", "Prize"}, {"into", "Price"}, {"system", "9"}}, "elements: \"Prize\" is not"},
        {{{"elements", "Price"}, {"into", "Vendor"}, {"system", "x"}}, "system: there is no"},
        {{{"elements", "Price"}, {"into", "Vendor"}}, "elements: \"Price\" is not an element"},
    };
    for (const auto& row : kWrong) {
        SCOPED_TRACE(row.text);
        try {
            StepOf("move-element", row.parameters);
            ADD_FAILURE() << "was taken";
        } catch (const ParameterError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(row.text)) << error.what();
        }
    }
}

}  // namespace
}  // namespace quillory
