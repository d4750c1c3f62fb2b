#pragma once

#include <zorby/checking/ErrorCode.h>

namespace zorby {

struct ErrorMessageRow {
    E_ERROR_CODE code;
    const char* shortText;
    const char* longText;
};

// The findings whose messages are fixed texts.
inline constexpr ErrorMessageRow kErrorMessages[] = {
    {EC_NoTitle, "no title (245 $a)",
     "No title statement (245 $a). This record has no main title. You must enter a title before "
     "the record can be exported. Enter the title as found on the item being cataloged, or create "
     "a title and enter it in square brackets.\r\n"},
    {EC_TooManyTitles, "too many titles (245 $a)",
     "Too many title statements (245 $a). A record with more than one title statement cannot be "
     "exported.\r\n"},
    {EC_NoPlaceOfPublication, "no pub. place (260 $a)", "No place of publication (260 $a)."},
    {EC_NoPublisher, "no pub. name (260 $b)",
     "No publisher's name (260 $b). You can enter [S.n.] if no information is available.\r\n"},
    {EC_NoDateOfPublication, "no pub. date (260 $c)", "No date of publication (260 $c)."},
    {EC_NoExtent, "no extent (300 $a)",
     "No extent of item (300 $a). Depending on the type of item, enter the number of pages, "
     "duration in minutes, number of diskettes, etc.\r\n"},
    {EC_NoOtherPhysicalDetails, "no other physical details (300 $b)",
     "The record does not have any other physical details (300 $b). Depending on the type of "
     "item, enter information about illustrations, color, sound, etc.\r\n"},
    {EC_NoDimensions, "no dimensions (300 $c)",
     "This record does not have information about the item's dimensions (300 $c). Enter the "
     "physical size of the item.\r\n"},
    {EC_NoNotes, "no notes (500-599)", "This record does not have any notes (500-599).\r\n"},
    {EC_NoSubjects, "no subjects (600-699)",
     "This record does not have any subject headings (600-699).\r\n"},
    {EC_UnknownDate, "unknown pub. date (control fields)",
     "Unknown publication date in control fields. Enter the date of publication or copyright, or "
     "enter an estimated date in square brackets.\r\n"},
    {EC_UnknownRunningTime, "unknown running time (control field)",
     "Unknown running time (control field).  Enter the running time, for example \"(120 "
     "min.)\".\r\n"},
    {EC_UnknownPlace, "unknown place of pub (control fields).",
     "Unknown place of publication in control fields.  Enter the city name of the place of "
     "publication. You can enter [S.l.] if no information is available.\r\n"},
    {EC_NoHoldings, "no holdings",
     "This record does not have any holdings information.  To enter holdings information, click "
     "the \"Record\" menu, then click \"Holdings.\"  Fill in the information on the dialog box "
     "that appears.\r\n"},
    {EC_ManyMainEntriesPersonal, "only one main entry is allowed (1xx)",
     "Too many main entries. A record with more than one main entry cannot be exported. This "
     "record contains a Personal name main entry (100) and an additional main entry.\r\n"},
    {EC_ManyMainEntriesCorporate, "only one main entry is allowed (1xx)",
     "Too many main entries. A record with more than one main entry cannot be exported. This "
     "record contains a Corporate name main entry (110) and an additional main entry.\r\n"},
    {EC_ManyMainEntriesMeeting, "only one main entry is allowed (1xx)",
     "Too many main entries. A record with more than one main entry cannot be exported. This "
     "record contains a Meeting name main entry (111) and an additional main entry.\r\n"},
    {EC_ManyMainEntriesUniformTitle, "only one main entry is allowed (1xx)",
     "Too many main entries. A record with more than one main entry cannot be exported. This "
     "record contains a Uniform title main entry (130) and an additional main entry.\r\n"},
    {EC_UpperCaseTitle, "upper case title (245 $a)",
     "The title in this record is all upper case (245 $a).  Reenter the title in upper and lower "
     "case.\r\n"},
};

inline constexpr ErrorMessageRow kUnknownErrorMessage = {static_cast<E_ERROR_CODE>(0), "unknown",
                                                         "Unknown error code\r\n"};

}  // namespace zorby
