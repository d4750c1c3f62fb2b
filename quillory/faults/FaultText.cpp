#include <quillory/faults/Fault.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/faults/Hints.h>

#include <algorithm>
#include <iterator>
#include <span>

namespace quillory {
namespace {

// {place}, {found} and {allowed} stand for what a fault holds.
struct Words {
    FaultCode code;
    std::string_view id;
    std::string_view reason;
    std::string_view command = {};  // what a person can do about it on the command line
};

constexpr Words kWords[] = {
    {FaultCode::kNone, "none", ""},

    // Files of records: ISO 2709.
    {FaultCode::kEmptyFile, "empty-file", "the file is empty"},
    {FaultCode::kEmptyRecord, "empty-record", "the record is empty"},
    {FaultCode::kCutShort, "cut-short", "cut short: no record terminator (0x1D)"},
    {FaultCode::kLengthNotNumber, "length-not-number",
     "the record length is not a number: \"{found}\""},
    {FaultCode::kLengthWrong, "length-wrong",
     "the record length is {found}, but the record has {allowed} bytes"},
    {FaultCode::kLongerThanFormat, "longer-than-format", "longer than 99,999 bytes"},
    {FaultCode::kBytesAfterEnd, "bytes-after-end", "bytes after the record terminator (0x1D)"},
    {FaultCode::kCountsNotTwo, "counts-not-two",
     "the indicator count and subfield code count are \"{found}\", not \"22\""},
    {FaultCode::kEntryMapWrong, "entry-map-wrong",
     "the entry map begins with \"{found}\", not with \"45\""},
    {FaultCode::kBaseAddressWrong, "base-address-wrong",
     "the base address of data is {found}, not just after the directory's field terminator (0x1E)"},
    {FaultCode::kDirectorySize, "directory-size",
     "the directory is not a whole number of 12-byte entries"},
    {FaultCode::kDirectoryEntry, "directory-entry",
     "a directory entry without a tag, or with a length and start outside the data"},
    {FaultCode::kDirectoryGap, "directory-gap", "fields overlap, or data belongs to no field"},
    {FaultCode::kFieldEndMisplaced, "field-end-misplaced",
     "a field terminator (0x1E) is not where the directory says"},
    {FaultCode::kNoIndicatorsBeforeDelimiter, "no-indicators-before-delimiter",
     "no two indicators before the first delimiter ({allowed})"},
    {FaultCode::kNoSubfieldCode, "no-subfield-code",
     "a delimiter ({allowed}) without a subfield code"},
    {FaultCode::kFieldCountsDiffer, "field-counts-differ",
     "the directory and the data differ in their number of fields"},
    {FaultCode::kNoRecordEnd, "no-record-end", "no record terminator (0x1D) within 4 MiB"},
    {FaultCode::kNotMarc, "not-marc",
     "no MARC record: it does not begin with a length in five digits"},
    {FaultCode::kStrayBytes, "stray-bytes", "stray bytes between records"},
    {FaultCode::kFiller, "filler", "filler between records, passed over"},
    {FaultCode::kTextBetweenRecords, "text-between-records", "text between records"},
    {FaultCode::kIndicatorBytes, "indicator-bytes",
     "{found} before the first delimiter (0x1F); the first two characters are taken for the "
     "indicators"},
    {FaultCode::kIndicatorsAdded, "indicators-added",
     "{found} before the first delimiter (0x1F); what is missing is taken for blanks"},
    {FaultCode::kNoDelimiter, "no-delimiter",
     "no delimiter (0x1F); the text is taken for subfield $a"},
    {FaultCode::kDelimiterLeftOut, "delimiter-left-out",
     "a delimiter (0x1F) without a subfield code, left out"},
    {FaultCode::kFieldEndLeftOut, "field-end-left-out",
     "a field terminator (0x1E) in the text, left out"},
    {FaultCode::kLineEndsLeftOut, "line-ends-left-out",
     "line ends within the record, left out: {found}"},
    {FaultCode::kLineEndsForBlanks, "line-ends-for-blanks",
     "line ends within the record, taken for blanks: {found}"},
    {FaultCode::kFieldNotRead, "field-not-read",
     "left out, since it can't be read with certainty: {found}"},
    {FaultCode::kDataNotRead, "data-not-read",
     "left out, since no directory entry is certain to name it: {found}"},
    {FaultCode::kGzipCutShort, "gzip-cut-short", "the gzip data is cut short"},
    {FaultCode::kGzipDamaged, "gzip-damaged", "the gzip data is damaged"},
    {FaultCode::kBytesAfterGzip, "bytes-after-gzip", "bytes after the gzip data"},
    // Text forms.
    {FaultCode::kByteOrderMark, "byte-order-mark", "byte order mark"},
    {FaultCode::kBlankLines, "blank-lines", "blank lines without a record"},
    {FaultCode::kFileHeader, "file-header", "file header"},
    {FaultCode::kLineWithoutTag, "line-without-tag", "a line that does not begin with = and a tag"},
    {FaultCode::kNoLeaderLine, "no-leader-line", "no line for the leader ({allowed})"},
    {FaultCode::kTextBeforeSubfields, "text-before-subfields",
     "text before the first subfield ($)"},
    {FaultCode::kUnknownMnemonics, "unknown-mnemonics",
     "unknown names in braces, left as they are: {found}"},
    // What a record is made of.
    {FaultCode::kNoLeader, "no-leader", "no leader"},
    {FaultCode::kSecondLeader, "second-leader", "a second leader"},
    {FaultCode::kLeaderTooLong, "leader-too-long", "a leader of over 24 bytes"},
    {FaultCode::kFieldWithoutTag, "field-without-tag", "a field without a tag"},
    {FaultCode::kTagNotThreeBytes, "tag-not-three-bytes",
     "a tag that is not of three bytes: {found}"},
    {FaultCode::kTagBytes, "tag-bytes", "a tag with bytes that no tag has"},
    {FaultCode::kNoSubfields, "no-subfields", "a data field without subfields"},
    {FaultCode::kNoIndicators, "no-indicators", "a data field without two indicators"},
    {FaultCode::kIndicatorNotAscii, "indicator-not-ascii",
     "an indicator that is not one character of ASCII"},
    {FaultCode::kIndicatorIsDelimiter, "indicator-is-delimiter",
     "a delimiter (0x1F) as an indicator"},
    {FaultCode::kIndicatorTwice, "indicator-twice", "the same indicator twice"},
    {FaultCode::kIndicatorForBlank, "indicator-for-blank",
     "an indicator that is not one character of ASCII, taken for a blank"},
    {FaultCode::kSubfieldCodeSize, "subfield-code-size",
     "a subfield code that is not one character"},
    {FaultCode::kDelimiterInSubfield, "delimiter-in-subfield", "a delimiter (0x1F) in a subfield"},
    {FaultCode::kEndInText, "end-in-text", "a field or record terminator (0x1E, 0x1D) in the text"},
    // XML and JSON.
    {FaultCode::kMalformedXml, "malformed-xml",
     "malformed XML: {found}; the file is read no further"},
    {FaultCode::kDocumentType, "document-type",
     "a document type (DOCTYPE): entities and external parts are not followed; the file is read no "
     "further"},
    {FaultCode::kXmlPartTooLong, "xml-part-too-long",
     "a tag, comment or other part of over 4 MiB; the file is read no further"},
    {FaultCode::kXmlRecordTooLong, "xml-record-too-long", "a record of over 4 MiB"},
    {FaultCode::kXmlTagTooLong, "xml-tag-too-long",
     "a tag of over 32 KiB; the file is read no further"},
    {FaultCode::kXmlTooDeep, "xml-too-deep",
     "elements nested more than {allowed} deep; the file is read no further"},
    {FaultCode::kMisplacedElement, "misplaced-element", "an element that does not belong there"},
    {FaultCode::kMisplacedText, "misplaced-text",
     "text outside of leader, control fields and subfields"},
    {FaultCode::kNoMarcInXml, "no-marc-in-xml", "XML that holds no MARC record"},
    {FaultCode::kMalformedJson, "malformed-json", "malformed JSON: {found}"},
    {FaultCode::kTooDeep, "too-deep", "nested more than {allowed} deep"},
    {FaultCode::kTooLarge, "too-large",
     "more than {found} bytes, unpacked, and all of them are held in memory; {allowed}"},
    {FaultCode::kMisplacedValue, "misplaced-value", "a value of a kind that does not belong there"},
    {FaultCode::kArrayNotClosed, "array-not-closed",
     "the array is not closed: the file is cut short"},
    {FaultCode::kForeignParts, "foreign-parts",
     "elements or members that are no part of a record, passed over: {found}"},
    {FaultCode::kEmptyIndicators, "empty-indicators",
     "empty or missing indicators, taken for blanks: {found}"},
    {FaultCode::kLeadersTrimmed, "leaders-trimmed",
     "leaders with blanks around their 24 characters, trimmed: {found}"},
    {FaultCode::kLeadersFilledUp, "leaders-filled-up",
     "leaders of fewer than 24 characters, filled up with blanks: {found}"},
    {FaultCode::kLeadersAlone, "leaders-alone",
     "records of a leader alone, which no field follows: {found}"},
    // Writing.
    {FaultCode::kNothingToWrite, "nothing-to-write", "no field to write"},
    {FaultCode::kFieldTooLong, "field-too-long",
     "the field has {found} bytes, over the 9,999 of the format"},
    {FaultCode::kRecordTooLong, "record-too-long",
     "the longest field of a record of {found} bytes, which is over the 99,999 of the format"},
    {FaultCode::kFieldLengthCut, "field-length-cut",
     "the field has {found} bytes, of which the directory says 9,999"},
    {FaultCode::kFieldLeftOut, "field-left-out",
     "left out: the record has no room for the {found} bytes of the field"},
    {FaultCode::kTagNotCarried, "tag-not-carried",
     "left out: {found} can't carry a field with this tag"},
    {FaultCode::kFieldCutToFit, "field-cut-to-fit",
     "the field has {found} bytes, cut to the {allowed} that fit"},
    {FaultCode::kNoFormOfName, "no-form-of-name", "the name of the output does not say its form",
     "give it with --to, one of {found}"},
    {FaultCode::kEmptyFieldLeftOut, "empty-field-left-out", "left out: the field has no content"},
    {FaultCode::kRecordCut, "record-cut", "{found} bytes cut off the end of the record"},
    {FaultCode::kUnprintableByte, "unprintable-byte", "byte {found} is not a printable character"},
    {FaultCode::kNotMadeOfSubfields, "not-made-of-subfields",
     "not made of two indicators and subfields with codes"},
    // Character sets, and what becomes of records.
    {FaultCode::kValueReplaced, "value-replaced",
     "bytes that are not a character are written as U+FFFD",
     "if the file is in another character set, name it with --from-charset"},
    {FaultCode::kMislabelled, "mislabelled", "the record says {found}, its bytes are {allowed}"},
    {FaultCode::kNoCharset, "no-charset",
     "\"{found}\" is not a character set; there are {allowed}"},
    {FaultCode::kInvalidUtf8, "invalid-utf-8",
     "byte {found} is not UTF-8; the record is not written"},
    {FaultCode::kCharactersNotCarried, "characters-not-carried", "characters not carried"},
    {FaultCode::kStoppedByPolicy, "stopped-by-policy", "not written"},
    {FaultCode::kWrittenWithWarnings, "written-with-warnings", "written with warnings"},

    // Places and coded fields.
    {FaultCode::kNoPlace, "no-place",
     "\"{found}\" is not a place; 245 is a field, 245a a subfield, 245/2 an indicator, 008/18 an "
     "element of a control field"},
    {FaultCode::kNotInDictionary, "not-in-dictionary", "the dictionary has no {found}"},
    {FaultCode::kNoCodedPlace, "no-coded-place",
     "\"{found}\" is not a place in a coded field; such places are leader/06, 008/18, 008a/18-21, "
     "006/05, 007c/01 and part 310"},
    {FaultCode::kNoSuchMaterial, "no-such-material",
     "there is no form {found}; the forms are {allowed}"},
    {FaultCode::kNoSuchPosition, "no-such-position", "its positions are {allowed}"},
    {FaultCode::kNoSuchPart, "no-such-part",
     "there is no part {found}; such parts are 16, 107, 310 and 1702"},

    // New records.
    {FaultCode::kNotAnEntryPlace, "not-an-entry-place",
     "\"{found}\" is not a place in a new record; places are 245a, 650[2]a, 245, 001, 008/35-37, "
     "leader/17, language, country and the like"},
    {FaultCode::kWholeLeader, "whole-leader",
     "only positions of the leader can be given, such as leader/17"},
    {FaultCode::kNotADataField, "not-a-data-field",
     "only a data field, such as 245, has subfields and indicators"},
    {FaultCode::kNotASubfieldCode, "not-a-subfield-code", "\"{found}\" is not a subfield code"},
    {FaultCode::kSubfieldWithoutCode, "subfield-without-code",
     "a dollar sign has no subfield code after it"},
    {FaultCode::kControlCharacter, "control-character", "the text has a control character"},
    {FaultCode::kTextNotUtf8, "text-not-utf8", "the text is not UTF-8"},
    {FaultCode::kNotAWrittenField, "not-a-written-field",
     "a whole field is two indicators and subfields, such as 10$aTitle"},
    {FaultCode::kNotTwoIndicators, "not-two-indicators", "indicators are two characters"},
    {FaultCode::kNotAnIndicator, "not-an-indicator",
     "an indicator is a digit, a letter or a blank (_)"},
    {FaultCode::kOnlyOneField, "only-one-field", "a record can have this field only once"},
    {FaultCode::kOnlyOneSubfield, "only-one-subfield", "a field can have ${found} only once"},
    {FaultCode::kFieldGivenBefore, "field-given-before", "the field has been given before"},
    {FaultCode::kTooFewFields, "too-few-fields", "there are {found} of these fields so far"},
    {FaultCode::kNoFieldForPositions, "no-field-for-positions",
     "the record has no such field; give the whole field first"},
    {FaultCode::kBeyondField, "beyond-field", "the field has {found} characters"},
    {FaultCode::kWrongWidth, "wrong-width",
     "\"{found}\" does not have the width of these positions, which is {allowed}"},
    {FaultCode::kStorageOfLeader, "storage-of-leader",
     "these positions say how a record is stored, and are set when it is written"},
    {FaultCode::kWrongLength, "wrong-length", "the field has the wrong length: {found}"},
    {FaultCode::kNotAValue, "not-a-value", "\"{found}\" is not a value of {allowed}"},
    {FaultCode::kUndefinedPositions, "undefined-positions",
     "\"{found}\" stands in positions that the format leaves undefined"},
    {FaultCode::kNotDecoded, "not-decoded", "\"{found}\" can't be decoded: {allowed}"},
    {FaultCode::kNotACode, "not-a-code", "\"{found}\" is not a code of {allowed}",
     "quillory describe {place} lists the codes"},
    {FaultCode::kObsoleteCode, "obsolete-code", "\"{found}\" is an obsolete code of {allowed}",
     "quillory describe {place} lists the codes"},
    {FaultCode::kTypeAgainst008, "type-against-008",
     "field 008 does not fit this type of record: {found}"},
    {FaultCode::kOddControlFields, "odd-control-fields",
     "the workform \"{found}\" has control fields that a record can't have"},
    {FaultCode::kNotAText, "not-a-text", "the value of \"{found}\" is not a text"},
    {FaultCode::kNotToml, "not-toml", "the description is not valid TOML: {found}"},
    {FaultCode::kOutsideOfRecords, "outside-of-records",
     "this stands above the first [[record]], where only workform may stand"},
    {FaultCode::kNotOneRecord, "not-one-record", "this is not one [[record]]"},
    {FaultCode::kSeveralRecords, "several-records", "the file describes several records",
     "quillory catalog makes them all"},
    {FaultCode::kNoWorkformNamed, "no-workform-named", "no workform is named",
     "quillory workforms lists them"},

    // Workforms.
    {FaultCode::kNoWorkform, "no-workform", "there is no workform \"{found}\"",
     "quillory workforms lists all"},
    {FaultCode::kNoWorkformButNear, "no-workform-but-near",
     "there is no workform \"{found}\"; near it: {allowed}", "quillory workforms lists all"},
    {FaultCode::kSeveralWorkforms, "several-workforms", "\"{found}\" may be any of {allowed}"},
    {FaultCode::kNoName, "no-name", "a workform needs a name"},
    {FaultCode::kLongName, "long-name",
     "the name \"{found}\" is too long; a name has at most {allowed} characters"},
    {FaultCode::kStandardName, "standard-name",
     "\"{found}\" is the name of a standard workform, which can't be replaced"},
    {FaultCode::kStandardNotDeleted, "standard-not-deleted",
     "\"{found}\" is a standard workform, which can't be deleted"},
    {FaultCode::kStandardNotExported, "standard-not-exported",
     "\"{found}\" is a standard workform, which every quillory has"},
    {FaultCode::kNoOwnWorkforms, "no-own-workforms",
     "there are no workforms of your own to export"},
    {FaultCode::kNoFurtherId, "no-further-id",
     "\"{found}\" can't be saved: there is no further ID for a workform"},
    {FaultCode::kWorkformThere, "workform-there",
     "\"{found}\" is already there as workform {allowed}", "--force replaces it"},
    {FaultCode::kWorkformTwice, "workform-twice", "\"{found}\" is there twice"},
    {FaultCode::kLockedWorkform, "locked-workform",
     "\"{found}\" is locked by another program that is changing it"},
    {FaultCode::kOddByte, "odd-byte",
     "\"{found}\" has the byte {allowed} there, which a record can't hold"},
    {FaultCode::kNoBase, "no-base",
     "its base \"{found}\" is not there; \"{allowed}\" stands in for it"},
    {FaultCode::kDamagedWorkform, "damaged-workform",
     "the block of a workform is damaged: {found}"},
    {FaultCode::kNotWorkformFile, "not-workform-file", "this is not a file of workforms"},
    {FaultCode::kBytesAfterWorkforms, "bytes-after-workforms", "bytes after the end: {found}"},
    {FaultCode::kNotWorkformText, "not-workform-text",
     "a workform can't hold all characters of \"{found}\""},
    {FaultCode::kNotADefaultText, "not-a-default-text",
     "a workform has texts of subfields alone, such as 040a"},

    // Copies and holdings systems.
    {FaultCode::kNoHoldingsType, "no-holdings-type", "there is no holdings type {found}{allowed}",
     "`quillory describe --holdings` lists them"},
    {FaultCode::kNoHoldingsElement, "no-holdings-element",
     "\"{found}\" is neither an element nor a place in the holdings fields of {allowed}"},
    {FaultCode::kNoHoldingsPlace, "no-holdings-place",
     "\"{found}\" is not a place in the holdings fields of {allowed}, such as 852$h"},
    {FaultCode::kHoldingsFromStandardInput, "holdings-from-standard-input",
     "records and holdings can't both come from standard input"},
    {FaultCode::kHoldingsNumberFiles, "holdings-number-files",
     "record numbers go with one file of records only"},
    {FaultCode::kHoldingsNotUtf8, "holdings-not-utf-8", "not in UTF-8"},
    {FaultCode::kHoldingsJsonArray, "holdings-json-array",
     "the file is a JSON array; it must hold one object a line"},
    {FaultCode::kHoldingsNoObject, "holdings-no-object", "not a JSON object"},
    {FaultCode::kHoldingsSameNames, "holdings-same-names", "a name more than once"},
    {FaultCode::kHoldingsNoText, "holdings-no-text", "{found}: neither a text nor a whole number"},
    {FaultCode::kHoldingsKeyColumn, "holdings-key-column",
     "one column must be the key, 001 or record"},
    {FaultCode::kHoldingsNoKey, "holdings-no-key", "no key (001 or record)"},
    {FaultCode::kHoldingsSecondKey, "holdings-second-key", "more than one key"},
    {FaultCode::kHoldingsNoValue, "holdings-no-value", "no value for {found}"},
    {FaultCode::kHoldingsNoRecordNumber, "holdings-no-record-number",
     "\"{found}\" is not the number of a record"},
    {FaultCode::kHoldingsExtraCell, "holdings-extra-cell", "more cells than columns"},
    {FaultCode::kHoldingsUnnamedColumn, "holdings-unnamed-column",
     "a value in a column without a name"},
    {FaultCode::kHoldingsControlCharacter, "holdings-control-character",
     "{found}: a control character"},
    {FaultCode::kHoldingsNoRoom, "holdings-no-room",
     "{found}: no room for this value: the element takes no more of them, or the value has the "
     "character that divides elements in its subfield"},
    {FaultCode::kHoldingsUnusedLine, "holdings-unused-line", "no record has {found}"},
    {FaultCode::kHoldingsBarCodes, "holdings-bar-codes",
     "the copy has {allowed} bar codes: {found}"},
    {FaultCode::kHoldingsSharedBarCode, "holdings-shared-bar-code",
     "the copy has the bar code {found}, which the copy of {allowed} has already"},
    {FaultCode::kNoHoldingsSystem, "no-holdings-system",
     "\"{found}\" is not a place in the holdings fields, such as 852$h, and no holdings system is "
     "chosen that may have such an element: {allowed}",
     "choose one with --holdings-type, or with the settings holdings.EasyOrCustom (Easy) and "
     "holdings.HoldingsType"},
    {FaultCode::kNoSuchElement, "no-such-element", "\"{found}\" is not an element of {allowed}",
     "`quillory describe --holdings` shows the elements"},
    {FaultCode::kElementsInPairs, "elements-in-pairs",
     "name one element for each that moves, and no others"},
    {FaultCode::kElementNotMoved, "element-not-moved",
     "the value of {found} can't go to {allowed}, which the copy needs for another value"},

    // Checks and repairs.
    {FaultCode::kUnknownTypeOfRecord, "unknown-type-of-record",
     "leader/06 is not a type of record, so the material is unknown"},
    {FaultCode::kUnknownFirstByte, "unknown-first-byte",
     "its first byte is not a type of record or a category"},
    {FaultCode::kSecond008, "second-008", "a record has one 008"},
    {FaultCode::kShifted008, "shifted-008",
     "{found}, the format has 40, and country and language are not in their places"},
    {FaultCode::kShort008, "short-008",
     "{found}, the format has 40; too short to tell which byte is which"},
    {FaultCode::kDisplaced008, "displaced-008",
     "neither date, country nor language are in their places"},
    {FaultCode::kDisplacedLanguage, "displaced-language",
     "the language, and what is before it, stand a byte beside their places"},
    {FaultCode::kSurplusBytes, "surplus-bytes",
     "{found}, more than the format has, and they say something"},
    {FaultCode::kFieldFilledUp, "field-filled-up",
     "{found}, the format has {allowed}; filled up as not coded"},
    {FaultCode::kFieldCut, "field-cut", "{found}, the format has {allowed}; cut"},
    {FaultCode::kNoCodeOfFormat, "no-code-of-format",
     "\"{found}\" is not a value of the format, and nothing says what is meant"},
    {FaultCode::kTwoCountries, "two-countries",
     "\"{found}\" in small letters is one country, and another one in ISO 3166-1"},
    {FaultCode::kCodeMayBeCut, "code-may-be-cut",
     "\"{found}\" is a code of ISO 3166-1, or one of three letters without its end"},

    // Settings and arguments.
    {FaultCode::kAlwaysUtf8, "always-utf-8", "{found} is always in UTF-8, never in {allowed}"},
    {FaultCode::kNoHomeFolder, "no-home-folder",
     "there is no folder for settings and the store: set QUILLORY_HOME to one, since neither "
     "XDG_DATA_HOME nor HOME is set"},
    {FaultCode::kNoSetting, "no-setting", "there is no setting {found}{allowed}",
     "quillory settings lists them"},
    {FaultCode::kNoHoldingsSetting, "no-holdings-setting",
     "there is no holdings setting {found}{allowed}", "quillory settings --holdings lists them"},
    {FaultCode::kNotASettingValue, "not-a-setting-value",
     "the value is {allowed}, not \"{found}\""},
    {FaultCode::kNotSettingText, "not-setting-text",
     "settings can't hold all characters of \"{found}\""},
    {FaultCode::kNotHoldingsSettingText, "not-holdings-setting-text",
     "holdings settings can't hold | or a backslash"},
    {FaultCode::kIsOwnFile, "is-own-file", "this is a file of {found}, which would be overwritten"},
    {FaultCode::kNoStoredRecord, "no-stored-record", "there is no record {found} in the store"},
    {FaultCode::kNoDataFile, "no-data-file",
     "can't be opened: {found}; QUILLORY_DATA names the folder of the data files"},
    {FaultCode::kNoUserDefinedField, "no-user-defined-field",
     "\"{found}\" names no fields of your own; they are given as 590ab or 591-595"},

    // Which records and places: --where and its like.
    {FaultCode::kNoPlaceGiven, "no-place-given",
     "no place is given; 245 is a field, 245ab are subfields, 6XX and 600-699 are fields of many "
     "tags"},
    {FaultCode::kRangeBackwards, "range-backwards", "{found} ends before it begins"},
    {FaultCode::kQueryExpected, "query-expected", "expected {allowed}, but found {found}"},
    {FaultCode::kQueryWordAlone, "query-word-alone",
     "expected {allowed}, but found {found}; XXX contains {found} looks for it in all fields"},
    {FaultCode::kQueryTextNotClosed, "query-text-not-closed",
     "the text lacks its closing quotation mark {found}"},
    {FaultCode::kQueryNotComparable, "query-not-comparable",
     "{found} is not a number, such as 1990, and no date, such as 2024-05-31 or 2024-05"},
    {FaultCode::kQueryNoMaterial, "query-no-material", "there is no material {found}; {allowed}"},
    {FaultCode::kQueryBadPattern, "query-bad-pattern",
     "the regular expression can't be used: {found}"},
    {FaultCode::kQueryTooDeep, "query-too-deep",
     "brackets and \"not\" stand more than {allowed} deep"},
    {FaultCode::kQueryNotUtf8, "query-not-utf-8", "byte {found} is no UTF-8"},
    {FaultCode::kConditionText, "condition-text", "{found}"},
    {FaultCode::kNoRecordNumbers, "no-record-numbers",
     "\"{found}\" is no list of record numbers, such as 17,20-25"},

    // Sets of records.
    {FaultCode::kKeyOfAnother, "key-of-another", "{found} is the key of {allowed}, too"},
    {FaultCode::kRemovedDouble, "removed-double", "removed; {allowed} has {found}, too"},
    {FaultCode::kGoesWithNone, "goes-with-none", "goes with no record"},
    {FaultCode::kKeylessGoesWithNone, "keyless-goes-with-none",
     "has no key, and goes with no record"},
    {FaultCode::kNoLinkNumber, "no-link-number",
     "not merged: with the other record's, it would have more than 99 pairs of fields that are "
     "linked by $6"},

    // Edits.
    {FaultCode::kEditRefused, "edit-refused", "not edited: {found}"},
    {FaultCode::kNoOperation, "no-operation",
     "there is no operation \"{found}\"; the operations are {allowed}"},
    {FaultCode::kParameterMissing, "parameter-missing", "is missing; {found} needs it"},
    {FaultCode::kNoSuchChoice, "no-such-choice", "\"{found}\" is none of {allowed}"},
    {FaultCode::kNoPlaceForOperation, "no-place-for-operation",
     "\"{found}\" can't be named here, only {allowed}"},
    {FaultCode::kOnePlaceOnly, "one-place-only", "\"{found}\" is more than one place"},
    {FaultCode::kNoFieldText, "no-field-text",
     "an empty text, or one with control characters or bytes that are no UTF-8"},
    {FaultCode::kOneOnly, "one-only", "one of {allowed} is needed, and only one"},
    {FaultCode::kBraceAlone, "brace-alone",
     "a brace that is not closed or not opened; a brace in the text is written twice"},
    {FaultCode::kNoSuchGroup, "no-such-group",
     "\"{found}\" stands for none of the {allowed} groups of the expression; a backslash itself is "
     "written twice"},
    {FaultCode::kNoIndicatorValue, "no-indicator-value",
     "\"{found}\" is no value; an indicator is one character of ASCII, _ for a blank"},
    {FaultCode::kValueWidth, "value-width", "\"{found}\" does not fill the {allowed} positions"},
    {FaultCode::kPositionsOfTheFile, "positions-of-the-file",
     "{found} says how the record is stored, and can't be edited"},
    {FaultCode::kFieldEndsBefore, "field-ends-before", "the field ends before these positions"},
    {FaultCode::kSubfieldsInControlField, "subfields-in-control-field",
     "subfields in a control field"},
    {FaultCode::kMalformedToml, "malformed-toml", "malformed TOML: {found}"},
    {FaultCode::kTaskKey, "task-key", "there is no key \"{found}\" here; the keys are {allowed}"},
    {FaultCode::kTaskValue, "task-value", "neither a text nor a number, true or false"},
    {FaultCode::kNoEdits, "no-edits", "no edits; each is a table that begins with [[edit]]"},

    // Cards and labels.
    {FaultCode::kNoFonts, "no-fonts",
     "no font is installed; one is needed, such as fonts-dejavu-core of Debian"},
    {FaultCode::kMissingSigns, "missing-signs",
     "no installed font has {found}, first {allowed}: boxes stand in their places; fonts-unifont "
     "of Debian has most characters"},
    {FaultCode::kNoTitleForCards, "no-title-for-cards", "no title (245), and so no cards"},
    {FaultCode::kNoCallNumber, "no-call-number", "no call number, and so no label"},
    {FaultCode::kNoRoomToPrint, "no-room-to-print",
     "the {allowed} of record {found} has no room for all of its text"},
    {FaultCode::kQueueInUse, "queue-in-use",
     "another program has the queue open; try again when it is done"},
    {FaultCode::kQueueNotOpened, "queue-not-opened", "the queue can't be opened: {found}"},
    {FaultCode::kQueueNotOurs, "queue-not-ours",
     "the file is no queue that this program made, and stays as it is; move it away to begin a "
     "queue"},
    {FaultCode::kQueueCutShort, "queue-cut-short",
     "the queue ends here, or its next item can't be found, before all that it counts"},
    {FaultCode::kQueueItemDamaged, "queue-item-damaged", "the item is damaged, and is left out"},
    {FaultCode::kQueueNotAddedTo, "queue-not-added-to",
     "nothing was added: {found}. Print what is there, clear the queue, and add again"},
    {FaultCode::kQueueFull, "queue-full", "the queue is full"},
};

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(kWords); ++i) {
        if (kWords[i].code != static_cast<FaultCode>(i)) return false;
    }
    return true;
}
static_assert(std::size(kWords) == static_cast<std::size_t>(FaultCode::kEnd));
static_assert(IsInOrder(), "a code's words stand in the code's place");

