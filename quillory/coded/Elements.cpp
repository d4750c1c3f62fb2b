#include <quillory/coded/ElementNames.h>
#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <zorby/elements/OffsetTables.h>

#include <algorithm>
#include <cstddef>

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

struct Form {
    std::vector<Element> elements;
    int length = 0;
};

// Indexed by the number of the form.
std::vector<Form> MakeAll() {
    std::vector<Form> all;
    const auto add = [&all](CFType type) {
        const auto number = static_cast<std::size_t>(type);
        if (number >= all.size()) all.resize(number + 1);
        Form& form = all[number];
        form.elements = MakeElements(type);
        for (const Element& e : form.elements) form.length = std::max(form.length, e.last + 1);
    };
    for (const CFType form : {CFLdr, CF008Standard}) add(form);
    for (const auto& forms : {FormsOf006(), FormsOf007()}) {
        for (const CFType form : forms) add(form);
    }
    return all;
}

const Form& FormOf(CFType type) {
    static const std::vector<Form> all = MakeAll();
    static const Form none;
    const auto number = static_cast<std::size_t>(type);  // a negative number becomes a large one
    return number < all.size() ? all[number] : none;
}

Place FieldOf(const Element& element, bool in008) {
    if (element.form == CFLdr) return Place::OfLeader();
    if (element.form == CF008Standard || in008) return Place::OfField("008");
    return Place::OfField(IsFormOf007(element.form) ? "007" : "006");
}

bool IsCombined(const Element& element) {
    return &element == &CombinedFormOfItem();
}

}  // namespace

const std::vector<Element>& ElementsOf(CFType form) {
    return FormOf(form).elements;
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
    return FormOf(form).length;
}

bool IsFormOf006(CFType form) {
    return CF006None < form && form < CF007None;
}

bool IsFormOf007(CFType form) {
    return form > CF007None;
}

Place PlaceOf(const Element& element, bool in008) {
    if (IsCombined(element)) return Place::OfField("008").Positions(23, 23);
    const bool isShifted = in008 && IsFormOf006(element.form) && element.first > 0;
    const int offset = isShifted ? kMaterialOffset008 : 0;
    return FieldOf(element, isShifted).Positions(element.first + offset, element.last + offset);
}

std::string ElementPlaceText(const Element& element, bool in008) {
    return ElementFieldText(element, in008) + "/" + ElementPositionsText(element, in008);
}

std::string ElementFieldText(const Element& element, bool in008) {
    return PlaceText(PlaceOf(element, in008).Field());
}

std::string ElementPositionsText(const Element& element, bool in008) {
    const Place place = PlaceOf(element, in008);
    return PositionsText(place.first, place.last) + (IsCombined(element) ? " with 007h/01" : "");
}

}  // namespace quillory
