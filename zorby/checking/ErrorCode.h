#pragma once

#include <cstdint>

namespace zorby {

// What was found wrong with a record. Findings below 110 come from the repair of imported records;
// those listed here say for which kind of item a 007 is missing.
enum E_ERROR_CODE : std::int32_t {
    EC_No007Microfilm = 90,
    EC_No007Microfiche = 91,
    EC_No007Microopaque = 92,
    EC_No007Filmslip = 99,
    EC_No007Slide = 100,
    EC_No007Transparency = 101,
    EC_No007OtherProjected = 102,
    EC_No007Electronic = 106,

    // These are findings of the check before export. CRecordError has words for them.
    EC_NoTitle = 110,
    EC_TooManyTitles = 111,
    EC_NoPlaceOfPublication = 112,
    EC_NoPublisher = 113,
    EC_NoDateOfPublication = 114,
    EC_NoExtent = 115,
    EC_NoOtherPhysicalDetails = 116,
    EC_NoDimensions = 117,
    EC_NoNotes = 118,
    EC_NoSubjects = 119,
    EC_UnknownDate = 120,
    EC_UnknownRunningTime = 121,
    EC_UnknownPlace = 122,
    EC_NoHoldings = 123,
    EC_ManyMainEntriesPersonal = 124,
    EC_ManyMainEntriesCorporate = 125,
    EC_ManyMainEntriesMeeting = 126,
    EC_ManyMainEntriesUniformTitle = 127,
    EC_SubfieldTooLong = 128,
    EC_FieldTooLong = 129,
    EC_RecordTooLong = 130,
    EC_UpperCaseTitle = 131,
    EC_NotMARC = 132,
    EC_NotRepeatable = 133,
};

inline constexpr E_ERROR_CODE kFirstWordedErrorCode = EC_NoTitle;
inline constexpr E_ERROR_CODE kLastWordedErrorCode = EC_NotRepeatable;

// How serious a finding is. Any other value is neither, and has no prefix in messages.
enum E_ERROR_CODE_SUB_TYPE : std::int32_t {
    EST_Error = 0,
    EST_Warning = 1,
};

}  // namespace zorby
