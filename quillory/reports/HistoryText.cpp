#include <quillory/reports/EditMessages.h>
#include <quillory/reports/HistoryText.h>
#include <quillory/reports/LineDiff.h>
#include <quillory/reports/TimeText.h>

namespace quillory {

std::string ToText(const FormerVersion& version, bool colour) {
    return "record " + std::to_string(version.id) + "  " + TimeText(version.replaced) + "  " +
           version.change + "\n" + DiffText(version.before, version.after, colour);
}

void ToJson(const FormerVersion& version, JsonWriter& json) {
    std::vector<std::string> gone;
    std::vector<std::string> come;
    for (LineOfDiff& line : DiffOf(version.before, version.after)) {
        (line.isNew ? come : gone).push_back(std::move(line.text));
    }
    json.BeginObject();
    json.Member("id", version.id);
    json.Member("replaced", TimeText(version.replaced));
    json.Member("change", version.change);
    json.Member("old", gone);
    json.Member("new", come);
    json.EndObject();
}

}  // namespace quillory
