#pragma once

#include <functional>
#include <string_view>

namespace quillory {

// Whether the bytes of a view are among those of another one.
inline bool IsPartOf(std::string_view view, std::string_view whole) {
    const std::less_equal<> isAtOrBefore;
    return isAtOrBefore(whole.data(), view.data()) &&
           isAtOrBefore(view.data() + view.size(), whole.data() + whole.size());
}

}  // namespace quillory
