#pragma once

#include <string_view>

namespace quillory {

// The files of data/marc21/formats.
extern const std::string_view kAuthorityTable;
extern const std::string_view kClassificationTable;
extern const std::string_view kCommunityTable;
extern const std::string_view kHoldingsTable;

}  // namespace quillory
