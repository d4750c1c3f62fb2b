#pragma once

#include <quillory/repair/FieldElements.h>
#include <quillory/repair/Repair.h>
#include <quillory/repair/TablePlace.h>

#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>
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
        const bool canKeep = bytes.size() == run.size && bytes.size() <= ElementRun::kMost;
        const std::uint64_t number = canKeep ? NumberOf(bytes) : 0;
        Known* const known = &known_[kPlaces * TablePlace(&run, number, kMost)];
        for (std::size_t i = 0; canKeep && i < kPlaces; ++i) {
            if (known[i].run == &run && known[i].number == number) return known[i].repairs;
        }
        judged_.clear();
        if (!judge(judged_) || !canKeep) return judged_;
        std::swap(known[0], known[1]);
        known->run = &run;
        known->number = number;
        std::swap(known->repairs, judged_);
        return known->repairs;
    }

private:
    struct Known {
        const ElementRun* run = nullptr;
        std::uint64_t number = 0;  // made of the bytes
        std::vector<Repair> repairs;
    };

    // Another one for any other bytes of the same run.
    static std::uint64_t NumberOf(std::string_view bytes) {
        const char* const end = bytes.data() + bytes.size();
        std::uint32_t first = 0;
        std::uint32_t last = 0;
        if (bytes.size() < sizeof(last)) {
            for (const char c : bytes) first = first << 8 | static_cast<unsigned char>(c);
        } else {
            std::memcpy(&first, bytes.data(), sizeof(first));
            std::memcpy(&last, end - sizeof(last), sizeof(last));
        }
        return std::uint64_t{last} << 32 | first;
    }

    static constexpr std::size_t kPlaces = 2;  // for what meets in one place, the newer one first
    static constexpr std::size_t kMost = 8192;

    std::vector<Known> known_{kPlaces * kMost};
    std::vector<Repair> judged_;  // of bytes that are not known
};

}  // namespace quillory
