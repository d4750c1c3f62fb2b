#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

class CPmarc;

// The communications format of MARC 21, an ISO 2709 record: a leader of 24 bytes, a directory of 12
// bytes for each field, the fields, and the terminators below.
inline constexpr char kRecordEnd = 0x1D;
inline constexpr char kFieldEnd = 0x1E;
inline constexpr char kDelimiter = 0x1F;
inline constexpr std::size_t kLeaderSize = 24;
inline constexpr std::size_t kTagSize = 3;
inline constexpr std::size_t kDirectoryEntrySize = 12;
inline constexpr std::size_t kLongestField = 9999;    // bytes, including its field terminator
inline constexpr std::size_t kLongestRecord = 99999;  // bytes

// The leader positions that a reader or a writer uses.
inline constexpr std::size_t kLeaderLength = 0;           // 00-04
inline constexpr std::size_t kLeaderCharacterCode = 9;    // 'a' for UTF-8, blank for MARC-8
inline constexpr std::size_t kLeaderIndicatorCount = 10;  // '2'
inline constexpr std::size_t kLeaderCodeCount = 11;       // '2'
inline constexpr std::size_t kLeaderBaseAddress = 12;     // 12-16
inline constexpr std::size_t kLeaderEntryMap = 20;        // 20-23, "4500"

// What is wrong with a record's bytes.
enum CommFormatReason : std::int32_t {
    CFR_None,
    CFR_Empty,             // no bytes at all
    CFR_CutShort,          // ends before its length, without a record terminator
    CFR_LengthNotNumber,   // leader 00-04
    CFR_LengthWrong,       // leader 00-04 is not the number of bytes up to the record terminator
    CFR_TooLong,           // over 99,999 bytes, which leader 00-04 cannot say
    CFR_TextAfterEnd,      // bytes after the record terminator
    CFR_CountsNotTwo,      // leader 10-11: indicators and characters of a subfield code
    CFR_EntryMap,          // leader 20-21: digits of lengths and starts in the directory
    CFR_BaseAddressWrong,  // leader 12-16 does not point just past the directory's terminator
    CFR_DirectorySize,     // the directory is not a whole number of entries
    CFR_DirectoryEntry,    // a bad tag, length or start, or one that points outside the data
    CFR_DirectoryGap,      // fields overlap, or data belongs to no field
    CFR_FieldEnd,          // a field that lacks its field terminator, or has one before its end
    CFR_Indicators,        // a data field without two indicators before its first delimiter
    CFR_SubfieldCode,      // a delimiter without a subfield code
    CFR_FieldCount,        // rescue: directory and data have different numbers of fields
};

// A fault in the bytes of one record.
struct CommFormatFault {
    CommFormatReason reason = CFR_None;
    std::size_t offset = 0;  // in bytes, from the start of the record
    std::string tag;         // of the field concerned, or empty

    explicit operator bool() const { return reason != CFR_None; }
};

// Returns the fault in words, without its place.
ZORBY_EXPORT std::string CommFormatFaultText(CommFormatReason reason);

// One field in the bytes of a record. The views are valid as long as those bytes.
struct CommFormatField {
    std::string_view tag;      // three bytes
    std::string_view content;  // indicators and subfields, or control data; no field terminator

    // True for the tags 001 to 009, and any other that begins with "00".
    bool IsControlField() const { return tag[0] == '0' && tag[1] == '0'; }
    // True for any other numeric tag: such a field has two indicators, then subfields. A field
    // whose tag has letters may hold anything.
    bool IsDataField() const {
        return !IsControlField() && tag.find_first_not_of("0123456789") == tag.npos;
    }
};

// The fields of one record in the order of its directory.
struct CommFormatFields {
    std::string_view leader;  // 24 bytes
    std::vector<CommFormatField> fields;
};

// Reads one record, which takes up all of `bytes`, without copying. The bytes may be anything.
// After a fault there are no fields.
ZORBY_EXPORT CommFormatFault ReadCommFormat(std::string_view bytes, CommFormatFields& fields);

// A damaged record, read by its terminators and delimiters. The views point into the bytes or into
// the contents that are held here.
struct CommFormatRescue {
    std::string leader;  // 24 bytes, with the counts in 10-11 and 20-23 corrected
    std::vector<CommFormatField> fields;
};

// Reads a damaged record if that can be done with certainty: the tags in the directory and the
// fields in the data are equal in number and agree in order, and no field is damaged in itself. A
// delimiter without a code is left out if it is at the end of its field. Lengths, starts and base
// address need not be right. After a fault, `rescue` holds nothing useful.
ZORBY_EXPORT CommFormatFault RescueCommFormat(std::string_view bytes, CommFormatRescue& rescue);

// Reads one record into a list of fields: the leader as tag 000, then the fields in the order of
// the directory. This replaces what `record` held. After a fault `record` is empty.
ZORBY_EXPORT CommFormatFault ReadCommFormat(std::string_view bytes, CPmarc& record);

// The size, in bytes, of a record with these fields: leader, directory, fields and all terminators.
ZORBY_EXPORT std::size_t CommFormatSize(std::span<const CommFormatField> fields);

// Writes a record, which replaces what `record` held; the views must not point there. The leader is
// set as by CommFormatWriter. Returns false, and leaves `record` as it is, if there is no field, a
// field is longer than kLongestField, or the record is longer than kLongestRecord.
ZORBY_EXPORT bool WriteCommFormat(std::string_view leader, std::span<const CommFormatField> fields,
                                  std::string& record);

// Builds a record in the communications format, field by field.
class ZORBY_EXPORT CommFormatWriter {
public:
    // Removes all fields and keeps the buffers.
    void Clear();
    // Makes room for that many fields, with that many bytes in all.
    void Reserve(std::size_t fields, std::size_t bytes);

    // Sets the leader as far as it is known, at most 24 bytes. The rest is filled with vertical
    // bars.
    void SetLeader(std::string_view leader);

    // Adds a field: the three bytes of its tag, and its content without the field terminator.
    // Returns false and leaves the field out if the record has no room for it. If a field is longer
    // than 9,999 bytes, the directory says 9,999.
    bool AddField(std::string_view tag, std::string_view content);

    // Gives the finished record, which is empty if there is no field or no data. A record of more
    // than 99,999 bytes loses data at its end, in tens of bytes. Returns how many bytes were lost.
    std::size_t Finish(std::string& record) const;

private:
    std::string leader_;
    std::string directory_;
    std::string data_;
};

}  // namespace zorby
