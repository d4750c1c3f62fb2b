#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/places/Tag.h>
#include <quillory/reports/Dictionary.h>
#include <quillory/text/QmText.h>
#include <zorby/charset/Compare.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <algorithm>
#include <sstream>
#include <vector>

namespace quillory {
namespace {

using zorby::CMARCFormat;
using zorby::EDISPLAYOPTIONS;

std::string Indicator(char value) {
    return std::string(1, value == '_' ? '#' : value);
}

std::string FieldNameOf(unsigned tag, EDISPLAYOPTIONS display) {
    std::string name;
    CMARCFormat::FieldName(tag, display, name);
    return QmToUtf8(name);
}

std::string SubfieldNameOf(unsigned tag, char code, EDISPLAYOPTIONS display) {
    std::string name;
    CMARCFormat::SubfieldName(tag, code, display, name);
    return QmToUtf8(name);
}

Document ValueDocument(const zorby::CInfoAboutIndicatorValue& value, char defaultValue) {
    Document document;
    document["value"] = Indicator(value.GetValue());
    document["name"] = QmToUtf8(value.GetName());
    document["default"] = value.GetValue() == defaultValue;
    return document;
}

std::vector<std::string> Words(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        std::string qm;
        zorby::CSMakeLower(Utf8ToQm(word, qm) ? qm : qm = word);
        words.push_back(qm);
    }
    return words;
}

bool HasWords(std::string name, const std::vector<std::string>& words) {
    zorby::CSMakeLower(name);
    return std::all_of(words.begin(), words.end(),
                       [&name](const std::string& word) { return name.find(word) != name.npos; });
}

Document Hit(const std::string& place, const std::string& name) {
    Document hit;
    hit["place"] = place;
    hit["name"] = name;
    return hit;
}

std::string SubfieldPlace(const zorby::CInfoAboutHoldingsField& element) {
    const auto code = static_cast<unsigned char>(element.GetSubfield());
    if (code >= ' ') return "$" + std::string(1, static_cast<char>(code));
    return "part " + std::to_string(code);
}

Document ElementDocument(const zorby::CInfoAboutHoldingsField& element) {
    Document document;
    document["id"] = static_cast<int>(element.GetHoldingsID());
    document["name"] = QmToUtf8(element.GetName());
    document["tag"] = TagText(element.GetTag());
    document["subfield"] = SubfieldPlace(element);
    if (element.GetRepeatDelimiter() != 0) {
        document["repeat_delimiter"] = std::string(1, element.GetRepeatDelimiter());
    }
    document["once_per_record"] = element.OnePerRecord() != 0;
    document["help"] = QmToUtf8(element.GetHelpText());
    return document;
}

Document TypeDocument(const zorby::CInfoAboutHoldingsType& type) {
    Document document;
    document["type"] = static_cast<int>(type.GetHoldingsTypeID());
    document["name"] = QmToUtf8(type.GetName());
    document["former_names"] = Document::array();
    for (std::size_t i = 1; i < type.GetNames().size(); ++i) {
        document["former_names"].push_back(QmToUtf8(type.GetNames()[i]));
    }
    document["tags"] = type.GetCurrentHoldingsFields();
    document["in_force"] = zorby::CHoldingsSelector::GetCurrentHoldingsType() == &type;
    return document;
}

}  // namespace

Document DescribeIndicator(unsigned tag, int which, EDISPLAYOPTIONS display) {
    if (CMARCFormat::GetIndicatorValueMatchFirst(tag, which) == nullptr) return nullptr;
    Document document;
    std::string text;
    CMARCFormat::GetIndicatorNameFor(tag, which, display, text);
    document["tag"] = TagText(tag);
    document["indicator"] = which;
    document["name"] = QmToUtf8(text);
    text.clear();
    CMARCFormat::GetIndicatorExplanationFor(tag, which, text);
    if (!text.empty()) document["explanation"] = QmToUtf8(text);
    const char defaultValue = CMARCFormat::DefaultIndicator(tag, which);
    document["values"] = Document::array();
    for (const auto* value = CMARCFormat::GetIndicatorValueMatchFirst(tag, which); value != nullptr;
         value = CMARCFormat::GetIndicatorValueMatchNext(tag, which)) {
        document["values"].push_back(ValueDocument(*value, defaultValue));
    }
    return document;
}

