#include <quillory/jobs/JobPort.h>
#include <quillory/text/Visible.h>

namespace quillory {

std::string Counted(std::uint64_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

std::string ItemPlace(std::string_view file, const Item& item) {
    std::string place = std::string(file) + ": ";
    if (item.kind == kItemStray || item.kind == kItemFrame) {
        place += item.number == 0 ? "before the first record"
                                  : "after record " + std::to_string(item.number);
    } else {
        place += "record " + std::to_string(item.number);
    }
    place += " at byte " + std::to_string(item.offset);
    const std::string_view number =
        item.kind == kItemRecord ? item.record.ControlNumber() : item.controlNumber;
    if (!number.empty()) place += " (001 " + Visible(number) + ")";
    return place;
}

std::string MessageLine(const Message& message) {
    const std::string text(message.text);
    return message.item == nullptr ? text : ItemPlace(message.file, *message.item) + ": " + text;
}

}  // namespace quillory
