#include <quillory/coded/ElementNames.h>
#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <zorby/controlfields/OffsetTables.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace quillory {
namespace {

using namespace zorby;

const tagCFOFFSETENTRY* TableOf(CFType form) {
    if (FormName(form).empty()) return nullptr;
    if (form == CFLdr) return kLeaderOffsets;
    if (form == CF008Standard) return OffsetsFor008(CF006None);
    return IsFormOf006(form) ? OffsetsFor006Type(form) : OffsetsFor007Type(form);
}

void AddRow(const tagCFOFFSETENTRY& row, CFType form, std::vector<Element>& elements) {
    const auto same = std::find_if(elements.begin(), elements.end(), [&row](const Element& e) {
        return e.first == row.first && e.last == row.last;
    });
    if (same != elements.end()) {
        same->parts.push_back(row.part);
        return;
    }
    Element element{form, row.first, row.last, {}, "Undefined"};
    if (row.part != CFPUndefined) {
        element.parts.push_back(row.part);
        element.name = NameOfPart(row.part);
    }
    elements.push_back(element);
}

std::vector<Element> MakeElements(CFType form) {
    std::vector<Element> elements;
    const tagCFOFFSETENTRY* row = TableOf(form);
    if (row == nullptr) return elements;
    for (; row->part != CFPEndOfTable; ++row) AddRow(*row, form, elements);
    std::sort(elements.begin(), elements.end(),
              [](const Element& a, const Element& b) { return a.first < b.first; });
    return elements;
}

std::map<CFType, std::vector<Element>> MakeAll() {
    std::map<CFType, std::vector<Element>> all;
    for (const CFType form : {CFLdr, CF008Standard}) all[form] = MakeElements(form);
    for (const auto& forms : {FormsOf006(), FormsOf007()}) {
        for (const CFType form : forms) all[form] = MakeElements(form);
    }
    return all;
}

std::string FieldOf(const Element& element, bool in008) {
    if (element.form == CFLdr) return "leader";
    if (element.form == CF008Standard || (in008 && IsFormOf006(element.form))) return "008";
    return IsFormOf006(element.form) ? "006" : "007";
}

}  // namespace

const std::vector<Element>& ElementsOf(CFType form) {
    static const std::map<CFType, std::vector<Element>> all = MakeAll();
    static const std::vector<Element> none;
    const auto found = all.find(form);
    return found == all.end() ? none : found->second;
}

const Element& CombinedFormOfItem() {
    static const Element element{
        CF006None, 0, 1, {CFPCombinedFormOfItem}, std::string(NameOfPart(CFPCombinedFormOfItem))};
    return element;
}

const Element* ElementOfPart(CFPart part) {
    if (part == CFPCombinedFormOfItem) return &CombinedFormOfItem();
    for (const Element& element : ElementsOf(TypeOfPart(part))) {
        if (std::find(element.parts.begin(), element.parts.end(), part) != element.parts.end()) {
            return &element;
        }
    }
    return nullptr;
}

int LengthOfForm(CFType form) {
    int length = 0;
    for (const Element& element : ElementsOf(form)) length = std::max(length, element.last + 1);
    return length;
}

bool IsFormOf006(CFType form) {
    return CF006None < form && form < CF007None;
}

bool IsFormOf007(CFType form) {
    return form > CF007None;
}

std::string PositionsText(int first, int last) {
    char text[32];
    if (first == last) {
        std::snprintf(text, sizeof text, "%02d", first);
    } else {
        std::snprintf(text, sizeof text, "%02d-%02d", first, last);
    }
    return text;
}

std::string PlaceOf(const Element& element, bool in008) {
    if (element.form == CF006None) return "008/23 with 007h/01";
    const bool isShifted = in008 && IsFormOf006(element.form) && element.first > 0;
    const int offset = isShifted ? kMaterialOffset008 : 0;
    return FieldOf(element, isShifted) + "/" +
           PositionsText(element.first + offset, element.last + offset);
}

}  // namespace quillory