Document DescribeSubfield(unsigned tag, char code, EDISPLAYOPTIONS display) {
    const zorby::CInfoAboutSubfield* subfield = CMARCFormat::FindSubfield(tag, code);
    if (subfield == nullptr) return nullptr;
    Document document;
    document["tag"] = TagText(tag);
    document["code"] = std::string(1, code);
    document["name"] = SubfieldNameOf(tag, code, display);
    document["repeatable"] = subfield->Repeatable() != 0;
    document["mandatory"] = subfield->Mandatory() != 0;
    document["prompted"] = subfield->Prompt() != 0;
    document["priority"] = subfield->Priority() != 0;
    document["user_defined"] = subfield->IsUserDefined() != 0;
    return document;
}

Document DescribeField(unsigned tag, EDISPLAYOPTIONS display, bool withSubfields) {
    // A holdings system may have fields for which the dictionary has no record.
    const zorby::CInfoAboutField* field = CMARCFormat::FindField(tag);
    std::string codes;
    CMARCFormat::AllSubfieldCodes(tag, codes);
    if (field == nullptr && codes.empty()) return nullptr;
    Document document;
    document["tag"] = TagText(tag);
    document["name"] = FieldNameOf(tag, display);
    document["repeatable"] = field == nullptr || field->Repeatable() != 0;
    document["mandatory"] = field != nullptr && field->Mandatory() != 0;
    document["user_defined"] = field != nullptr && field->IsUserDefined() != 0;
    document["codes"] = codes;
    document["indicators"] = Document::array();
    for (const int which : {1, 2}) {
        const Document indicator = DescribeIndicator(tag, which, display);
        if (!indicator.is_null()) document["indicators"].push_back(indicator);
    }
    if (!withSubfields) return document;
    document["subfields"] = Document::array();
    for (const char code : codes) {
        const Document subfield = DescribeSubfield(tag, code, display);
        if (!subfield.is_null()) document["subfields"].push_back(subfield);
    }
    return document;
}

Document SearchDictionary(const std::string& text, EDISPLAYOPTIONS display) {
    Document hits = Document::array();
    const zorby::CMARCFormat* format = CMARCFormat::TheOneAndOnly();
    const std::vector<std::string> words = Words(text);
    if (format == nullptr || words.empty()) return hits;
    for (int i = 0; i < format->GetFields().GetSize(); ++i) {
        const auto& field = *format->GetFields().GetAt(i);
        if (!HasWords(field.GetName(), words)) continue;
        hits.push_back(Hit(TagText(field.GetTag()), FieldNameOf(field.GetTag(), display)));
    }
    for (int i = 0; i < format->GetSubfields().GetSize(); ++i) {
        const auto& subfield = *format->GetSubfields().GetAt(i);
        if (!HasWords(subfield.GetName(), words)) continue;
        const std::string name = SubfieldNameOf(subfield.GetTag(), subfield.GetCode(), display);
        hits.push_back(Hit(TagText(subfield.GetTag()) + subfield.GetCode(),
                           name + " - " + FieldNameOf(subfield.GetTag(), zorby::EDO_NameOnly)));
    }
    for (int i = 0; i < format->GetIndicatorValues().GetSize(); ++i) {
        const auto& value = *format->GetIndicatorValues().GetAt(i);
        if (!HasWords(value.GetName(), words)) continue;
        hits.push_back(Hit(TagText(value.GetTag()) + "/" + std::to_string(value.GetWhich()),
                           Indicator(value.GetValue()) + " " + QmToUtf8(value.GetName()) + " - " +
                               FieldNameOf(value.GetTag(), zorby::EDO_NameOnly)));
    }
    return hits;
}

Document DescribeHoldingsTypes() {
    Document types = Document::array();
    for (const auto* type = zorby::CInfoAboutHoldingsTypeList::GetFirst(); type != nullptr;
         type = zorby::CInfoAboutHoldingsTypeList::GetNext()) {
        types.push_back(TypeDocument(*type));
    }
    return types;
}

Document DescribeHoldingsType(const std::string& name) {
    const zorby::CInfoAboutHoldingsType* type = FindHoldingsType(name);
    if (type == nullptr) return nullptr;
    Document document = TypeDocument(*type);
    document["elements"] = Document::array();
    for (int i = 0; i < type->GetSize(); ++i) {
        document["elements"].push_back(ElementDocument(*type->GetAt(i)));
    }
    return document;
}

}  // namespace quillory
