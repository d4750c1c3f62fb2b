#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What a card or label is for. The numbers are stored in queues.
enum ItemUse : std::int32_t {
    kUseShelfList = 1,
    kUseMainEntry = 2,
    kUseTitle = 3,
    kUseName = 4,
    kUseSeries = 5,
    kUseSubject = 6,
    kUseLabel = 7,
};

// "main entry".
std::string_view UseName(ItemUse use);

// What a text is on a card or label. The numbers are stored in queues.
enum BlockRole : std::int32_t {
    kBlockCallNumber = 1,    // a line of its own, in the margin or on the spine
    kBlockAddedHeading = 2,  // above the main heading
    kBlockMainHeading = 3,
    kBlockTitleEntry = 4,  // the description, where the title is the main entry
    kBlockBody = 5,        // any other paragraph
    kBlockTracings = 6,    // at the foot
    kBlockContinued = 7,   // the heading of the cards that continue a card
    kBlockLabelLine = 8,   // below the call number on a spine
    kBlockPocket = 9,      // on the label for the pocket of the book
};

struct Block {
    BlockRole role = kBlockBody;
    std::string text;  // UTF-8

    friend bool operator==(const Block&, const Block&) = default;
};

// A card or a label with all that stands on it, in order. A card may take several pieces of paper.
struct PrintItem {
    ItemUse use = kUseMainEntry;
    std::string controlNumber;  // of its record
    std::vector<Block> blocks;

    // The texts of a role, in order.
    std::vector<std::string> Texts(BlockRole role) const;

    friend bool operator==(const PrintItem&, const PrintItem&) = default;
};

}  // namespace quillory
