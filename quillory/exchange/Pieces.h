#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Bytes one after the other, some of which stand elsewhere and are not copied.
class Pieces {
public:
    // What is added from among these bytes is not copied: they stay as long as the pieces are used.
    void Stay(std::string_view bytes) { staying_ = bytes; }

    void Add(std::string_view bytes);
    void Clear();

    template <class Visit>
    void ForEach(Visit visit) const {
        const char* own = own_.data();
        for (const Piece& piece : pieces_) {
            visit(std::string_view(piece.elsewhere == nullptr ? own : piece.elsewhere, piece.size));
            if (piece.elsewhere == nullptr) own += piece.size;
        }
    }

    // Of its own bytes.
    std::size_t Capacity() const { return own_.capacity(); }

private:
    struct Piece {
        const char* elsewhere;  // null for the next of its own bytes
        std::size_t size;

        bool GoesOnAt(const char* bytes) const {
            return bytes == (elsewhere == nullptr ? nullptr : elsewhere + size);
        }
    };

    std::string_view staying_;
    std::string own_;
    std::vector<Piece> pieces_;
};

}  // namespace quillory
