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

}  // namespace zorby
