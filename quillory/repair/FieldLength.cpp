#include <quillory/coded/CodeLists.h>
#include <quillory/repair/FieldElements.h>
#include <quillory/repair/FieldLength.h>

namespace quillory {

using namespace zorby;

std::string FittedToFormat(std::string_view given, CFType form, CFType material) {
    const auto length = static_cast<std::size_t>(LengthOfForm(form));
    std::string fitted(given.substr(0, length));
    fitted.resize(length, form == CFLdr ? ' ' : kFill);
    for (const ElementRun& run : RunsOf(form, material)) {
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
