#include <quillory/coded/ElementNames.h>
#include <quillory/coded/Material.h>
#include <quillory/reports/CodedDocument.h>
#include <zorby/controlfields/MenuData.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

void AddYears(const CodeMeaning& code, Document& row) {
    if (!code.since.empty()) row["since"] = code.since;
    if (!code.until.empty()) row["until"] = code.until;
    if (!code.use.empty()) row["use"] = code.use;
}

Document CodesDocument(const std::vector<CodeMeaning>& codes) {
    Document document = Document::array();
    for (const CodeMeaning& code : codes) {
        Document row;
        row["code"] = CodeText(code.code);
        row["text"] = code.text;
        row["status"] = StatusText(code);
        AddYears(code, row);
        document.push_back(row);
    }
    return document;
}

Document ElementDocument(const NamedElement& named, const CodeLists& lists) {
    const Element& element = *named.element;
    Document document;
    document["place"] = ElementPlaceText(element, named.in008);
    document["name"] = element.name;
    document["forms"] = {FormName(element.form)};
    document["parts"] = element.parts;
    if (IsFormOf006(element.form) && element.first > 0) {
        document["also"] = ElementPlaceText(element, !named.in008);
    }
    document["width"] = element.Width();
    document["codes"] = CodesDocument(lists.CodesOf(element));
    if (!document["codes"].empty()) document["code_length"] = lists.CodeLengthOf(element);
    const std::string& former = lists.FormerNameOf(element);
    if (!former.empty()) document["former_name"] = former;
    return document;
}

bool IsSame(const Document& a, const Document& b) {
    return a.at("place") == b.at("place") && a.at("name") == b.at("name") &&
           a.at("codes") == b.at("codes");
}

void Append(const Document& from, Document& to) {
    for (const char* key : {"forms", "parts"}) {
        for (const Document& item : from.at(key)) to.at(key).push_back(item);
    }
}

// The rows of one element have the same beginning.
Document RowStart(const NamedElement& named) {
    Document row;
    row["field"] = ElementFieldText(*named.element, named.in008);
    row["form"] = FormName(named.element->form);
    row["positions"] = ElementPositionsText(*named.element, named.in008);
    return row;
}

void AddRow(Document row, CFPart part, std::string_view list, const std::string& secondCode,
            const CodeMeaning& code, Document& rows) {
    row["part"] = static_cast<int>(part);
    row["list"] = list;
    row["code"] = CodeText(code.code);
    row["second_code"] = secondCode;
    row["text"] = code.text;
    row["status"] = StatusText(code);
    row["since"] = code.since;
    row["until"] = code.until;
    row["use"] = code.use;
    rows.push_back(std::move(row));
}

std::vector<std::string> AddLibraryRows(const NamedElement& named, CFPart part,
                                        const CodeLists& lists, Document& rows) {
    std::vector<std::string> codes;
    const CCFMenuData menu(part);
    for (const ListedCode& listed : LibraryCodesOf(part)) {
        const std::string whole = listed.code + listed.secondCode;
        CodeMeaning code = lists.Find(*named.element, whole);
        code.code = listed.code;
        code.text = listed.text;
        AddRow(RowStart(named), part, menu.GetMenuTitle(), listed.secondCode, code, rows);
        codes.push_back(whole);
    }
    return codes;
}

void AddElementRows(const NamedElement& named, const CodeLists& lists, Document& rows) {
    const Element& element = *named.element;
    std::vector<std::string> done;
    for (const CFPart part : element.parts) {
        for (auto& code : AddLibraryRows(named, part, lists, rows)) done.push_back(std::move(code));
    }
    const CFPart first = element.IsUndefined() ? CFPUndefined : element.parts.front();
    const std::string& former = lists.FormerNameOf(element);
    for (const CodeMeaning& code : lists.CodesOf(element)) {
        if (std::find(done.begin(), done.end(), code.code) != done.end()) continue;
        AddRow(RowStart(named), first, former.empty() ? element.name : former, "", code, rows);
    }
}

std::vector<NamedElement> AllElements() {
    std::vector<NamedElement> all;
    for (const char* place : {"leader", "006/00", "008/00-39", "007/00-99"}) {
        for (const NamedElement& named : FindPlace(place).elements) all.push_back(named);
    }
    all.push_back({&CombinedFormOfItem(), true});
    return all;
}

}  // namespace

std::string StatusText(const CodeMeaning& code) {
    if (code.state == CodeState::Obsolete) return "obsolete";
    if (code.state == CodeState::Newer) return "newer";
    return code.published ? "current" : "local";
}

std::string CodeText(std::string_view code) {
    std::string text(code);
    std::replace(text.begin(), text.end(), ' ', '#');
    return text;
}

Document DescribeElements(const std::vector<NamedElement>& elements, const CodeLists& lists) {
    Document documents = Document::array();
    for (const NamedElement& named : elements) {
        const Document document = ElementDocument(named, lists);
        const auto same =
            std::find_if(documents.begin(), documents.end(),
                         [&document](const Document& other) { return IsSame(other, document); });
        if (same == documents.end()) {
            documents.push_back(document);
        } else {
            Append(document, *same);
        }
    }
    for (Document& document : documents) {
        const std::size_t forms = document["forms"].size();
        const bool isEverywhere = forms == FormsOf006().size() || forms == FormsOf007().size();
        if (isEverywhere) document["forms"] = {FormName(CFLdr)};
    }
    return documents;
}

Document ListCodes(const std::vector<NamedElement>& elements, const CodeLists& lists) {
    Document rows = Document::array();
    for (const NamedElement& named : elements.empty() ? AllElements() : elements) {
        AddElementRows(named, lists, rows);
    }
    return rows;
}

}  // namespace quillory
