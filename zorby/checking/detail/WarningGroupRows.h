#pragma once

#include <zorby/checking/DialogWarningSettings.h>

namespace zorby {

inline constexpr const char* kPublication = "Publication information:";
inline constexpr const char* kPhysical = "Physical description:";
inline constexpr const char* kControl = "Control fields:";
inline constexpr std::int32_t kNoKey = -1;

// clang-format off
inline constexpr std::array<WarningGroupRow, kWarningGroups> kWarningGroupRows{{
    {"", "Missing title statement", kNoKey, 0, 0, 0, true},
    {"", "Too many main entries", kNoKey, 0, 0, 0, true},
    {"", "Too many title statements", kNoKey, 0, 0, 0, true},
    {"", "Fields or subfields too long", kNoKey, 0, 0, 0, true},
    {kPublication, "No &place", ZP_RC_No260a, 2, 2, 0, false},
    {kPublication, "No &name", ZP_RC_No260b, 2, 0, 0, true},
    {kPublication, "No &date", ZP_RC_No260c, 2, 0, 0, true},
    {kPhysical, "No &extent", ZP_RC_No300a, 2, 0, 0, true},
    {kPhysical, "No &other physical details", ZP_RC_No300b, 2, 2, 0, false},
    {kPhysical, "No di&mensions", ZP_RC_No300c, 2, 2, 0, false},
    {kControl, "P&lace of public. not set", ZP_RC_CFPoP, 2, 2, 0, false},
    {kControl, "D&ate not set", ZP_RC_CFDate, 2, 2, 0, false},
    {kControl, "&Running time not set", ZP_RC_CFRT, 2, 2, 0, false},
    {"", "No no&tes", ZP_RC_NoNotes, 2, 2, 0, false},
    {"", "No &subjects", ZP_RC_NoSubjects, 2, 2, 0, false},
    {"", "No &holdings information", ZP_RC_NoHoldings, 2, 2, 0, false},
    {"", "Title in all &upper case", ZP_RC_TitleInUpperCase, 2, 0, 0, true},
    {"", "Non-MAR&C fields or subfields", ZP_RC_NonMARCFieldsOrSubfields, 2, 2, 0, false},
    {"", "Too many non-repeatable &fields or subfields", ZP_RC_TooManyNonRepeatables, 2, 2, 0, false},
}};
// clang-format on

}  // namespace zorby
