#include <quillory/places/Tag.h>
#include <quillory/reports/DictionaryNames.h>
#include <quillory/reports/FieldDocument.h>
#include <quillory/reports/FieldGuide.h>
#include <quillory/text/QmText.h>
#include <zorby/format/MARCFormat.h>

#include <utility>

namespace quillory {

using zorby::CMARCFormat;
using zorby::EDISPLAYOPTIONS;

std::optional<IndicatorDocument> DescribeIndicator(unsigned tag, int which,
                                                   EDISPLAYOPTIONS display) {
    const auto* value = CMARCFormat::GetIndicatorValueMatchFirst(tag, which);
    if (value == nullptr) return std::nullopt;
    std::string name;
    std::string explanation;
    CMARCFormat::GetIndicatorNameFor(tag, which, display, name);
    CMARCFormat::GetIndicatorExplanationFor(tag, which, explanation);
    IndicatorDocument document{TagText(tag), which, QmToUtf8(name), QmToUtf8(explanation), {}};
    const char defaultValue = CMARCFormat::DefaultIndicator(tag, which);
    for (; value != nullptr; value = CMARCFormat::GetIndicatorValueMatchNext(tag, which)) {
        document.values.push_back({IndicatorText(value->GetValue()), QmToUtf8(value->GetName()),
                                   value->GetValue() == defaultValue});
    }
    return document;
}

std::optional<SubfieldDocument> DescribeSubfield(unsigned tag, char code, EDISPLAYOPTIONS display) {
    const zorby::CInfoAboutSubfield* subfield = CMARCFormat::FindSubfield(tag, code);
    if (subfield == nullptr) return std::nullopt;
    return SubfieldDocument{.tag = TagText(tag),
                            .code = std::string(1, code),
                            .name = SubfieldName(tag, code, display),
                            .repeatable = subfield->Repeatable() != 0,
                            .mandatory = subfield->Mandatory() != 0,
                            .prompted = subfield->Prompt() != 0,
                            .priority = subfield->Priority() != 0,
                            .userDefined = subfield->IsUserDefined() != 0};
}

std::optional<FieldDocument> DescribeField(unsigned tag, EDISPLAYOPTIONS display,
                                           bool withSubfields) {
    // A holdings system may have fields for which the dictionary has no record.
    const zorby::CInfoAboutField* field = CMARCFormat::FindField(tag);
    std::string codes;
    CMARCFormat::AllSubfieldCodes(tag, codes);
    if (field == nullptr && codes.empty()) return std::nullopt;
    FieldDocument document{.tag = TagText(tag),
                           .name = FieldName(tag, display),
                           .explanation = std::string(FieldGuide(tag)),
                           .repeatable = field == nullptr || field->Repeatable() != 0,
                           .mandatory = field != nullptr && field->Mandatory() != 0,
                           .userDefined = field != nullptr && field->IsUserDefined() != 0,
                           .codes = codes,
                           .indicators = {},
                           .subfields = {}};
    for (const int which : {1, 2}) {
        auto indicator = DescribeIndicator(tag, which, display);
        if (indicator) document.indicators.push_back(*std::move(indicator));
    }
    if (!withSubfields) return document;
    document.subfields.emplace();
    for (const char code : codes) {
        auto subfield = DescribeSubfield(tag, code, display);
        if (subfield) document.subfields->push_back(*std::move(subfield));
    }
    return document;
}

void ToJson(const IndicatorValueDocument& value, JsonWriter& json) {
    json.BeginObject();
    json.Member("value", value.value);
    json.Member("name", value.name);
    json.Member("default", value.isDefault);
    json.EndObject();
}

void ToJson(const IndicatorDocument& indicator, JsonWriter& json) {
    json.BeginObject();
    json.Member("tag", indicator.tag);
    json.Member("indicator", indicator.indicator);
    json.Member("name", indicator.name);
    json.MemberIfAny("explanation", indicator.explanation);
    json.Member("values", indicator.values);
    json.EndObject();
}

void ToJson(const SubfieldDocument& subfield, JsonWriter& json) {
    json.BeginObject();
    json.Member("tag", subfield.tag);
    json.Member("code", subfield.code);
    json.Member("name", subfield.name);
    json.Member("repeatable", subfield.repeatable);
    json.Member("mandatory", subfield.mandatory);
    json.Member("prompted", subfield.prompted);
    json.Member("priority", subfield.priority);
    json.Member("user_defined", subfield.userDefined);
    json.EndObject();
}

void ToJson(const FieldDocument& field, JsonWriter& json) {
    json.BeginObject();
    json.Member("tag", field.tag);
    json.Member("name", field.name);
    json.MemberIfAny("explanation", field.explanation);
    json.Member("repeatable", field.repeatable);
    json.Member("mandatory", field.mandatory);
    json.Member("user_defined", field.userDefined);
    json.Member("codes", field.codes);
    json.Member("indicators", field.indicators);
    json.MemberIfAny("subfields", field.subfields);
    json.EndObject();
}

}  // namespace quillory
