#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

class CPmarc;

// The communications format of MARC 21, an ISO 2709 record: a leader of 24 bytes, a directory of
// 12 bytes a field, the fields, and the ends below.
inline constexpr char kRecordEnd = 0x1D;
inline constexpr char kFieldEnd = 0x1E;
inline constexpr char kDelimiter = 0x1F;
inline constexpr std::size_t kLeaderSize = 24;
inline constexpr std::size_t kDirectoryEntrySize = 12;
inline constexpr std::size_t kLongestField = 9999;    // bytes, its field end included
inline constexpr std::size_t kLongestRecord = 99999;  // bytes

// Leader positions that a reader or a writer looks at.
inline constexpr std::size_t kLeaderLength = 0;           // 00-04
inline constexpr std::size_t kLeaderCharacterCode = 9;    // 'a' for UTF-8, blank for MARC-8
inline constexpr std::size_t kLeaderIndicatorCount = 10;  // '2'
inline constexpr std::size_t kLeaderCodeCount = 11;       // '2'
inline constexpr std::size_t kLeaderBaseAddress = 12;     // 12-16
inline constexpr std::size_t kLeaderEntryMap = 20;        // 20-23, "4500"

// What is wrong with a record's bytes.
enum CommFormatReason : std::int32_t {
    CFR_None,
    CFR_Empty,             // no byte
    CFR_CutShort,          // ends before its length, without a record end
    CFR_LengthNotNumber,   // leader 00-04
    CFR_LengthWrong,       // leader 00-04 is not the number of bytes up to the record end
    CFR_TooLong,           // over 99,999 bytes, which leader 00-04 cannot say
    CFR_TextAfterEnd,      // bytes behind the record end
    CFR_CountsNotTwo,      // leader 10-11: indicators and characters of a subfield code
    CFR_EntryMap,          // leader 20-21: digits of lengths and starts in the directory
    CFR_BaseAddressWrong,  // leader 12-16 does not point behind the directory's field end
    CFR_DirectorySize,     // the directory is no whole number of entries
    CFR_DirectoryEntry,    // a tag, length or start that is none, or points outside the data
    CFR_DirectoryGap,      // fields overlap, or data belongs to no field
    CFR_FieldEnd,          // a field that does not end with its only field end
    CFR_Indicators,        // a data field without two indicators before its first delimiter
    CFR_SubfieldCode,      // a delimiter without a subfield code
    CFR_FieldCount,        // rescue: fields in directory and in data differ in number
};

// A fault in the bytes of one record.
struct CommFormatFault {
    CommFormatReason reason = CFR_None;
    std::size_t offset = 0;  // in bytes, from the start of the record
    std::string tag;         // of the field concerned, empty if none

    explicit operator bool() const { return reason != CFR_None; }
};

// The fault in words, without its place.
ZORBY_EXPORT std::string CommFormatFaultText(CommFormatReason reason);

// One field in the bytes of a record; the views last as long as the bytes.
struct CommFormatField {
    std::string_view tag;      // three bytes
    std::string_view content;  // indicators and subfields, or control data; without the field end

    // Tags 001 to 009, and any other that begins "00".
    bool IsControlField() const { return tag[0] == '0' && tag[1] == '0'; }
    // Any other numeric tag: two indicators, then subfields. A tag with letters may hold anything.
    bool IsDataField() const {
        return !IsControlField() && tag.find_first_not_of("0123456789") == tag.npos;
    }
};

// The fields of one record in the order of its directory.
struct CommFormatFields {
    std::string_view leader;  // 24 bytes
    std::vector<CommFormatField> fields;
};

// Reads one record, which takes up all of `bytes`, without copying. Any bytes may come in. On a
// fault `fields` holds nothing of use.
ZORBY_EXPORT CommFormatFault ReadCommFormat(std::string_view bytes, CommFormatFields& fields);

// A damaged record, read by its terminators and delimiters. The views look into the bytes or into
// the contents held here.
struct CommFormatRescue {
    std::string leader;  // 24 bytes, the counts of 10-11 and 20-23 put right
    std::vector<CommFormatField> fields;
};

// Reads a damaged record where that can be done with certainty: the tags of the directory and the
// fields in the data are equal in number and agree in order, and no field is damaged in itself. A
// delimiter without a code is left out where it ends its field. Lengths, starts and base address
// need not be right. On a fault `rescue` holds nothing of use.
ZORBY_EXPORT CommFormatFault RescueCommFormat(std::string_view bytes, CommFormatRescue& rescue);

// Reads one record into a list of fields: the leader as tag 000, then the fields in the order of
// the directory. What `record` held is gone; on a fault it is empty.
ZORBY_EXPORT CommFormatFault ReadCommFormat(std::string_view bytes, CPmarc& record);

// Puts a record together in the communications format, field by field.
class ZORBY_EXPORT CommFormatWriter {
public:
    // Forgets all fields; the buffers stay.
    void Clear();
    // Makes room for fields of so many bytes in all.
    void Reserve(std::size_t fields, std::size_t bytes);

    // The leader as far as it is known, at most 24 bytes; the rest is filled with vertical bars.
    void SetLeader(std::string_view leader);

    // Adds a field: three bytes of tag, and its content without field end. False if the record has
    // no room for it; it is left out then. The directory says 9,999 for any longer field.
    bool AddField(std::string_view tag, std::string_view content);

    // The finished record. Empty if it has no field or no data. A record of over 99,999 bytes loses
    // data at its end, in tens of bytes; the result says how many.
    std::size_t Finish(std::string& record) const;

private:
    std::string leader_;
    std::string directory_;
    std::string data_;
};

}  // namespace zorby
