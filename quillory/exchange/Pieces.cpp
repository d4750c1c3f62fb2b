#include <quillory/exchange/Pieces.h>

#include <functional>

namespace quillory {
namespace {

bool LiesAmong(std::string_view bytes, std::string_view all) {
    const std::less_equal<> isAtOrBefore;
    return isAtOrBefore(all.data(), bytes.data()) &&
           isAtOrBefore(bytes.data() + bytes.size(), all.data() + all.size());
}

}  // namespace

void Pieces::Add(std::string_view bytes) {
    if (bytes.empty()) return;
    const char* const elsewhere = LiesAmong(bytes, staying_) ? bytes.data() : nullptr;
    if (elsewhere == nullptr) own_ += bytes;
    if (!pieces_.empty() && pieces_.back().GoesOnAt(elsewhere)) {
        pieces_.back().size += bytes.size();
    } else {
        pieces_.push_back({elsewhere, bytes.size()});
    }
}

void Pieces::Clear() {
    staying_ = {};
    own_.clear();
    pieces_.clear();
}

}  // namespace quillory
