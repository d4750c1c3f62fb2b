#include <quillory/text/TextBuilder.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillory {

void TextBuilder::Grow(std::size_t size) {
    const std::string_view text = Text();
    const std::size_t capacity = text.size() + std::max(text.size(), size);
    auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
    if (!text.empty()) std::memcpy(bytes.get(), text.data(), text.size());
    end_ = bytes.get() + text.size();
    limit_ = bytes.get() + capacity;
    bytes_ = std::move(bytes);
}

}  // namespace quillory
