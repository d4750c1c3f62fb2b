#include <zorby/platform/detail/Decimal.h>
#include <zorby/settings/Profile.h>

#include <algorithm>

namespace zorby {

namespace {

void RemoveLeading(std::string_view& text, std::string_view characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

void RemoveTrailing(std::string_view& text, std::string_view characters) {
    text = text.substr(0, text.find_last_not_of(characters) + 1);
}

std::vector<std::string> Unpack(std::string_view text, std::string_view first,
                                std::string_view second) {
    RemoveLeading(text, first);
    RemoveTrailing(text, second);
    const std::string delimiter = std::string(second).append(first);
    std::vector<std::string> items;
    while (!text.empty()) {
        const std::size_t end = delimiter.empty() ? std::string_view::npos : text.find(delimiter);
        const std::string_view item = text.substr(0, end);
        items.emplace_back(item);
        if (end == std::string_view::npos) break;
        RemoveLeading(text, item);
        RemoveLeading(text, delimiter);
    }
    return items;
}

std::string Packed(std::string_view item, std::string_view first, std::string_view second) {
    RemoveLeading(item, "\\");
    return std::string(first).append(item).append(second);
}

}  // namespace

void GetZorbyProfileStringList(int id, std::string_view first, std::vector<std::string>& list,
                               std::string_view second) {
    std::string text;
    GetZorbyProfileString(id, text);
    list = Unpack(text, first, second);
}

void WriteZorbyProfileStringList(int id, std::string_view first,
                                 const std::vector<std::string>& list, std::string_view second) {
    std::string text;
    for (const std::string& item : list) text += Packed(item, first, second);
    WriteZorbyProfileString(id, text);
}

void GetZorbyProfileUIntArray(int id, std::string_view first, std::vector<unsigned>& array,
                              std::string_view second) {
    std::vector<std::string> list;
    GetZorbyProfileStringList(id, first, list, second);
    array.clear();
    for (const std::string& item : list) array.push_back(DecimalUnsigned(item));
}

void WriteZorbyProfileUIntArray(int id, std::string_view first, const std::vector<unsigned>& array,
                                std::string_view second) {
    std::vector<std::string> list;
    list.reserve(array.size());
    for (const unsigned number : array) list.push_back(std::to_string(static_cast<int>(number)));
    WriteZorbyProfileStringList(id, first, list, second);
}

}  // namespace zorby
