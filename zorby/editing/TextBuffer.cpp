#include <zorby/editing/TextBuffer.h>

#include <algorithm>

namespace zorby {

namespace {

std::string_view UpToZero(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

}  // namespace

TextBuffer::TextBuffer(std::string_view text, int room)
    : bytes_(UpToZero(text)), length_(bytes_.size()) {
    bytes_.resize(length_ + static_cast<std::size_t>(std::max(room, 1)));
}

std::size_t TextBuffer::Inside(int position) const {
    return static_cast<std::size_t>(std::clamp(position, 0, Length()));
}

void TextBuffer::Remove(int from, int to) {
    const std::size_t first = Inside(from);
    const std::size_t last = std::max(first, Inside(to));
    const std::size_t removed = last - first;
    std::copy(bytes_.data() + last, bytes_.data() + length_, bytes_.data() + first);
    length_ -= removed;
    std::fill_n(bytes_.data() + length_, removed, '\0');
}

void TextBuffer::Insert(int position, std::string_view text) {
    const std::string_view added = UpToZero(text);
    const std::size_t at = Inside(position);
    const std::size_t needed = length_ + added.size() + 1;
    std::size_t size = bytes_.size();
    while (needed >= size) size += kStep;
    bytes_.resize(size);
    std::copy_backward(bytes_.data() + at, bytes_.data() + length_,
                       bytes_.data() + length_ + added.size());
    std::copy(added.begin(), added.end(), bytes_.data() + at);
    length_ += added.size();
}

void TextBuffer::Prepend(char byte) {
    bytes_.insert(bytes_.begin(), byte);
    ++length_;
}

std::string_view TextBuffer::Text() const {
    return {bytes_.data(), length_};
}

int TextBuffer::Length() const {
    return static_cast<int>(length_);
}

int TextBuffer::Size() const {
    return static_cast<int>(bytes_.size());
}

}  // namespace zorby
