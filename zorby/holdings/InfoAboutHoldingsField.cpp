#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/holdings/InfoAboutHoldingsField.h>

namespace zorby {

const CRuntimeClass CInfoAboutHoldingsField::kRuntimeClass =
    RuntimeClassOf<CInfoAboutHoldingsField>("CInfoAboutHoldingsField");

void CInfoAboutHoldingsField::Serialize(CArchive& archive) {
    char subfield = static_cast<char>(subfield_);
    SerializeItems(archive, name_, tag_, subfield, repeatDelimiter_, onePerRecord_, extraValue_,
                   holdingsID_, helpText_);
    subfield_ = static_cast<std::int8_t>(subfield);
}

void CInfoAboutHoldingsField::Create(std::string_view name, unsigned tag, std::int8_t subfield,
                                     char repeatDelimiter, EHOLDINGSID id, int onePerRecord,
                                     std::string_view helpText) {
    name_ = name;
    tag_ = tag;
    subfield_ = subfield;
    repeatDelimiter_ = repeatDelimiter;
    holdingsID_ = id;
    onePerRecord_ = onePerRecord;
    helpText_ = helpText;
}

void CInfoAboutHoldingsField::SetExtraValue(std::int32_t extraValue) {
    extraValue_ = extraValue;
}

const std::string& CInfoAboutHoldingsField::GetName() const {
    return name_;
}

unsigned CInfoAboutHoldingsField::GetTag() const {
    return tag_;
}

std::int8_t CInfoAboutHoldingsField::GetSubfield() const {
    return subfield_;
}

char CInfoAboutHoldingsField::GetRepeatDelimiter() const {
    return repeatDelimiter_;
}

EHOLDINGSID CInfoAboutHoldingsField::GetHoldingsID() const {
    return holdingsID_;
}

int CInfoAboutHoldingsField::OnePerRecord() const {
    return onePerRecord_;
}

std::int32_t CInfoAboutHoldingsField::GetExtraValue() const {
    return extraValue_;
}

const std::string& CInfoAboutHoldingsField::GetHelpText() const {
    return helpText_;
}

}  // namespace zorby
