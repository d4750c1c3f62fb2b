#include <quillory/faults/Errors.h>
#include <quillory/jobs/ByteSize.h>

#include <charconv>
#include <optional>
#include <string_view>

namespace quillory {
namespace {

std::optional<unsigned> ShiftOf(std::string_view unit) {
    if (unit.empty()) return 0;
    constexpr std::string_view kUnits = "KMG";
    const char c = unit.front();
    const auto power = kUnits.find(c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c);
    if (unit.size() != 1 || power == kUnits.npos) return std::nullopt;
    return 10 * static_cast<unsigned>(power + 1);
}

}  // namespace

std::uint64_t ParseByteSize(const std::string& option, const std::string& text) {
    constexpr unsigned kMostBits = 60;
    std::uint64_t number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    const auto shift = ShiftOf({read.ptr, static_cast<std::size_t>(end - read.ptr)});
    if (read.ec != std::errc() || !shift || number == 0 || number >> (kMostBits - *shift) != 0) {
        throw UsageError(option + ": \"" + text +
                         "\" is no size, such as 100000, 512K, 256M or 2G");
    }
    return number << *shift;
}

}  // namespace quillory
