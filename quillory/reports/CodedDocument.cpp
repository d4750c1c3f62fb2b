#include <quillory/coded/Material.h>
#include <quillory/reports/CodedDocument.h>

#include <algorithm>

namespace quillory {
namespace {

CodedElementDocument ElementDocumentOf(const NamedElement& named, const CodeLists& lists) {
    const Element& element = *named.element;
    CodedElementDocument document;
    document.place = ElementPlaceText(element, named.in008);
    document.name = element.name;
    document.forms = {std::string(FormName(element.form))};
    document.parts.assign(element.parts.begin(), element.parts.end());
    if (IsFormOf006(element.form) && element.first > 0) {
        document.also = ElementPlaceText(element, !named.in008);
    }
    document.width = element.Width();
    document.codes = lists.CodesOf(element);
    if (!document.codes.empty()) document.codeLength = lists.CodeLengthOf(element);
    document.formerName = lists.FormerNameOf(element);
    return document;
}

bool IsSame(const CodedElementDocument& a, const CodedElementDocument& b) {
    return a.place == b.place && a.name == b.name && a.codes == b.codes;
}

template <class Item>
void Append(const std::vector<Item>& from, std::vector<Item>& to) {
    to.insert(to.end(), from.begin(), from.end());
}

}  // namespace

CodedElements DescribeElements(const std::vector<NamedElement>& elements, const CodeLists& lists) {
    CodedElements documents;
    for (const NamedElement& named : elements) {
        const CodedElementDocument document = ElementDocumentOf(named, lists);
        const auto same = std::ranges::find_if(
            documents, [&document](const auto& other) { return IsSame(other, document); });
        if (same == documents.end()) {
            documents.push_back(document);
        } else {
            Append(document.forms, same->forms);
            Append(document.parts, same->parts);
        }
    }
    for (CodedElementDocument& document : documents) {
        const std::size_t forms = document.forms.size();
        const bool isEverywhere = forms == FormsOf006().size() || forms == FormsOf007().size();
        if (isEverywhere) document.forms = {std::string(FormName(zorby::CFLdr))};
    }
    return documents;
}

void ToJson(const CodeMeaning& code, JsonWriter& json) {
    json.BeginObject();
    json.Member("code", CodeText(code.code));
    json.Member("text", code.text);
    json.Member("status", StatusText(code));
    json.MemberIfAny("since", code.since);
    json.MemberIfAny("until", code.until);
    json.MemberIfAny("use", code.use);
    json.EndObject();
}

void ToJson(const CodedElementDocument& element, JsonWriter& json) {
    json.BeginObject();
    json.Member("place", element.place);
    json.Member("name", element.name);
    json.Member("forms", element.forms);
    json.Member("parts", element.parts);
    json.MemberIfAny("also", element.also);
    json.Member("width", element.width);
    json.Member("codes", element.codes);
    if (!element.codes.empty()) json.Member("code_length", element.codeLength);
    json.MemberIfAny("former_name", element.formerName);
    json.EndObject();
}

}  // namespace quillory
