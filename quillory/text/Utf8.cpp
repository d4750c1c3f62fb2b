#include <quillory/text/Utf8.h>

#include <cstdlib>
#include <memory>

namespace quillory {

std::string Normalized(std::string_view text, NormalForm form) {
    const auto options = static_cast<utf8proc_option_t>(
        UTF8PROC_STABLE | (form == kNormalFormC ? UTF8PROC_COMPOSE : UTF8PROC_DECOMPOSE));
    utf8proc_uint8_t* normal = nullptr;
    const utf8proc_ssize_t size =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                     static_cast<utf8proc_ssize_t>(text.size()), &normal, options);
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(normal, &std::free);
    if (size < 0) return std::string(text);
    return {normal, normal + size};
}

}  // namespace quillory
