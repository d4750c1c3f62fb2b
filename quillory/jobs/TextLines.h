#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// The lines of a text that is larger than memory, one after the other.
class TextLines {
public:
    // Gives the bytes that come next, at most so many; none at the end.
    using ReadSome = std::function<std::size_t(std::span<char> target)>;

    // `name` is said in messages.
    TextLines(std::string name, ReadSome read) : name_(std::move(name)), read_(std::move(read)) {}

    // The next line without its end, which holds until the next call; false at the end of the text.
    // Throws FileError for a line of more than 64 MiB.
    bool Next(std::string_view& line);
    // Of the line given last, from 1.
    std::uint64_t Number() const { return number_; }
    // "FILE: line 3".
    std::string Place() const { return name_ + ": line " + std::to_string(number_); }

private:
    bool Fill();

    std::string name_;
    ReadSome read_;
    std::string buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::uint64_t number_ = 0;
};

}  // namespace quillory
