#include <zorby/checking/RecordError.h>
#include <zorby/checking/detail/ErrorMessages.h>
#include <zorby/settings/Profile.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

namespace zorby {

const CRuntimeClass CRecordError::kRuntimeClass = RuntimeClassOf<CRecordError>("CRecordError");

namespace {

constexpr int kIgnore = 2;

template <class... Arguments>
std::string Printed(const char* format, Arguments... arguments) {
    std::array<char, 256> text{};
    const int size = std::snprintf(text.data(), text.size(), format, arguments...);
    return {text.data(), static_cast<std::size_t>(std::max(size, 0))};
}

std::string FixedText(E_ERROR_CODE code, int isLong) {
    const auto* row = std::find_if(std::begin(kErrorMessages), std::end(kErrorMessages),
                                   [code](const auto& m) { return m.code == code; });
    if (row == std::end(kErrorMessages)) row = &kUnknownErrorMessage;
    return isLong != 0 ? row->longText : row->shortText;
}

}  // namespace

CRecordError::CRecordError(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number,
                           char subfield) {
    Create(code, subType, number, subfield);
}

void CRecordError::Create(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number,
                          char subfield) {
    code_ = code;
    subType_ = subType;
    number_ = number;
    subfield_ = subfield;
}

void CRecordError::GetEnglishMessage(std::string& text, int isLong) const {
    GetEnglishMessage(text, isLong, Printed("%03d", number_));
}

void CRecordError::GetEnglishMessage(std::string& text, int isLong, std::string_view tag) const {
    const std::string message = Message(isLong, std::string(tag));
    if (!message.empty()) text.append(SubTypeText(isLong)).append(message);
}

const char* CRecordError::SubTypeText(int isLong) const {
    switch (subType_) {
        case EST_Error:
            return isLong != 0 ? "Export error:\t" : "E: ";
        case EST_Warning:
            return isLong != 0 ? "Warning:\t" : "W: ";
        default:
            return "";
    }
}

std::string CRecordError::Message(int isLong, const std::string& tag) const {
    switch (code_) {
        case EC_SubfieldTooLong:
            return SubfieldTooLongText(isLong, tag);
        case EC_FieldTooLong:
            return FieldTooLongText(isLong, tag);
        case EC_RecordTooLong:
            return RecordTooLongText(isLong);
        case EC_NotMARC:
        case EC_NotRepeatable:
            return DictionaryText(isLong, tag);
        default:
            return FixedText(code_, isLong);
    }
}

std::string CRecordError::SubfieldTooLongText(int isLong, const std::string& tag) const {
    if (isLong == 0) return Printed("field %s $%c is too long", tag.c_str(), subfield_);
    return Printed(
        "Field %s  subfield $%c is too long.  Subfields can only be %d characters long.  You "
        "must remove some text from the subfield before the record can be exported.\r\n",
        tag.c_str(), subfield_, kLongestExportedSubfield);
}

std::string CRecordError::FieldTooLongText(int isLong, const std::string& tag) {
    if (isLong == 0) return tag + " is too long";
    return Printed(
        "Field %s is too long.  Fields can only be %d characters long.  You must remove some "
        "text from the field before the record can be exported.\r\n",
        tag.c_str(), kLongestExportedField);
}

std::string CRecordError::RecordTooLongText(int isLong) const {
    if (isLong == 0) return "record is too long";
    return Printed(
        "This record is too long.  Records can only be %d characters long.  You must remove some "
        "text from the record before it can be exported.\r\n",
        number_);
}

std::string CRecordError::DictionaryText(int isLong, const std::string& tag) const {
    const bool isNotMARC = code_ == EC_NotMARC;
    if (GetZorbyProfileInt(isNotMARC ? ZP_RC_NonMARCFieldsOrSubfields
                                     : ZP_RC_TooManyNonRepeatables) == kIgnore) {
        return {};
    }
    const std::string kind = subfield_ != '\0' ? "subfield" : "field";
    std::string text = subfield_ != '\0' ? tag + " $" + subfield_ : tag;
    if (isLong != 0) text = (subfield_ != '\0' ? "Subfield " : "Field ") + text;
    text += (isNotMARC ? " is not a MARC " : " is not a repeatable MARC ") + kind;
    if (isLong == 0) return text;
    return text +
           (isNotMARC
                ? ".  Check this " + kind + " to see if it should be changed to a different " + kind
                : ".  Remove the extra " + kind) +
           ".\r\n";
}

E_ERROR_CODE CRecordError::GetCode() const {
    return code_;
}

E_ERROR_CODE_SUB_TYPE CRecordError::GetSubType() const {
    return subType_;
}

std::int32_t CRecordError::GetNumber() const {
    return number_;
}

char CRecordError::GetSubfield() const {
    return subfield_;
}

bool CRecordError::IsError() const {
    return subType_ == EST_Error;
}

}  // namespace zorby
