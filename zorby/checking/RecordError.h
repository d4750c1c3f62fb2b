#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/checking/ErrorCode.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace zorby {

// The most characters that an exported subfield, field or record may have.
inline constexpr int kLongestExportedSubfield = 9950;
inline constexpr int kLongestExportedField = 9950;
inline constexpr int kLongestExportedRecord = 99800;

// One finding about a record. It has no stored form: nothing of it goes to an archive or comes from
// one.
class ZORBY_EXPORT CRecordError : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // No finding: the code is 0, and there are no words for it.
    CRecordError() = default;
    CRecordError(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number,
                 char subfield);

    // `number` is the tag of the field, and `subfield` is 0 if the finding is about the whole
    // field. For EC_RecordTooLong, `number` is the limit that the long message names,
    // kLongestExportedRecord.
    void Create(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number,
                char subfield);

    E_ERROR_CODE GetCode() const;
    E_ERROR_CODE_SUB_TYPE GetSubType() const;
    std::int32_t GetNumber() const;
    char GetSubfield() const;
    bool IsError() const;

    // Appends the prefix and the message in English, always in ASCII except for the code of a
    // subfield. A long message has whole sentences, most of which end in CR LF; a short one has a
    // few words. For EC_NotMARC and EC_NotRepeatable nothing is appended if the profile ignores
    // them.
    void GetEnglishMessage(std::string& text, int isLong) const;
    // Does the same with a tag that may be any text, such as one with letters, in the place of
    // `number`. For EC_RecordTooLong, `number` is still the limit.
    void GetEnglishMessage(std::string& text, int isLong, std::string_view tag) const;

private:
    const char* SubTypeText(int isLong) const;
    std::string Message(int isLong, const std::string& tag) const;
    std::string SubfieldTooLongText(int isLong, const std::string& tag) const;
    static std::string FieldTooLongText(int isLong, const std::string& tag);
    std::string RecordTooLongText(int isLong) const;
    std::string DictionaryText(int isLong, const std::string& tag) const;

    E_ERROR_CODE code_ = static_cast<E_ERROR_CODE>(0);
    E_ERROR_CODE_SUB_TYPE subType_ = EST_Error;
    std::int32_t number_ = 0;
    char subfield_ = '\0';
};

}  // namespace zorby
