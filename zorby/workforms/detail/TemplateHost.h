#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace zorby {

inline constexpr int kFirstUserTemplateID = 100;

// The name that the host has put in the place of a standard workform, empty if it knows none;
// nothing if the host can't be asked.
std::optional<std::string> StandardNameOf(int id);

struct FreeBlock {
    void operator()(void* block) const { std::free(block); }
};

// A block of the host's database; null if there is none.
struct TemplateBlock {
    std::unique_ptr<void, FreeBlock> bytes;
    std::size_t size = 0;
};
TemplateBlock FetchBlock(int id);

}  // namespace zorby
