#include <zorby/layouts/DialogLayout.h>
#include <zorby/layouts/detail/LayoutForms.h>
#include <zorby/text/General.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zorby {
namespace {

const CCFDialogLayout* FormOf(MaterialType material, bool isAdditional) {
    const auto* row = std::find_if(std::begin(kForms), std::end(kForms),
                                   [material](const auto& f) { return f.material == material; });
    if (row == std::end(kForms)) return kNoForm;
    return isAdditional ? row->additional : row->full;
}

}  // namespace

void CCFDialogLayout::GetLocation(int* labelTop, int* labelLeft, int* labelHeight, int* labelWidth,
                                  int* controlTop, int* controlLeft, int* controlHeight,
                                  int* controlWidth) const {
    const std::pair<int*, int> targets[] = {
        {labelTop, labelBox.top},           {labelLeft, labelBox.left},
        {labelHeight, labelBox.height},     {labelWidth, labelBox.width},
        {controlTop, controlBox.top},       {controlLeft, controlBox.left},
        {controlHeight, controlBox.height}, {controlWidth, controlBox.width},
    };
    for (const auto& [target, value] : targets) {
        if (target != nullptr) *target = value;
    }
}

CCFDialogLayoutArray::CCFDialogLayoutArray(MaterialType material, int additional)
    : rows_(FormOf(material, additional != 0)) {
    while (rows_[size_].label != nullptr) ++size_;
}

const CCFDialogLayout* CCFDialogLayoutArray::GetAt(int index) const {
    return 0 <= index && index < size_ ? &rows_[index] : nullptr;
}

std::string CCFDialogLayoutArray::GetLabel(MaterialType material, CFPart part, int additional,
                                           int recursion) {
    if (additional == 0 && (material == MTText || material == MTUnspecified)) return {};
    const CCFDialogLayoutArray form(material, additional);
    for (int i = 0; const CCFDialogLayout* row = form.GetAt(i); ++i) {
        if (row->part != part) continue;
        std::string label = row->label;
        CGeneral::RemoveAmpersand(label);
        return label;
    }
    if (recursion != 0) return {};
    std::string label;
    for (int i = kFirstMaterialType; label.empty() && i <= kLastMaterialType; ++i) {
        label = GetLabel(static_cast<MaterialType>(i), part, additional, 1);
    }
    return label;
}

int CCFDialogLayoutArray::GetSize() const {
    return size_;
}

}  // namespace zorby
