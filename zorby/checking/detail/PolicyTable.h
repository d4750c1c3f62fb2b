#pragma once

#include <zorby/checking/ErrorCode.h>
#include <zorby/settings/ProfileKeys.h>

namespace zorby {

struct PolicyKeyRow {
    ProfileKey key;
    E_ERROR_CODE code;
};

// The findings that the user decides about, each with its key.
inline constexpr PolicyKeyRow kPolicyKeys[] = {
    {ZP_RC_No260a, EC_NoPlaceOfPublication},
    {ZP_RC_No260b, EC_NoPublisher},
    {ZP_RC_No260c, EC_NoDateOfPublication},
    {ZP_RC_No300a, EC_NoExtent},
    {ZP_RC_No300b, EC_NoOtherPhysicalDetails},
    {ZP_RC_No300c, EC_NoDimensions},
    {ZP_RC_NoNotes, EC_NoNotes},
    {ZP_RC_NoSubjects, EC_NoSubjects},
    {ZP_RC_CFDate, EC_UnknownDate},
    {ZP_RC_CFRT, EC_UnknownRunningTime},
    {ZP_RC_CFPoP, EC_UnknownPlace},
    {ZP_RC_NoHoldings, EC_NoHoldings},
    {ZP_RC_TitleInUpperCase, EC_UpperCaseTitle},
    {ZP_RC_NonMARCFieldsOrSubfields, EC_NotMARC},
    {ZP_RC_TooManyNonRepeatables, EC_NotRepeatable},
};

struct CodeRange {
    int first;
    int last;
};

// The findings of an import, all under one key. Codes 80 to 83 are under no key: their ranges are
// empty.
inline constexpr CodeRange kImportFindings[] = {
    {10, 14},  {70, 73}, {83, 82}, {84, 84}, {85, 85}, {81, 80},
    {90, 105}, {40, 50}, {20, 23}, {30, 32}, {24, 29},
};

// The findings that stop an export, whatever the settings say.
inline constexpr E_ERROR_CODE kAlwaysErrors[] = {
    EC_NoTitle,
    EC_TooManyTitles,
    EC_ManyMainEntriesPersonal,
    EC_ManyMainEntriesCorporate,
    EC_ManyMainEntriesMeeting,
    EC_ManyMainEntriesUniformTitle,
    EC_SubfieldTooLong,
    EC_FieldTooLong,
    EC_RecordTooLong,
};

}  // namespace zorby
