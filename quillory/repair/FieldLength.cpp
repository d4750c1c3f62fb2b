#include <quillory/repair/FieldElements.h>
#include <quillory/repair/FieldLength.h>

namespace quillory {
namespace {

using namespace zorby;

// Whether a field has all of an element, and there a value that the format does not allow.
bool IsNoCodeIn(std::string_view field, CFPart part, AllowedValues& allowed) {
    const Element& element = *ElementOfPart(part);
    const FieldElement at{element, static_cast<std::size_t>(element.first)};
    return at.End() <= field.size() && !allowed.Allows(element, at.ValueIn(field));
}

}  // namespace

std::string FittedToFormat(std::string_view given, CFType form, CFType material) {
    const auto length = static_cast<std::size_t>(LengthOfForm(form));
    std::string fitted(given.substr(0, length));
    fitted.resize(length, form == CFLdr ? ' ' : kFill);
    ForEachElement(form, material, [&](const FieldElement& at) {
        if (!at.element.IsUndefined()) return;
        for (std::size_t i = std::max(at.first, given.size()); i < at.End(); ++i) fitted[i] = ' ';
    });
    return fitted;
}

bool IsShifted008(std::string_view field008, AllowedValues& allowed) {
    return IsNoCodeIn(field008, CFP008PlaceOfPublication, allowed) ||
           IsNoCodeIn(field008, CFP008Language, allowed);
}

}  // namespace quillory
