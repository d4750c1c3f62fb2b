#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace zorby {

inline constexpr int kFirstUserTemplateID = 100;

// Returns the name that the host has put in the place of a standard workform. The name is empty if
// the host knows none, and there is no result if the host can't be asked.
std::optional<std::string> StandardNameOf(int id);

struct FreeBlock {
    void operator()(void* block) const { std::free(block); }
};

// A block of the host's database, or null if there is none.
struct TemplateBlock {
    std::unique_ptr<void, FreeBlock> bytes;
    std::size_t size = 0;
};
TemplateBlock FetchBlock(int id);

}  // namespace zorby
