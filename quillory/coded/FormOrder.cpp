#include <quillory/coded/FormOrder.h>
#include <quillory/coded/Material.h>
#include <zorby/elements/OffsetTables.h>
#include <zorby/layouts/DialogLayout.h>

#include <algorithm>
#include <string_view>

namespace quillory {
namespace {

using namespace zorby;

using Parts = std::vector<CFPart>;

// The combined form of item is asked for where its first half stands.
constexpr int kFormOfItem = 6;  // in a 006 of books, music, mixed materials and serials

std::vector<AskedElement> AllOf(const Place& field, CFType form) {
    std::vector<AskedElement> all;
    const bool is008 = field.Tag() == "008";
    if (is008) {
        for (const Element& element : ElementsOf(CF008Standard)) all.push_back({&element});
    }
    for (const Element& element : ElementsOf(form)) {
        if (!is008 || element.first > 0) all.push_back({&element, is008});
    }
    return all;
}

// What one of the library's forms shows of these elements.
Parts ShownBy(MaterialType material, int additional, CFType form) {
    Parts parts;
    const CCFDialogLayoutArray layout(material, additional);
    for (int i = 0; const CCFDialogLayout* row = layout.GetAt(i); ++i) {
        const CFPart part = row->PartNumber();
        const CFType type = TypeOfPart(part);
        if (part == CFPCombinedFormOfItem || type == form || type == CF008Standard) {
            parts.push_back(part);
        }
        if (row->controlType == CFControlDateGroup) {
            parts.insert(parts.end(), {CFP008Date1, CFP008Date2});
        }
    }
    return parts;
}

bool HasOwn(const Parts& parts, CFType form) {
    return std::ranges::any_of(parts, [form](CFPart part) { return TypeOfPart(part) == form; });
}

// Forms that show more of the elements come first.
Parts ShownParts(CFType form) {
    std::vector<Parts> all;
    for (int material = kFirstMaterialType; material <= kLastMaterialType; ++material) {
        for (const int additional : {0, 1}) {
            Parts parts = ShownBy(static_cast<MaterialType>(material), additional, form);
            if (HasOwn(parts, form)) all.push_back(std::move(parts));
        }
    }
    // Mixed materials have nothing of their own, nor has an 008 of unknown material.
    if (all.empty() && form != CF008Standard) return ShownParts(CF008Standard);
    std::ranges::stable_sort(all, std::ranges::greater{}, &Parts::size);
    Parts shown;
    for (const Parts& parts : all) shown.insert(shown.end(), parts.begin(), parts.end());
    return shown;
}

bool IsAskedBy(const Element& element, CFPart part) {
    if (part == CFPCombinedFormOfItem) {
        return IsFormOf006(element.form) && element.first == kFormOfItem;
    }
    return std::ranges::find(element.parts, part) != element.parts.end();
}

}  // namespace

Place AskedElement::In(const Place& field) const {
    const Place place = PlaceOf(*element, in008);
    return field.Positions(place.first, place.last);
}

std::vector<AskedElement> ElementsAsked(const Place& field, CFType form) {
    std::vector<AskedElement> elements = AllOf(field, form);
    auto next = elements.begin();
    for (const CFPart part : ShownParts(form)) {
        const auto found = std::find_if(next, elements.end(), [part](const AskedElement& asked) {
            return IsAskedBy(*asked.element, part);
        });
        if (found == elements.end()) continue;
        found->isUsual = true;
        std::rotate(next, found, found + 1);
        ++next;
    }
    std::stable_sort(next, elements.end(), [&field](const auto& a, const auto& b) {
        return a.In(field).first < b.In(field).first;
    });
    return elements;
}

}  // namespace quillory
