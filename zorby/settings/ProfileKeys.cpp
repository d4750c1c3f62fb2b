#include <zorby/settings/ProfileKeys.h>
#include <zorby/settings/detail/ProfileKeyRows.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace zorby {

namespace {

static_assert(kProfileKeyRows.size() == 184);
static_assert(kProfileKeyRows.back().id == kProfileKeyTableEnd);

// The position in the table of the first row of each id.
constexpr std::array<std::size_t, kProfileKeyTableEnd> kRowById = [] {
    std::array<std::size_t, kProfileKeyTableEnd> rows{};
    for (std::size_t id = 0; id < rows.size(); ++id) {
        const auto* row =
            std::ranges::find(kProfileKeyRows, static_cast<int>(id), &ProfileKeyRow::id);
        rows.at(id) = static_cast<std::size_t>(row - kProfileKeyRows.begin());
    }
    return rows;
}();

static_assert(std::ranges::all_of(kRowById,
                                  [](std::size_t row) { return row < kProfileKeyRows.size(); }),
              "every id has a row");

}  // namespace

std::span<const ProfileKeyRow> ProfileKeyTable() {
    return kProfileKeyRows;
}

const ProfileKeyRow* FindProfileKey(int id) {
    if (id < 0 || id >= kProfileKeyTableEnd) return nullptr;
    return &kProfileKeyRows[kRowById[static_cast<std::size_t>(id)]];
}

}  // namespace zorby
