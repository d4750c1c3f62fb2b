#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace quillory {

// A text put together from many short pieces, each of which costs little more than its copy. Its
// room stays when it is cleared.
class TextBuilder {
public:
    TextBuilder() = default;
    TextBuilder(TextBuilder&& other) noexcept { Swap(other); }
    TextBuilder& operator=(TextBuilder&& other) noexcept {
        TextBuilder taken(std::move(other));
        Swap(taken);
        return *this;
    }

    void Clear() { end_ = bytes_.get(); }
    // Leaves the first bytes, at most those that it has.
    void CutTo(std::size_t size) { end_ = bytes_.get() + size; }
    std::size_t Size() const { return static_cast<std::size_t>(end_ - bytes_.get()); }
    std::string_view Text() const { return {bytes_.get(), end_}; }
    char& operator[](std::size_t at) { return bytes_[at]; }

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
    TextBuilder& operator+=(char byte) {
        *Room(1) = byte;
        Take(1);
        return *this;
    }

    void AppendPair(char first, char second) {
        char* const at = Room(2);
        at[0] = first;
        at[1] = second;
        Take(2);
    }

    // Where the next piece is to stand, with room for so many bytes, which may be put there.
    char* Room(std::size_t size) {
        if (static_cast<std::size_t>(limit_ - end_) < size) Grow(size);
        return end_;
    }
    // Takes in so many of them.
    void Take(std::size_t size) { end_ += size; }

private:
    void Swap(TextBuilder& other) noexcept {
        bytes_.swap(other.bytes_);
        std::swap(end_, other.end_);
        std::swap(limit_, other.limit_);
    }
    void Grow(std::size_t size);

    std::unique_ptr<char[]> bytes_;
    char* end_ = nullptr;    // of the text
    char* limit_ = nullptr;  // of its room
};

}  // namespace quillory
