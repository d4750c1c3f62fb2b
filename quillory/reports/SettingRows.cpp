#include <quillory/reports/ScreenText.h>
#include <quillory/reports/SettingRows.h>

namespace quillory {
std::string ToText(const SettingRows& rows) {
    std::string text;
    for (const SettingRow& row : rows) {
        text += row.id ? RightAligned(std::to_string(*row.id), 3) + " " + Padded(row.name, 42)
                       : Padded(row.name, 45);
        text += " " + Visible(row.value) + "\n";
    }
    return text;
}

void ToJson(const SettingRow& row, JsonWriter& json) {
    json.BeginObject();
    json.MemberIfAny("id", row.id);
    json.Member("name", row.name);
    json.Member("value", row.value);
    json.EndObject();
}

}  // namespace quillory
