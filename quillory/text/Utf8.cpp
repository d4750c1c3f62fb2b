#include <quillory/text/Utf8.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

int CombiningClass(utf8proc_int32_t codePoint) {
    return utf8proc_get_property(codePoint)->combining_class;
}

// Appends what a character is taken apart into.
void AppendApart(utf8proc_int32_t codePoint, utf8proc_option_t options,
                 std::vector<utf8proc_int32_t>& apart) {
    constexpr std::size_t kMostParts = 18;
    const std::size_t size = apart.size();
    apart.resize(size + kMostParts);
    const utf8proc_ssize_t parts =
        utf8proc_decompose_char(codePoint, apart.data() + size, kMostParts, options, nullptr);
    apart.resize(size + static_cast<std::size_t>(std::max<utf8proc_ssize_t>(parts, 0)));
}

// Puts the marks on each letter in their order. utf8proc itself takes time that grows with the
// square of their number.
void PutMarksInOrder(std::vector<utf8proc_int32_t>& codePoints) {
    const auto isLetter = [](utf8proc_int32_t c) { return CombiningClass(c) == 0; };
    const auto end = codePoints.end();
    for (auto at = codePoints.begin(); at != end;) {
        const auto marks = std::find_if_not(at, end, isLetter);
        at = std::find_if(marks, end, isLetter);
        if (!std::is_sorted(marks, at,
                            [](auto a, auto b) { return CombiningClass(a) < CombiningClass(b); })) {
            std::ranges::stable_sort(marks, at, {}, CombiningClass);
        }
    }
}

}  // namespace

std::string Normalized(std::string_view text, NormalForm form) {
    const auto options = static_cast<utf8proc_option_t>(
        UTF8PROC_STABLE | (form == kNormalFormC ? UTF8PROC_COMPOSE : UTF8PROC_DECOMPOSE));
    std::vector<utf8proc_int32_t> codePoints;
    codePoints.reserve(text.size() + 1);
    for (std::string_view rest = text; !rest.empty();) {
        const Utf8Char c = DecodeUtf8(rest);
        if (!c.valid) return std::string(text);
        AppendApart(static_cast<utf8proc_int32_t>(c.codePoint), options, codePoints);
        rest.remove_prefix(c.size);
    }
    PutMarksInOrder(codePoints);
    const auto size = static_cast<utf8proc_ssize_t>(codePoints.size());
    codePoints.push_back(0);  // the end that utf8proc writes
    const utf8proc_ssize_t bytes = utf8proc_reencode(codePoints.data(), size, options);
    if (bytes < 0) return std::string(text);
    return {reinterpret_cast<const char*>(codePoints.data()), static_cast<std::size_t>(bytes)};
}

}  // namespace quillory
