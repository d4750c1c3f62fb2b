#include <quillory/exchange/Input.h>
#include <quillory/jobs/TextLines.h>

#include <algorithm>
#include <cstring>

namespace quillory {

// Makes room, and reads more. False at the end of the text.
bool TextLines::Fill() {
    constexpr std::size_t kSmallest = std::size_t{1} << 18;
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    if (end_ == buffer_.size()) buffer_.resize(std::max(kSmallest, buffer_.size() * 2));
    const std::size_t got = read_({buffer_.data() + end_, buffer_.size() - end_});
    end_ += got;
    return got > 0;
}

bool TextLines::Next(std::string_view& line) {
    std::size_t searched = 0;
    ++number_;
    for (;;) {
        const std::string_view held = std::string_view(buffer_).substr(begin_, end_ - begin_);
        const std::size_t size = held.find('\n', searched);
        if (size != held.npos) {
            line = held.substr(0, size);
            begin_ += size + 1;
            return true;
        }
        if (held.size() > kMostHeld) throw FileError(Place() + " has more than 64 MiB");
        searched = held.size();
        if (Fill()) continue;
        line = std::string_view(buffer_).substr(begin_, end_ - begin_);
        begin_ = end_;
        return !line.empty();
    }
}

}  // namespace quillory
