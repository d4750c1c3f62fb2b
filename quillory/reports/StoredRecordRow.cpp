#include <quillory/reports/ScreenText.h>
#include <quillory/reports/StoredRecordRow.h>
#include <quillory/reports/TimeText.h>

namespace quillory {
std::string ToText(const StoredRecord& record) {
    constexpr std::size_t kIdWidth = 8;
    constexpr std::size_t kNumberWidth = 16;
    constexpr std::size_t kTypeWidth = 2;
    const RecordSummary& summary = record.summary;
    return Padded(std::to_string(record.id), kIdWidth) + " " +
           Padded(Visible(summary.controlNumber), kNumberWidth) + " " +
           Padded(Visible(summary.type), kTypeWidth) + " " + Visible(summary.title) + "\n";
}

void ToJson(const StoredRecord& record, JsonWriter& json) {
    json.BeginObject();
    json.Member("id", record.id);
    json.Member("control_number", record.summary.controlNumber);
    json.Member("title", record.summary.title);
    json.Member("type", record.summary.type);
    json.Member("added", TimeText(record.added));
    json.Member("changed", TimeText(record.changed));
    if (record.workform != 0) json.Member("workform", record.workform);
    json.EndObject();
}

}  // namespace quillory
