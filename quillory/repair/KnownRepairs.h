#pragma once

#include <quillory/repair/FieldElements.h>
#include <quillory/repair/Repair.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// Remembers the repairs of a run of elements by the bytes that it has: mostly none. What is new
// takes the place of something older, so their number is bounded.
class KnownRepairs {
public:
    // `judge` finds out the repairs of a run that are not known, and says whether they are the same
    // in any record. The result holds until the next call.
    template <class Judge>
    std::span<const Repair> Get(const ElementRun& run, std::string_view field, Judge judge) {
        judged_.clear();
        if (run.size > ElementRun::kMost || run.End() > field.size()) {
            judge(judged_);
            return judged_;
        }
        const std::uint64_t key = KeyOf(run, field);
        auto& [newer, older] = known_[key * kOdd >> kShift];
        const Known& found = newer.key == key ? newer : older;
        if (found.key == key) return found.Repairs();
        if (!judge(judged_)) return judged_;
        older = std::exchange(newer, {key, nullptr});
        if (!judged_.empty()) newer.repairs = std::make_unique<std::vector<Repair>>(judged_);
        return judged_;
    }

private:
    // Small, since a record needs many of them.
    struct Known {
        std::uint64_t key = 0;
        std::unique_ptr<const std::vector<Repair>> repairs;  // null if there are none

        std::span<const Repair> Repairs() const {
            return repairs ? std::span(*repairs) : std::span<const Repair>();
        }
    };

    // Another one for any other bytes and any other run; never zero.
    static std::uint64_t KeyOf(const ElementRun& run, std::string_view field) {
        return std::uint64_t{run.number} << 56 | BytesOf(run, field);
    }

    // As a number of up to seven bytes. Those before the run are at hand and read with it, but for
    // a run that begins the field.
    static std::uint64_t BytesOf(const ElementRun& run, std::string_view field) {
        std::uint64_t bytes = 0;
        if (run.End() < sizeof(bytes)) {
            for (const char c : run.BytesIn(field)) {
                bytes = bytes << 8 | static_cast<unsigned char>(c);
            }
            return bytes;
        }
        std::memcpy(&bytes, field.data() + (run.End() - sizeof(bytes)), sizeof(bytes));
        const std::size_t before = 8 * (sizeof(bytes) - run.size);  // bits
        const bool comeFirst = std::endian::native == std::endian::big;
        return comeFirst ? bytes << before >> before : bytes >> before;
    }

    static constexpr unsigned kBits = 12;
    static constexpr unsigned kShift = 64 - kBits;  // the upper bits, to which all of the key add
    static constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;

    std::vector<std::array<Known, 2>> known_{std::size_t{1} << kBits};  // the newer one first
    std::vector<Repair> judged_;  // of bytes that are not known
};

}  // namespace quillory
