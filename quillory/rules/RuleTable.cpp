#include <quillory/rules/Rule.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;
using enum Severity;

constexpr std::string_view kFormat = "MARC 21 Format for Bibliographic Data";
constexpr std::string_view kGuidelines =
    "MARC 21 Format for Bibliographic Data, input conventions of the field";
constexpr std::string_view kPolicy = "policy of export";
constexpr std::string_view kStructure = "MARC 21 Specifications: Record Structure";

// To add a rule, add its number in Rule.h, its row here, and its check in one of the families.
constexpr Rule kTable[] = {
    {RuleId::NoTitle, "no-title", Error, "No title", "the record lacks a title: give 245 $a",
     "Lists and searches have nothing to show without a title.", "=245  10$bA subtitle alone",
     kFormat, EC_NoTitle},
    {RuleId::ManyTitles, "many-titles", Error, "More than one title",
     "this is a further title; one 245 $a is allowed",
     "Field 245 and its $a stand once in a record; other titles belong to 246 or 740.",
     "=245  10$aOne title$aAnother title", kFormat, EC_TooManyTitles},
    {RuleId::NoPlaceOfPublication, "no-place", Error, "No place of publication",
     "the record lacks a place of publication: give 264 $a or 260 $a",
     "Editions are told apart by where they came out.", "=264  \\1$bHarper,$c1999.", kPolicy,
     EC_NoPlaceOfPublication},
    {RuleId::NoPublisher, "no-publisher", Error, "No publisher",
     "the record lacks a publisher: give 264 $b or 260 $b",
     "Editions are told apart by who made them.", "=264  \\1$aNew York,$c1999.", kPolicy,
     EC_NoPublisher},
    {RuleId::NoDateOfPublication, "no-date", Error, "No date of publication",
     "the record lacks a date of publication: give 264 $c or 260 $c",
     "Editions are told apart by when they came out.", "=264  \\1$aNew York :$bHarper", kPolicy,
     EC_NoDateOfPublication},
    {RuleId::NoExtent, "no-extent", Error, "No extent",
     "the record lacks the number of pages, discs or pieces: give 300 $a",
     "The extent tells what a reader will hold.", "=300  \\\\$c21 cm", kPolicy, EC_NoExtent},
    {RuleId::NoPhysicalDetails, "no-physical-details", Error, "No other physical details",
     "the record lacks other physical details: give 300 $b",
     "Illustrations, sound and colour are asked for.", "=300  \\\\$a304 pages", kPolicy,
     EC_NoOtherPhysicalDetails},
    {RuleId::NoDimensions, "no-dimensions", Error, "No dimensions",
     "the record lacks dimensions: give 300 $c", "The size tells where the item fits.",
     "=300  \\\\$a304 pages", kPolicy, EC_NoDimensions},
    {RuleId::NoNotes, "no-notes", Error, "No notes", "the record lacks notes: give a 5XX field",
     "Summaries and contents make records of use to readers.", "no field 500 to 599", kPolicy,
     EC_NoNotes},
    {RuleId::NoSubjects, "no-subjects", Error, "No subjects",
     "the record lacks subjects: give a 6XX field", "Readers search by subject.",
     "no field 600 to 699", kPolicy, EC_NoSubjects},
    {RuleId::DateUnknown, "date-unknown", Error, "Unknown date",
     "the date of publication is not known: give it in 008/07-10",
     "Lists sort and limit by the coded date.", "=008  ...suuuu", kPolicy, EC_UnknownDate},
    {RuleId::RunningTimeUnknown, "running-time-unknown", Error, "Unknown running time",
     "the running time is not known: give the minutes in 008/18-20",
     "The running time of films and videos is asked for.", "=008  ...|||", kPolicy,
     EC_UnknownRunningTime},
    {RuleId::PlaceUnknown, "country-unknown", Error, "Unknown country of publication",
     "the country of publication is not known: give its code in 008/15-17",
     "Lists limit by the coded place.", "=008  ...xx\\", kPolicy, EC_UnknownPlace},
    {RuleId::NoHoldings, "no-holdings", Error, "No holdings",
     "the record lacks copies: give a field of the holdings system in force",
     "Without copies nothing can be lent.", "no field 852", kPolicy, EC_NoHoldings},
    {RuleId::ManyMainEntries100, "second-main-entry-100", Error, "More than one main entry",
     "this main entry comes after a 100; only one of 100, 110, 111 and 130 is allowed",
     "A record has one main entry; others belong to 7XX.", "=110  2\\$aSociety", kFormat,
     EC_ManyMainEntriesPersonal},
    {RuleId::ManyMainEntries110, "second-main-entry-110", Error, "More than one main entry",
     "this main entry comes after a 110; only one of 100, 110, 111 and 130 is allowed",
     "A record has one main entry; others belong to 7XX.", "=100  1\\$aHill, Ann", kFormat,
     EC_ManyMainEntriesCorporate},
    {RuleId::ManyMainEntries111, "second-main-entry-111", Error, "More than one main entry",
     "this main entry comes after a 111; only one of 100, 110, 111 and 130 is allowed",
     "A record has one main entry; others belong to 7XX.", "=100  1\\$aHill, Ann", kFormat,
     EC_ManyMainEntriesMeeting},
    {RuleId::ManyMainEntries130, "second-main-entry-130", Error, "More than one main entry",
     "this main entry comes after a 130; only one of 100, 110, 111 and 130 is allowed",
     "A record has one main entry; others belong to 7XX.", "=100  1\\$aHill, Ann", kFormat,
     EC_ManyMainEntriesUniformTitle},
    {RuleId::SubfieldTooLong, "subfield-too-long", Error, "Subfield too long",
     "the subfield has more than 9,950 bytes: divide it",
     "ISO 2709 has room for 9,999 bytes in a field.", "a summary of five pages", kStructure,
     EC_SubfieldTooLong},
    {RuleId::FieldTooLong, "field-too-long", Error, "Field too long",
     "the field has more than 9,950 bytes: divide it into several",
     "ISO 2709 has room for 9,999 bytes in a field.", "contents of five pages", kStructure,
     EC_FieldTooLong},
    {RuleId::RecordTooLong, "record-too-long", Error, "Record too long",
     "the record has more than 99,800 bytes in ISO 2709: shorten it",
     "ISO 2709 has room for 99,999 bytes in a record.", "a record with 2,000 copies", kStructure,
     EC_RecordTooLong},
    {RuleId::TitleInCapitals, "title-in-capitals", Error, "Title in capitals",
     "the title is in capitals; `quillory edit case 245ab --as fix` puts it right",
     "Titles are transcribed with capitals where the language has them.", "=245  10$aTHE RIVERS",
     kPolicy, EC_UpperCaseTitle},
    {RuleId::NotMarc, "undefined", Warning, "Field or subfield that MARC 21 lacks",
     "MARC 21 has no such field or subfield",
     "Other systems drop what they don't know, or show it in the wrong place.", "=245  10$jX",
     kFormat, EC_NotMARC},
    {RuleId::NotRepeatable, "not-repeatable", Warning, "Field or subfield that stands once",
     "this stands once in a record, or a field, and here it is a further one",
     "Other systems show only the first.", "=300  \\\\$a20 pages$c21 cm$c22 cm", kFormat,
     EC_NotRepeatable},
    {RuleId::IndicatorUndefined, "indicator-undefined", Warning, "Undefined indicator",
     "the indicator is {found}; the field has {allowed}",
     "Indicators steer filing, labels and links: an undefined one steers them at random.",
     "=245  92$aTitle", kFormat},
    {RuleId::IndicatorObsolete, "indicator-obsolete", Note, "Obsolete indicator",
     "the indicator {found} is obsolete; the field has {allowed}",
     "The format has withdrawn the value.", "=050  \\1$aPS1234", kFormat},
    {RuleId::FieldObsolete, "field-obsolete", Note, "Obsolete field",
     "the format has withdrawn this field", "Newer systems may not index or show it.",
     "=440  \\0$aBlue book series", kFormat},
    {RuleId::SubfieldObsolete, "subfield-obsolete", Note, "Obsolete subfield",
     "the format has withdrawn this subfield", "Newer systems may not index or show it.",
     "=020  \\\\$a0596000278$bpaperback", kFormat},
    {RuleId::FieldEmpty, "field-empty", Warning, "Empty field", "the field has no text",
     "An empty field says nothing and shows as a label without a value.", "=500  \\\\$a", kFormat},
    {RuleId::SubfieldEmpty, "subfield-empty", Warning, "Empty subfield", "the subfield has no text",
     "An empty subfield says nothing and may show as stray punctuation.", "=245  10$aTitle$b",
     kFormat},
    {RuleId::No001, "no-001", Note, "No control number", "the record lacks a control number (001)",
     "Files are compared, updated and loaded by the control number.", "a record without 001",
     kFormat},
    {RuleId::No008, "no-008", Error, "No fixed-length data elements",
     "the record lacks field 008, which the format requires",
     "Date, language, place and audience are coded there.", "a record without 008", kFormat},
    {RuleId::No040, "no-040", Note, "No cataloging source",
     "the record lacks 040 $a or $c, the agencies that made it",
     "Others need to know by whose rules a record was made.", "a record without 040", kFormat},
    {RuleId::ControlNumberRepeated, "control-number-repeated", Warning, "Repeated control number",
     "record {found} has the same control number",
     "A load that matches by control number keeps only one of the two.", "two records with 001 17",
     kFormat},
    {RuleId::InvalidBytes, "bytes-invalid", Error, "Bytes that are no characters",
     "{found} is no part of a character in UTF-8",
     "Nobody can read what stands there, and other systems may refuse the record.",
     "a record of Latin-1 that says it is UTF-8", "MARC 21 Specifications: Character Sets"},
    {RuleId::IsbnInvalid, "isbn-invalid", Warning, "Wrong ISBN", "{found}: {allowed}",
     "A wrong ISBN finds another book, or none. One that is printed wrongly goes to $z.",
     "=020  \\\\$a0596000279", "ISO 2108, ISBN Users' Manual"},
    {RuleId::IsbnWithText, "isbn-with-text", Note, "ISBN with other text",
     "after the number stands {found}; words such as (paperback) go to $q, a price to $c",
     "Programs that look for a number find text.", "=020  \\\\$a0596000278 (pbk.)", kGuidelines},
    {RuleId::IssnInvalid, "issn-invalid", Warning, "Wrong ISSN", "{found}: {allowed}",
     "A wrong ISSN finds another serial, or none. One that is printed wrongly goes to $y.",
     "=022  \\\\$a0046-2251", "ISO 3297, ISSN Manual"},
    {RuleId::StandardNumberInvalid, "standard-number-invalid", Warning, "Wrong standard number",
     "{found}: {allowed}", "A wrong number finds another item, or none.",
     "=024  3\\$a9780596000270", "GS1 General Specifications; ISO 10957 for the ISMN"},
    {RuleId::UrlMalformed, "url-malformed", Warning, "Address that is no URL",
     "\"{found}\" is no URL: {allowed}", "A reader who follows the link arrives nowhere.",
     "=856  40$uwww.example.org/a b", "RFC 3986"},
    {RuleId::NonfilingCount, "nonfiling-count", Warning, "Wrong count of nonfiling characters",
     "the indicator is {found}; {allowed}",
     "Titles file under the article, or under the middle of a word.", "=245  10$aThe rivers",
     "MARC 21 Format for Bibliographic Data, Appendix F"},
    {RuleId::TitleFirstIndicator, "title-first-indicator", Note, "Title added entry",
     "the first indicator is {found}; {allowed}",
     "With a main entry the title needs an added entry (1); without one it is the entry (0).",
     "=245  00$aTitle, with a 100", kGuidelines},
    {RuleId::SeriesNotTraced, "series-not-traced", Warning, "Series that is not traced",
     "the first indicator is 1, but the record has no 800, 810, 811 or 830",
     "The first indicator promises a heading under which the series is found.",
     "=490  1\\$aBlue books", kFormat},
    {RuleId::LinkMalformed, "link-malformed", Warning, "Link that can't be read",
     "\"{found}\" is no link; it would be like {allowed}",
     "Systems can't pair the text with its other script.", "=880  10$6245-1/$1$aTitle",
     "MARC 21 Format for Bibliographic Data, Appendix A"},
    {RuleId::LinkWithoutPartner, "link-without-partner", Warning, "Link without a partner",
     "\"{found}\" has no partner; the record needs {allowed}",
     "Half of a pair shows without the other.", "=880  10$6245-02/$1$aTitle",
     "MARC 21 Format for Bibliographic Data, Appendix A"},
    {RuleId::FieldLength, "field-length", Warning, "Wrong length of a control field",
     "the field has {found} characters; the format has {allowed}",
     "All positions after a lost character are read wrongly.", "=008  990101s1999", kFormat},
    {RuleId::CodeUnknown, "code-unknown", Warning, "Unknown code", "{allowed}: {found} is no code",
     "Limits and icons are made from the codes.", "=008  ...x in position 23", kFormat},
    {RuleId::CodeObsolete, "code-obsolete", Note, "Obsolete code", "{allowed}: {found} is obsolete",
     "The format has withdrawn the code.", "Leader/17 0", kFormat},
    {RuleId::PositionUndefined, "position-undefined", Note, "Undefined position in use",
     "{found} stands in a position that the format does not define; blank or | goes there",
     "A later use of the position would read something else.", "=008  ...x in position 32",
     kFormat},
    {RuleId::DateMalformed, "date-malformed", Warning, "Date that does not exist",
     "\"{found}\" is no {allowed}", "Programs sort and update by these dates.",
     "=005  20211332101010.0", kFormat},
    {RuleId::DatesInWrongOrder, "dates-in-wrong-order", Warning, "Dates in the wrong order",
     "{found}: {allowed}", "Limits by date leave the record out.", "=008  990101m20101999",
     kFormat},
    {RuleId::LanguageUnknown, "language-unknown", Warning, "Unknown language code",
     "{found} is not in the MARC Code List for Languages",
     "Limits by language leave the record out.", "=041  0\\$axyz", "MARC Code List for Languages"},
    {RuleId::LanguageObsolete, "language-obsolete", Note, "Obsolete language code",
     "{found} is obsolete; the code is {allowed}", "The list has withdrawn the code.",
     "=041  0\\$ascr", "MARC Code List for Languages"},
    {RuleId::LanguageAgainst008, "language-against-008", Note, "Two statements of the language",
     "041 $a begins with {found}, and 008/35-37 has {allowed}",
     "The first code of 041 $a repeats that of 008.", "=041  1\\$afre$heng, with eng in 008",
     kFormat},
    {RuleId::CountryUnknown, "country-code-unknown", Warning, "Unknown country code",
     "{found} is not in the MARC Code List for Countries", "Limits by place leave the record out.",
     "=044  \\\\$azz9", "MARC Code List for Countries"},
    {RuleId::CountryObsolete, "country-code-obsolete", Note, "Obsolete country code",
     "{found} is obsolete; the code is {allowed}", "The list has withdrawn the code.",
     "=044  \\\\$aur", "MARC Code List for Countries"},
    {RuleId::MediaCodeUnknown, "media-code-unknown", Warning,
     "Unknown code of content, media or carrier", "{found} is not in the list {allowed}",
     "Icons and limits are made from these codes.", "=336  \\\\$btxxt$2rdacontent",
     "Term and Code List for RDA Content, Media and Carrier Types"},
    {RuleId::MediaTermAgainstCode, "media-term-against-code", Warning, "Term and code that differ",
     "the term of {found} is \"{allowed}\"",
     "One of the two is wrong, and systems differ in which they use.",
     "=336  \\\\$atext$bcri$2rdacontent",
     "Term and Code List for RDA Content, Media and Carrier Types"},
};

static_assert(std::size(kTable) == kRules);
static_assert([] {
    for (std::size_t i = 0; i < kRules; ++i) {
        if (kTable[i].id != static_cast<RuleId>(i)) return false;
    }
    return true;
}());

}  // namespace

std::string_view SeverityText(Severity severity) {
    switch (severity) {
        case Error:
            return "error";
        case Warning:
            return "warning";
        default:
            return "note";
    }
}

std::span<const Rule> Rules() {
    return kTable;
}

const Rule& RuleOf(RuleId id) {
    return kTable[static_cast<std::size_t>(id)];
}

const Rule* RuleNamed(std::string_view name) {
    const auto* found = std::ranges::find(kTable, name, &Rule::name);
    return found == std::end(kTable) ? nullptr : found;
}

const Rule& RuleOf(zorby::E_ERROR_CODE code) {
    return *std::ranges::find(kTable, code, &Rule::code);
}

}  // namespace quillory
