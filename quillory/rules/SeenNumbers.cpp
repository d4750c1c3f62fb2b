#include <quillory/rules/SeenNumbers.h>

#include <algorithm>
#include <functional>
#include <limits>

namespace quillory {

std::optional<std::string> SeenNumbers::Meet(std::string_view controlNumber, std::uint64_t record) {
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
    const auto file = static_cast<std::uint32_t>(files_.empty() ? 0 : files_.size() - 1);
    const Where here{file, static_cast<std::uint32_t>(std::min(record, kMost))};
    const auto [at, isNew] = seen_.emplace(std::hash<std::string_view>()(controlNumber), here);
    if (isNew) return std::nullopt;
    const Where& first = at->second;
    std::string text = std::to_string(first.record);
    if (first.file != file) text += " of " + files_[first.file];
    return text;
}

}  // namespace quillory
