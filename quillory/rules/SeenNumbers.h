#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillory {

// The control numbers that a run has met, in about 50 bytes each: a number is known by 64 bits made
// of it.
class SeenNumbers {
public:
    void BeginFile(const std::string& name) { files_.push_back(name); }

    // Where the number was met first: "3", or "3 of FILE" for another file; nothing if it is new.
    std::optional<std::string> Meet(std::string_view controlNumber, std::uint64_t record);

private:
    struct Where {
        std::uint32_t file;  // index among `files_`
        std::uint32_t record;
    };

    std::vector<std::string> files_;
    std::unordered_map<std::uint64_t, Where> seen_;
};

}  // namespace quillory
