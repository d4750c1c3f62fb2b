#include <quillory/coded/Material.h>
#include <quillory/reports/CodeRows.h>
#include <quillory/reports/CodedDocument.h>
#include <zorby/controlfields/MenuData.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

using namespace zorby;

// Gives each value with its name, in order.
template <class Take>
void ForEachColumn(const CodeRow& row, Take&& take) {
    take("field", row.field);
    take("form", row.form);
    take("positions", row.positions);
    take("part", row.part);
    take("list", row.list);
    take("code", row.code);
    take("second_code", row.secondCode);
    take("text", row.text);
    take("status", row.status);
    take("since", row.since);
    take("until", row.until);
    take("use", row.use);
}

// The rows of one element have the same beginning.
CodeRow RowStart(const NamedElement& named) {
    CodeRow row;
    row.field = ElementFieldText(*named.element, named.in008);
    row.form = FormName(named.element->form);
    row.positions = ElementPositionsText(*named.element, named.in008);
    return row;
}

void AddRow(CodeRow row, CFPart part, std::string_view list, std::string_view secondCode,
            const CodeMeaning& code, CodeRows& rows) {
    row.part = static_cast<int>(part);
    row.list = list;
    row.code = CodeText(code.code);
    row.secondCode = secondCode;
    row.text = code.text;
    row.status = StatusText(code);
    row.since = code.since;
    row.until = code.until;
    row.use = code.use;
    rows.push_back(std::move(row));
}

std::vector<std::string> AddLibraryRows(const NamedElement& named, CFPart part,
                                        const CodeLists& lists, CodeRows& rows) {
    std::vector<std::string> codes;
    const CCFMenuData menu(part);
    for (const ListedCode& listed : LibraryCodesOf(part)) {
        const std::string whole = listed.Whole();
        CodeMeaning code = lists.Find(*named.element, whole);
        code.code = listed.code;
        code.text = listed.text;
        AddRow(RowStart(named), part, menu.GetMenuTitle(), listed.secondCode, code, rows);
        codes.push_back(whole);
    }
    return codes;
}

void AddElementRows(const NamedElement& named, const CodeLists& lists, CodeRows& rows) {
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

const std::string& Text(const std::string& text) {
    return text;
}

std::string Text(int number) {
    return std::to_string(number);
}

}  // namespace

CodeRows ListCodes(const std::vector<NamedElement>& elements, const CodeLists& lists) {
    CodeRows rows;
    for (const NamedElement& named : elements.empty() ? AllElements() : elements) {
        AddElementRows(named, lists, rows);
    }
    return rows;
}

std::string ToText(const CodeRows& rows) {
    std::string text;
    const auto add = [&text](std::string_view cell) { text.append(cell) += '\t'; };
    const auto endLine = [&text] { text.back() = '\n'; };
    ForEachColumn({}, [&](const char* name, const auto&) { add(name); });
    endLine();
    for (const CodeRow& row : rows) {
        ForEachColumn(row, [&](const char*, const auto& value) { add(Text(value)); });
        endLine();
    }
    return text;
}

void ToJson(const CodeRow& row, JsonWriter& json) {
    json.BeginObject();
    ForEachColumn(row, [&json](const char* name, const auto& value) { json.Member(name, value); });
    json.EndObject();
}

}  // namespace quillory