const Words& WordsOf(FaultCode code) {
    return kWords[static_cast<std::size_t>(code)];
}

// What stands in the words for a part of a fault, and that part.
struct Part {
    std::string_view sign;
    std::string_view text;
};

// The words with the parts in the place of their signs.
std::string Filled(std::string_view words, std::span<const Part> parts) {
    std::string text;
    while (!words.empty()) {
        const auto part = std::ranges::find_if(
            parts, [words](const Part& known) { return words.starts_with(known.sign); });
        if (part != parts.end()) {
            text += part->text;
            words.remove_prefix(part->sign.size());
        } else {
            text += words.front();
            words.remove_prefix(1);
        }
    }
    return text;
}

std::string Filled(const Fault& fault, std::string_view place) {
    const Words& words = WordsOf(fault.code);
    const std::string hint = HintText(words.id, fault.place, words.command);
    const Part parts[] = {
        {"{place}", place}, {"{found}", fault.found}, {"{allowed}", fault.allowed}};
    const std::string text = Filled(words.reason, parts);
    return hint.empty() ? text : text + "; " + Filled(hint, parts);
}

}  // namespace

std::string_view FaultId(FaultCode code) {
    return WordsOf(code).id;
}

std::string FaultHeading(FaultCode code) {
    return Filled({code, {}, "...", "..."}, "...");
}

std::string FaultReason(const Fault& fault) {
    return Filled(fault, PlaceText(fault.place));
}

std::string FaultText(const Fault& fault) {
    const std::string place = PlaceText(fault.place);
    return place.empty() ? FaultReason(fault) : place + ": " + FaultReason(fault);
}

}  // namespace quillory
