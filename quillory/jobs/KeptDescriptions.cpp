#include <quillory/jobs/KeptDescriptions.h>

namespace quillory {
namespace {

bool HasWorkform(std::string_view description) {
    return description.find("\nworkform") != description.npos;
}

// After the line of the header. In the middle of a file there is no other place for it.
std::string WithHeadInside(std::string_view description, std::string_view head) {
    const std::size_t size = description.find('\n') + 1;
    std::string text(description.substr(0, size));
    return text.append(head).append(description.substr(size));
}

}  // namespace

std::string_view KeptDescriptions::Keep(std::string_view description) {
    const bool isFirst = !isBegun_;
    isBegun_ = true;
    if (head_.empty() || description == head_) return description;
    if (isFirst) {
        first_ = head_;
        kept_ = first_;
        kept_ += description;
    } else if (head_ != first_ && !HasWorkform(description)) {
        kept_ = WithHeadInside(description, head_);
    } else {
        return description;
    }
    return kept_;
}

}  // namespace quillory
