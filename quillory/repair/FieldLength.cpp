#include <quillory/coded/CodeLists.h>
#include <quillory/repair/FieldElements.h>
#include <quillory/repair/FieldLength.h>

namespace quillory {

using namespace zorby;

std::string FittedToFormat(std::string_view given, CFType form, CFType material) {
    const FieldLayout& layout = LayoutOf(form, material);
    std::string fitted(given.substr(0, layout.length));
    fitted.resize(layout.length, form == CFLdr ? ' ' : kFill);
    for (const ElementRun& run : layout.runs) {
        for (const FieldElement& at : run.elements) {
            if (!at.element.IsUndefined()) continue;
            for (std::size_t i = std::max(at.first, given.size()); i < at.End(); ++i) {
                fitted[i] = ' ';
            }
        }
    }
    return fitted;
}

}  // namespace quillory
