#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/WorkformDocument.h>

namespace quillory {
namespace {

void AddCode(const CodeMeaning& code, JsonWriter& json) {
    json.BeginObject();
    json.Member("code", CodeText(code.code));
    json.Member("text", code.text);
    json.Member("status", code.state == CodeState::Unknown ? "unknown" : StatusText(code));
    json.EndObject();
}

}  // namespace

void ToJson(const DecodedElement& element, JsonWriter& json) {
    json.BeginObject();
    json.Member("place", element.place);
    json.Member("name", element.name);
    json.Member("value", CodeText(element.value));
    json.MemberIfAny("text", element.text);
    if (!element.codes.empty()) {
        json.Name("codes");
        json.BeginArray();
        for (const CodeMeaning& code : element.codes) AddCode(code, json);
        json.EndArray();
    }
    json.EndObject();
}

void ToJson(const WorkformControlField& field, JsonWriter& json) {
    json.BeginObject();
    json.Member("tag", field.decoded.tag);
    json.Member("content", CodeText(field.content));
    json.Member("elements", field.decoded.elements);
    json.EndObject();
}

void ToJson(const WorkformSubfield& subfield, JsonWriter& json) {
    json.BeginObject();
    json.Member("code", subfield.code);
    json.Member("name", subfield.name);
    json.Member("prompt", subfield.isPrompted);
    json.Member("priority", subfield.isPriority);
    json.MemberIfAny("rules", subfield.rules);
    json.MemberIfAny("reminders", subfield.reminders);
    json.MemberIfAny("examples", subfield.examples);
    json.MemberIfAny("data", subfield.data);
    json.EndObject();
}

void ToJson(const WorkformField& field, JsonWriter& json) {
    json.BeginObject();
    json.Member("tag", field.tag);
    json.Member("name", field.name);
    json.Member("priority", field.isPriority);
    json.Member("subfields", field.subfields);
    json.MemberIfAny("indicators", field.indicators);
    json.EndObject();
}

void ToJson(const WorkformIndicator& indicator, JsonWriter& json) {
    json.BeginObject();
    json.Member("tag", indicator.tag);
    json.Member("indicator", indicator.indicator);
    json.MemberIfAny("name", indicator.name);
    json.MemberIfAny("default", indicator.defaultValue);
    json.MemberIfAny("explanation", indicator.explanation);
    json.EndObject();
}

void ToJson(const WorkformDocument& workform, JsonWriter& json) {
    json.BeginObject();
    AddMembers(workform.row, json);
    json.Member("control_fields", workform.controlFields);
    json.Member("fields", workform.fields);
    json.Member("other_fields", workform.otherFields);
    json.Member("indicators", workform.indicators);
    json.Member("holdings", workform.holdings);
    json.EndObject();
}

}  // namespace quillory
