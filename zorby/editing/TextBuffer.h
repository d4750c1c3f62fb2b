#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace zorby {

// A text in a buffer that is larger than the text, and zero after it. Positions are counted in
// bytes from 0; those outside the text count as the nearest one in it.
class ZORBY_EXPORT TextBuffer {
public:
    // How many bytes a buffer grows by, and what an empty one begins with.
    static constexpr int kStep = 64;

    // An empty text in a buffer of one step.
    TextBuffer() : TextBuffer({}, kStep) {}
    // The text up to its first zero byte, with `room` bytes after it, at least 1.
    TextBuffer(std::string_view text, int room);

    std::string_view Text() const;
    int Length() const;
    // The size of the buffer.
    int Size() const;

    void Remove(int from, int to);
    // Puts in a text up to its first zero byte. The buffer grows by steps until it is larger than
    // the text with its terminator.
    void Insert(int position, std::string_view text);
    // Puts a byte other than 0 at the start of the text, in a buffer that is larger by one.
    void Prepend(char byte);

private:
    std::size_t Inside(int position) const;

    std::string bytes_;
    std::size_t length_;
};

}  // namespace zorby
