#include <quillory/jobs/RecordName.h>
#include <quillory/text/SearchText.h>

namespace quillory {

RecordName RecordNamer::NameOf(std::string_view file, const Item& item) {
    static const KeyPlace kControlNumber = ParseKeyPlace("", "001");
    static const KeyPlace kTitle = ParseKeyPlace("", "title");
    const auto tidy = [&](const KeyPlace& place) {
        return TidyText(texts_.FirstOf(item.record, place).value_or(""));
    };
    return {std::string(file), item.number, item.offset, tidy(kControlNumber), tidy(kTitle)};
}

std::string ShortText(const RecordName& name, std::string_view file) {
    std::string text = name.file == file ? "" : name.file + ": ";
    text += "record " + std::to_string(name.number);
    return name.controlNumber.empty() ? text : text + " (001 " + name.controlNumber + ")";
}

}  // namespace quillory
