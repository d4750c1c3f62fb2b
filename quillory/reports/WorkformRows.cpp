#include <quillory/reports/ScreenText.h>
#include <quillory/reports/WorkformRows.h>
#include <quillory/text/QmText.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>

namespace quillory {

WorkformRow RowOf(const WorkformEntry& entry, const zorby::CTemplate& workform) {
    std::string material;
    zorby::CTemplateList::GetMaterialTypeName(workform.GetMaterialType(), material);
    WorkformRow row{.id = entry.id,
                    .name = entry.text,
                    .isStandard = !entry.IsUsers(),
                    .material = QmToUtf8(material),
                    .materialType = static_cast<int>(workform.GetMaterialType()),
                    .base = {}};
    const std::string& base = workform.GetBaseTemplateName();
    if (base == workform.GetName()) return row;
    row.base = QmToUtf8(base);
    row.baseIsMissing = !IsStandardName(base);
    return row;
}

void SortByMaterial(WorkformRows& rows) {
    std::vector<int> materials;
    materials.reserve(rows.size());
    for (const WorkformRow& row : rows) materials.push_back(row.materialType);
    std::ranges::stable_sort(rows, std::less(), [&materials](const WorkformRow& row) {
        return std::ranges::find(materials, row.materialType);
    });
}

std::string BaseText(const WorkformRow& row) {
    return Visible(row.base.value_or("")) + (row.baseIsMissing ? " (missing)" : "");
}

std::string ToText(const WorkformRows& rows, bool withBase) {
    constexpr std::size_t kIdWidth = 5;
    constexpr const char* kGap = "  ";
    const auto name = [](const WorkformRow& row) { return Visible(row.name); };
    const auto material = [](const WorkformRow& row) { return Visible(row.material); };
    const std::size_t names = Widest(rows, name);
    const std::size_t materials = Widest(rows, material);
    std::string text;
    for (const WorkformRow& row : rows) {
        text += Padded(std::to_string(row.id) + " ", kIdWidth) + Padded(name(row), names) + kGap;
        text += Padded(material(row), materials);
        if (withBase) text += kGap + BaseText(row);
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

void AddMembers(const WorkformRow& row, JsonWriter& json) {
    json.Member("id", row.id);
    json.Member("name", row.name);
    json.Member("standard", row.isStandard);
    json.Member("material", row.material);
    json.Member("material_type", row.materialType);
    json.MemberIfAny("base", row.base);
    if (row.baseIsMissing) json.Member("base_is_missing", true);
}

void ToJson(const WorkformRow& row, JsonWriter& json) {
    json.BeginObject();
    AddMembers(row, json);
    json.EndObject();
}

}  // namespace quillory
