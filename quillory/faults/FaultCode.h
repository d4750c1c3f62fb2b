#pragma once

#include <cstdint>

namespace quillory {

// What can be wrong with what a person or a file gives. The words of each stand in FaultText.cpp,
// in the same order.
enum class FaultCode : std::uint16_t {
    kNone,

    // Files of records: ISO 2709.
    kEmptyFile,
    kEmptyRecord,
    kCutShort,
    kLengthNotNumber,
    kLengthWrong,
    kLongerThanFormat,
    kBytesAfterEnd,
    kCountsNotTwo,
    kEntryMapWrong,
    kBaseAddressWrong,
    kDirectorySize,
    kDirectoryEntry,
    kDirectoryGap,
    kFieldEndMisplaced,
    kNoIndicatorsBeforeDelimiter,
    kNoSubfieldCode,
    kFieldCountsDiffer,
    kNoRecordEnd,
    kNotMarc,
    kStrayBytes,
    kFiller,
    kTextBetweenRecords,
    kIndicatorBytes,
    kIndicatorsAdded,
    kNoDelimiter,
    kDelimiterLeftOut,
    kFieldEndLeftOut,
    kLineEndsLeftOut,
    kLineEndsForBlanks,
    kFieldNotRead,
    kDataNotRead,
    kGzipCutShort,
    kGzipDamaged,
    kBytesAfterGzip,
    // Text forms.
    kByteOrderMark,
    kBlankLines,
    kFileHeader,
    kLineWithoutTag,
    kNoLeaderLine,
    kTextBeforeSubfields,
    kUnknownMnemonics,
    // What a record is made of.
    kNoLeader,
    kSecondLeader,
    kLeaderTooLong,
    kFieldWithoutTag,
    kTagNotThreeBytes,
    kTagBytes,
    kNoSubfields,
    kNoIndicators,
    kIndicatorNotAscii,
    kIndicatorIsDelimiter,
    kIndicatorTwice,
    kIndicatorForBlank,
    kSubfieldCodeSize,
    kDelimiterInSubfield,
    kEndInText,
    // XML and JSON.
    kMalformedXml,
    kDocumentType,
    kXmlPartTooLong,
    kXmlRecordTooLong,
    kXmlTagTooLong,
    kXmlTooDeep,
    kMisplacedElement,
    kMisplacedText,
    kNoMarcInXml,
    kMalformedJson,
    kTooDeep,   // allowed: how deep it may be
    kTooLarge,  // found: the most bytes; allowed: what to do
    kMisplacedValue,
    kArrayNotClosed,
    kForeignParts,
    kEmptyIndicators,
    kLeadersTrimmed,
    kLeadersFilledUp,
    kLeadersAlone,
    // Writing.
    kNothingToWrite,
    kFieldTooLong,
    kRecordTooLong,
    kFieldLengthCut,
    kFieldLeftOut,
    kTagNotCarried,
    kFieldCutToFit,
    kNoFormOfName,
    kEmptyFieldLeftOut,
    kRecordCut,
    kUnprintableByte,
    kNotMadeOfSubfields,
    // Character sets, and what becomes of records.
    kValueReplaced,
    kMislabelled,
    kNoCharset,
    kInvalidUtf8,
    kCharactersNotCarried,
    kStoppedByPolicy,
    kWrittenWithWarnings,

    // Places and coded fields.
    kNoPlace,
    kNotInDictionary,
    kNoCodedPlace,
    kNoSuchMaterial,
    kNoSuchPosition,
    kNoSuchPart,

    // New records.
    kNotAnEntryPlace,  // found: the text
    kWholeLeader,
    kNotADataField,
    kNotASubfieldCode,  // found: the text
    kSubfieldWithoutCode,
    kControlCharacter,
    kTextNotUtf8,
    kNotAWrittenField,
    kNotTwoIndicators,
    kNotAnIndicator,
    kOnlyOneField,
    kOnlyOneSubfield,  // found: its code
    kFieldGivenBefore,
    kTooFewFields,  // found: how many there are
    kNoFieldForPositions,
    kBeyondField,  // found: its length
    kWrongWidth,   // allowed: how many characters
    kStorageOfLeader,
    kWrongLength,  // found: its length and that of the format
    kNotAValue,    // allowed: the name of the element
    kUndefinedPositions,
    kNotDecoded,        // allowed: why
    kNotACode,          // allowed: the name of the element
    kObsoleteCode,      // allowed: the name of the element
    kTypeAgainst008,    // found: the fault in 008
    kOddControlFields,  // found: the name of the workform
    kNotAText,          // found: the key
    kNotToml,           // found: the reason
    kOutsideOfRecords,
    kNotOneRecord,
    kSeveralRecords,
    kNoWorkformNamed,

    // Workforms.
    kNoWorkform,         // found: the name or ID
    kNoWorkformButNear,  // found: the name; allowed: names near it
    kSeveralWorkforms,   // found: the name; allowed: what it may be
    kNoName,
    kLongName,             // found: the name; allowed: characters
    kStandardName,         // found: the name
    kStandardNotDeleted,   // found: the name
    kStandardNotExported,  // found: the name
    kNoOwnWorkforms,
    kNoFurtherId,      // found: the name
    kWorkformThere,    // found: the name; allowed: its ID
    kWorkformTwice,    // found: the name
    kLockedWorkform,   // found: the name
    kOddByte,          // found: the name; allowed: the byte
    kNoBase,           // found: its name; allowed: the name of another
    kDamagedWorkform,  // found: its ID
    kNotWorkformFile,
    kBytesAfterWorkforms,  // found: their number
    kNotWorkformText,      // found: the text
    kNotADefaultText,

