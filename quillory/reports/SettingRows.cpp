#include <quillory/reports/ScreenText.h>
#include <quillory/reports/SettingRows.h>

namespace quillory {
namespace {

// As a person names it to the program.
std::string NameOf(const SettingRow& row) {
    return (row.id ? "" : "holdings.") + row.name;
}

}  // namespace

std::string ToText(const SettingRows& rows) {
    std::string text;
    for (const SettingRow& row : rows) {
        text += row.id ? RightAligned(std::to_string(*row.id), 3) + " " + Padded(NameOf(row), 42)
                       : Padded(NameOf(row), 45);
        text += " " + Visible(row.value) + "\n";
    }
    return text;
}

void ToJson(const SettingRow& row, JsonWriter& json) {
    json.BeginObject();
    json.MemberIfAny("id", row.id);
    json.Member("name", NameOf(row));
    json.Member("value", row.value);
    json.EndObject();
}

}  // namespace quillory
