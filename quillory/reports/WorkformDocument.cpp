#include <quillory/places/Tag.h>
#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/WorkformDocument.h>
#include <quillory/text/QmText.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <map>

namespace quillory {
namespace {

using zorby::CTemplate;

std::string Character(char c) {
    return QmToUtf8({&c, 1});
}

std::string Indicator(char value) {
    return value == '_' || value == '\0' ? "#" : Character(value);
}

std::string FieldName(unsigned tag) {
    std::string name;
    zorby::CMARCFormat::FieldName(tag, zorby::EDO_NameOnly, name);
    return QmToUtf8(name);
}

std::string SubfieldName(unsigned tag, char code) {
    std::string name;
    zorby::CMARCFormat::SubfieldName(tag, code, zorby::EDO_NameOnly, name);
    return QmToUtf8(name);
}

std::string MaterialName(const CTemplate& workform) {
    std::string name;
    zorby::CTemplateList::GetMaterialTypeName(workform.GetMaterialType(), name);
    return QmToUtf8(name);
}

void AddText(const char* key, const std::string& text, Document& document) {
    if (!text.empty()) document[key] = QmLinesToUtf8(text);
}

Document SubfieldDocument(const CTemplate& workform, unsigned tag, char code) {
    Document document;
    document["code"] = Character(code);
    document["name"] = SubfieldName(tag, code);
    std::string text;
    workform.SubfieldPrompt(tag, text);
    document["prompt"] = text.find(code) != text.npos;
    document["priority"] = workform.SubfieldPriority(tag, code) > 0;
    workform.SubfieldRules(tag, code, text);
    AddText("rules", text, document);
    workform.SubfieldReminders(tag, code, text);
    AddText("reminders", text, document);
    workform.SubfieldExamples(tag, code, text);
    AddText("examples", text, document);
    return document;
}

Document FieldDocument(const CTemplate& workform, unsigned tag) {
    Document document;
    document["tag"] = TagText(tag);
    document["name"] = FieldName(tag);
    document["priority"] = workform.FieldPriority(tag) > 0;
    document["subfields"] = Document::array();
    return document;
}

Document FieldsDocument(const CTemplate& workform) {
    Document fields = Document::array();
    unsigned tag = 0;
    for (int i = 0; const auto* data = workform.GetDefaultDataAt(i); ++i) {
        if (data->GetTag() != 0 || fields.empty()) {
            tag = data->GetTag();
            fields.push_back(FieldDocument(workform, tag));
            fields.back()["indicators"] =
                Indicator(data->GetIndicator(1)) + Indicator(data->GetIndicator(2));
        }
        Document subfield = SubfieldDocument(workform, tag, data->GetSubCode());
        subfield["data"] = QmLinesToUtf8(data->GetDefaultData());
        fields.back()["subfields"].push_back(subfield);
    }
    return fields;
}

using Codes = std::map<unsigned, std::string>;  // of a tag, each once

void Note(unsigned tag, std::string_view codes, Codes& noted) {
    std::string& known = noted[tag];
    for (const char code : codes) {
        if (known.find(code) == known.npos) known += code;
    }
}

template <class List>
void NoteHelp(const List& list, Codes& noted) {
    for (int i = 0; i < list.GetSize(); ++i) {
        const char code = list.GetAt(i)->GetCode();
        Note(list.GetAt(i)->GetTag(), {&code, 1}, noted);
    }
}

template <class List>
void NoteCodes(const List& list, Codes& noted) {
    for (int i = 0; i < list.GetSize(); ++i) {
        Note(list.GetAt(i)->GetTag(), list.GetAt(i)->GetCodes(), noted);
    }
}

// The places for which the workform has something of its own, and no default data.
Codes OtherPlaces(const CTemplate& workform) {
    Codes noted;
    NoteHelp(workform.GetRules(), noted);
    NoteHelp(workform.GetReminders(), noted);
    NoteHelp(workform.GetExamples(), noted);
    NoteCodes(workform.GetPrompts(), noted);
    NoteCodes(workform.GetSubfieldPriorities(), noted);
    for (int i = 0; i < workform.GetFieldPriorities().GetSize(); ++i) {
        Note(workform.GetFieldPriorities().GetAt(i)->GetTag(), "", noted);
    }
    for (auto& [tag, codes] : noted) {
        std::erase_if(codes, [&workform, tag = tag](char code) {
            return workform.DefaultDataIncludes(tag, code) != 0;
        });
    }
    std::erase_if(noted, [&workform](const auto& place) {
        const zorby::CInfoAboutDefaultDataList& data = workform.GetDefaultData();
        bool isField = false;
        for (int i = 0; i < data.GetSize(); ++i) {
            isField = isField || data.GetAt(i)->GetTag() == place.first;
        }
        return place.second.empty() && isField;
    });
    return noted;
}

Document OtherFieldsDocument(const CTemplate& workform) {
    Document fields = Document::array();
    for (const auto& [tag, codes] : OtherPlaces(workform)) {
        Document field = FieldDocument(workform, tag);
        for (const char code : codes) {
            field["subfields"].push_back(SubfieldDocument(workform, tag, code));
        }
        fields.push_back(field);
    }
    return fields;
}

using Places = std::map<std::pair<unsigned, int>, Document>;  // by tag and indicator

Places IndicatorPlaces(const CTemplate& workform) {
    Places places;
    const auto& names = workform.GetIndicatorNames();
    for (int i = 0; i < names.GetSize(); ++i) {
        Document& place = places[{names.GetAt(i)->GetTag(), names.GetAt(i)->GetWhich()}];
        AddText("name", names.GetAt(i)->GetName(), place);
    }
    const auto& defaults = workform.GetIndicatorDefaults();
    for (int i = 0; i < defaults.GetSize(); ++i) {
        for (const int which : {1, 2}) {
            const char value = defaults.GetAt(i)->GetIndicator(which);
            if (value == '\0') continue;
            places[{defaults.GetAt(i)->GetTag(), which}]["default"] = Indicator(value);
        }
    }
    const auto& texts = workform.GetIndicatorExplanations();
    for (int i = 0; i < texts.GetSize(); ++i) {
        Document& place = places[{texts.GetAt(i)->GetTag(), texts.GetAt(i)->GetWhich()}];
        AddText("explanation", texts.GetAt(i)->GetExplanation(), place);
    }
    return places;
}

Document IndicatorsDocument(const CTemplate& workform) {
    Document indicators = Document::array();
    for (const auto& [place, texts] : IndicatorPlaces(workform)) {
        Document indicator;
        indicator["tag"] = TagText(place.first);
        indicator["indicator"] = place.second;
        if (!texts.is_null()) indicator.update(texts);
        indicators.push_back(indicator);
    }
    return indicators;
}

Document ElementDocument(const DecodedElement& element) {
    Document document;
    document["place"] = PlaceText(element.place);
    document["name"] = element.name;
    document["value"] = CodeText(element.value);
    if (!element.text.empty()) document["text"] = element.text;
    if (element.codes.empty()) return document;
    document["codes"] = Document::array();
    for (const CodeMeaning& code : element.codes) {
        const bool isKnown = code.state != CodeState::Unknown;
        Document row;
        row["code"] = CodeText(code.code);
        row["text"] = code.text;
        row["status"] = isKnown ? StatusText(code) : "unknown";
        document["codes"].push_back(row);
    }
    return document;
}

Document ControlFieldsDocument(const CTemplate& workform, const Decoder& decoder) {
    Document fields = Document::array();
    for (const auto& [content, decoded] : ControlFieldsOf(workform, decoder)) {
        Document field;
        field["tag"] = PlaceText(decoded.place);
        field["content"] = CodeText(content);
        field["elements"] = Document::array();
        for (const DecodedElement& element : decoded.elements) {
            field["elements"].push_back(ElementDocument(element));
        }
        fields.push_back(field);
    }
    return fields;
}

// What stands there in a workform is replaced in every record.
void ExplainDate(DecodedField& field008) {
    for (DecodedElement& element : field008.elements) {
        if (element.place.first != 0) continue;
        element.state = ElementState::Free;
        element.text = "the day on which the record is made";
    }
}

bool IsBlank(std::string_view content) {
    return content.find_first_not_of(' ') == content.npos;
}

}  // namespace

Document WorkformRow(const WorkformEntry& entry, const CTemplate& workform) {
    Document row;
    row["id"] = entry.id;
    row["name"] = entry.text;
    row["standard"] = !entry.IsUsers();
    row["material"] = MaterialName(workform);
    row["material_type"] = static_cast<int>(workform.GetMaterialType());
    const std::string& base = workform.GetBaseTemplateName();
    if (base == workform.GetName()) return row;
    row["base"] = QmToUtf8(base);
    if (!IsStandardName(base)) row["base_is_missing"] = true;
    return row;
}

std::vector<CodedContent> ControlFieldsOf(const CTemplate& workform, const Decoder& decoder) {
    std::string leader, field006, field007, field008;
    workform.GetMainMaterial().GetAll(leader, field007, field008, field006);
    std::vector<CodedContent> fields;
    const auto add006And007 = [&] {
        if (!IsBlank(field006)) fields.push_back({field006, decoder.Field006(field006)});
        if (!IsBlank(field007)) fields.push_back({field007, decoder.Field007(field007)});
    };
    fields.push_back({leader, decoder.Leader(leader)});
    add006And007();
    if (!IsBlank(field008)) {
        fields.push_back({field008, decoder.Field008(field008, leader)});
        ExplainDate(fields.back().decoded);
    }
    for (int i = 0; i < workform.GetAMList().GetSize(); ++i) {
        workform.GetAMList().GetAt(i)->GetAll(field006, field007);
        add006And007();
    }
    return fields;
}

Document DescribeWorkform(const WorkformEntry& entry, const CTemplate& workform,
                          const Decoder& decoder) {
    Document document = WorkformRow(entry, workform);
    document["control_fields"] = ControlFieldsDocument(workform, decoder);
    document["fields"] = FieldsDocument(workform);
    document["other_fields"] = OtherFieldsDocument(workform);
    document["indicators"] = IndicatorsDocument(workform);
    document["holdings"] = workform.GetHoldingsDataRecordList().GetSize();
    return document;
}

}  // namespace quillory
