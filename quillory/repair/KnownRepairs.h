#pragma once

#include <quillory/repair/FieldElements.h>
#include <quillory/repair/Repair.h>
#include <quillory/repair/TablePlace.h>

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace quillory {

// Remembers the repairs of a run of elements by the bytes that it has: mostly none. What is new
// takes the place of something older, so their number is bounded.
class KnownRepairs {
public:
    // `judge` finds out the repairs of bytes that are not known, and says whether they are the same
    // in any record. The result holds until the next call.
    template <class Judge>
    const std::vector<Repair>& Get(const ElementRun& run, std::string_view bytes, Judge judge) {
        if (bytes.size() != run.size || bytes.size() > ElementRun::kMost) {
            others_.clear();
            judge(others_);
            return others_;
        }
        std::uint64_t number = 0;
        std::memcpy(&number, bytes.data(), bytes.size());
        Known& known = known_[TablePlace(&run, number, kMost)];
        if (known.run == &run && known.number == number) return known.repairs;
        known.repairs.clear();
        known.run = judge(known.repairs) ? &run : nullptr;
        known.number = number;
        return known.repairs;
    }

private:
    struct Known {
        const ElementRun* run = nullptr;
        std::uint64_t number = 0;  // made of the bytes
        std::vector<Repair> repairs;
    };

    static constexpr std::size_t kMost = 4096;

    std::vector<Known> known_{kMost};
    std::vector<Repair> others_;  // of a run that is too wide, or cut short
};

}  // namespace quillory
