#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace quillory {

// A text put together from many short pieces, each of which costs little more than its copy. Its
// room stays when it is cleared.
class TextBuilder {
public:
    TextBuilder() = default;
    TextBuilder(const TextBuilder&) = delete;
    TextBuilder& operator=(const TextBuilder&) = delete;

    void Clear() { end_ = bytes_.get(); }
    std::string_view Text() const { return {bytes_.get(), end_}; }

    // Result: where the piece stands, until the next one comes.
    char* Append(std::string_view piece) {
        char* const at = Room(piece.size());
        if (!piece.empty()) std::memcpy(at, piece.data(), piece.size());
        Take(piece.size());
        return at;
    }
    TextBuilder& operator+=(std::string_view piece) {
        Append(piece);
        return *this;
    }

    // Where the next piece is to stand, with room for so many bytes, which may be put there.
    char* Room(std::size_t size) {
        if (static_cast<std::size_t>(limit_ - end_) < size) Grow(size);
        return end_;
    }
    // Takes in so many of them.
    void Take(std::size_t size) { end_ += size; }

private:
    void Grow(std::size_t size);

    std::unique_ptr<char[]> bytes_;
    char* end_ = nullptr;    // of the text
    char* limit_ = nullptr;  // of its room
};

}  // namespace quillory
