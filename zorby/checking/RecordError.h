#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/checking/ErrorCode.h>

#include <cstdint>
#include <string>

namespace zorby {

// The most characters that may leave in an exported record.
inline constexpr int kLongestExportedSubfield = 9950;
inline constexpr int kLongestExportedField = 9950;
inline constexpr int kLongestExportedRecord = 99800;

// One finding on a record. It has no stored form: an archive gets and gives nothing of it.
class ZORBY_EXPORT CRecordError : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // No finding: code 0, for which there are no words.
    CRecordError() = default;
    CRecordError(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number,
                 char subfield);

    // `number` is the tag of the field, `subfield` 0 if the finding is about the field. For
    // EC_RecordTooLong the number is what the long message calls the limit: kLongestExportedRecord.
    void Create(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number,
                char subfield);

    E_ERROR_CODE GetCode() const { return code_; }
    E_ERROR_CODE_SUB_TYPE GetSubType() const { return subType_; }
    std::int32_t GetNumber() const { return number_; }
    char GetSubfield() const { return subfield_; }
    bool IsError() const { return subType_ == EST_Error; }

    // Appends prefix and message in English, always ASCII but for the subfield's code. A long
    // message is sentences, mostly with CR LF at the end; a short one a few words. Nothing is
    // appended for EC_NotMARC and EC_NotRepeatable where the profile ignores them.
    void GetEnglishMessage(std::string& text, int isLong) const;

private:
    const char* SubTypeText(int isLong) const;
    std::string Message(int isLong) const;
    std::string SubfieldTooLongText(int isLong) const;
    std::string FieldTooLongText(int isLong) const;
    std::string RecordTooLongText(int isLong) const;
    std::string DictionaryText(int isLong) const;

    E_ERROR_CODE code_ = static_cast<E_ERROR_CODE>(0);
    E_ERROR_CODE_SUB_TYPE subType_ = EST_Error;
    std::int32_t number_ = 0;
    char subfield_ = '\0';
};

}  // namespace zorby
