#include <quillory/exchange/PartOf.h>
#include <quillory/exchange/Pieces.h>

namespace quillory {
void Pieces::Add(std::string_view bytes) {
    if (bytes.empty()) return;
    const char* const elsewhere = IsPartOf(bytes, staying_) ? bytes.data() : nullptr;
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
