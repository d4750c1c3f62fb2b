#include <quillory/reports/CheckPage.h>

#include <algorithm>

namespace quillory {

void WritePagePart(std::string_view part, const PageSlots& slots, Output& output) {
    constexpr std::string_view kOpen = "{{";
    constexpr std::string_view kClose = "}}\n";
    while (!part.empty()) {
        const std::string_view line =
            part.substr(0, std::min(part.find('\n'), part.size() - 1) + 1);
        if (line.starts_with(kOpen) && line.ends_with(kClose)) {
            const std::size_t length = line.size() - kOpen.size() - kClose.size();
            slots.at(line.substr(kOpen.size(), length))();
        } else {
            output.Write(line);
        }
        part.remove_prefix(line.size());
    }
}

}  // namespace quillory