    // Copies and holdings systems.
    kNoHoldingsType,     // found: its name or number; allowed: what may be meant
    kNoHoldingsElement,  // found: the column's name; allowed: the system's name, what may be meant
    kNoHoldingsPlace,    // the same, for a system whose values are named by places alone
    kHoldingsFromStandardInput,
    kHoldingsNumberFiles,
    kHoldingsNotUtf8,
    kHoldingsJsonArray,
    kHoldingsNoObject,
    kHoldingsSameNames,
    kHoldingsNoText,  // found: the column's name
    kHoldingsKeyColumn,
    kHoldingsNoKey,
    kHoldingsSecondKey,
    kHoldingsNoValue,         // found: the key
    kHoldingsNoRecordNumber,  // found: the value
    kHoldingsExtraCell,
    kHoldingsUnnamedColumn,
    kHoldingsControlCharacter,  // found: the column's name
    kHoldingsNoRoom,            // found: the column's name
    kHoldingsUnusedLine,        // found: the key
    kHoldingsBarCodes,          // found: the bar codes; allowed: their number
    kHoldingsSharedBarCode,     // found: the bar code; allowed: the line that has it first
    kNoHoldingsSystem,          // found: the name; allowed: the systems
    kNoSuchElement,             // found: its name; allowed: the system's name
    kElementsInPairs,
    kElementNotMoved,  // found: the element; allowed: the one that it was to go to

    // Checks and repairs.
    kUnknownTypeOfRecord,
    kUnknownFirstByte,
    kSecond008,
    kShifted008,
    kShort008,
    kDisplaced008,
    kDisplacedLanguage,
    kSurplusBytes,
    kFieldFilledUp,
    kFieldCut,
    kNoCodeOfFormat,  // found: the value, for all three
    kTwoCountries,
    kCodeMayBeCut,

    // Settings and arguments.
    kAlwaysUtf8,
    kNoHomeFolder,
    kNoSetting,          // found: the name; allowed: what may be meant
    kNoHoldingsSetting,  // found: the name; allowed: what may be meant
    kNotASettingValue,   // found: the value
    kNotSettingText,     // found: the value
    kNotHoldingsSettingText,
    kIsOwnFile,           // found: what it belongs to
    kNoStoredRecord,      // found: its ID
    kNoDataFile,          // found: the reason
    kNoUserDefinedField,  // found: the list

    // Which records and places: --where and its like.
    kNoPlaceGiven,
    kRangeBackwards,      // found: the range of tags
    kQueryExpected,       // allowed: what may come here; found: what does
    kQueryWordAlone,      // allowed: what may come here; found: the word, quoted
    kQueryTextNotClosed,  // found: the quotation mark
    kQueryNotComparable,  // found: the text
    kQueryNoMaterial,     // found: the name; allowed: the nearest names, or all
    kQueryBadPattern,     // found: what is wrong with it
    kQueryTooDeep,        // allowed: how deep it may be
    kQueryNotUtf8,        // found: the byte
    kConditionText,       // found: what is wrong with a condition's text form
    kNoRecordNumbers,     // found: the list

    // Sets of records.
    kKeyOfAnother,   // found: the key; allowed: the other record
    kRemovedDouble,  // found: the key; allowed: the record that is kept
    kGoesWithNone,
    kKeylessGoesWithNone,
    kNoLinkNumber,

    // Edits.
    kEditRefused,          // found: why
    kNoOperation,          // found: the name; allowed: the names
    kParameterMissing,     // found: the operation
    kNoSuchChoice,         // found: the value; allowed: the values
    kNoPlaceForOperation,  // found: the place; allowed: such places
    kOnePlaceOnly,         // found: the places
    kNoFieldText,
    kOneOnly,  // allowed: the parameters
    kBraceAlone,
    kNoSuchGroup,         // found: the group; allowed: their number
    kNoIndicatorValue,    // found: the value
    kValueWidth,          // found: the value; allowed: how many positions
    kPositionsOfTheFile,  // found: the place
    kFieldEndsBefore,
    kSubfieldsInControlField,
    kMalformedToml,  // found: what is wrong
    kTaskKey,        // found: the key; allowed: the keys
    kTaskValue,
    kNoEdits,

    // Cards and labels.
    kNoFonts,
    kMissingSigns,  // found: how many characters; allowed: the first of them
    kNoTitleForCards,
    kNoCallNumber,
    kNoRoomToPrint,  // found: the control number; allowed: "card" or "label"
    kQueueInUse,
    kQueueNotOpened,  // found: the reason
    kQueueNotOurs,
    kQueueCutShort,
    kQueueItemDamaged,
    kQueueNotAddedTo,  // found: what is wrong with it
    kQueueFull,

    kEnd  // one past the last
};

}  // namespace quillory
