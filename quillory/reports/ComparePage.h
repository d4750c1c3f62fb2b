#pragma once

#include <string_view>

namespace quillory {

// The fixed part of a comparison's page, with slots as in CheckPage.h, which has its style and its
// script: page/compare.html.
extern const std::string_view kComparePage;

}  // namespace quillory
