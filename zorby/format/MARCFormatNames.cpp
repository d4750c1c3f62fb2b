#include <zorby/format/MARCFormat.h>
#include <zorby/format/detail/DisplayText.h>
#include <zorby/format/detail/LocalFields.h>
#include <zorby/text/detail/TagText.h>

namespace zorby {
namespace {

constexpr unsigned kFirstTagWithSubfields = 10;

std::string NameOfUnknownField(unsigned tag) {
    const HoldingsLocalField* field = FindLocalField(tag);
    return field ? field->name : "User defined " + TagText(tag);
}

std::string NameOfUnknownSubfield(unsigned tag, char code) {
    const HoldingsLocalField* field = FindLocalField(tag);
    return field && field->code == code ? field->name : std::string("User defined $") + code;
}

}  // namespace

void CMARCFormat::FieldName(unsigned tag, EDISPLAYOPTIONS option, std::string& text) {
    const CInfoAboutField* field = FindField(tag);
    if (field) return DisplayText(option, field->GetName(), TagText(tag), text);
    DisplayText(option, NameOfUnknownField(tag), TagText(tag), text);
}

void CMARCFormat::SubfieldName(unsigned tag, char code, EDISPLAYOPTIONS option, std::string& text) {
    if (tag < kFirstTagWithSubfields) return FieldName(tag, EDO_NameOnly, text);
    const char shownCode[] = {'$', code};
    const std::string_view codeText(shownCode, sizeof shownCode);
    const CInfoAboutSubfield* subfield = FindSubfield(tag, code);
    if (subfield) return DisplayText(option, subfield->GetName(), codeText, text);
    DisplayText(option, NameOfUnknownSubfield(tag, code), codeText, text);
}

std::string CMARCFormat::IndicatorValue(unsigned tag, int which, char value,
                                        EDISPLAYOPTIONS option) {
    const CInfoAboutIndicatorValue* known = GetIndicatorValueMatchFirst(tag, which);
    while (known && known->GetValue() != value) known = GetIndicatorValueMatchNext(tag, which);
    const std::string valueText(1, value);
    if (!known) return "Unknown indicator value (" + valueText + ")";
    std::string text;
    DisplayText(option, known->GetName(), valueText, text);
    return text;
}

}  // namespace zorby
