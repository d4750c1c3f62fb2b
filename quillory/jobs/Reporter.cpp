#include <quillory/jobs/Reporter.h>

namespace quillory {
namespace {

constexpr std::uint64_t kSaidInFull = 5;

// Where in an item its fault is, if more can be said than where the item is.
std::string FaultPlace(const Item& item) {
    if (!item.faultPlace && item.faultOffset == item.offset) return {};
    std::string place = " (byte " + std::to_string(item.faultOffset);
    if (item.faultPlace) {
        place += ", line " + std::to_string(item.faultPlace->line) + ", column " +
                 std::to_string(item.faultPlace->column);
    }
    return place + ")";
}

std::string FaultText(const Item& item) {
    std::string text;
    if (!item.tag.empty()) text += "field " + Printable(item.tag) + ": ";
    text += item.reason;
    text += FaultPlace(item);
    if (item.kind == kItemStray && !item.bytes.empty()) {
        text += " (" + Counted(item.bytes.size(), "byte") + ")";
    }
    if (item.kind == kItemRecord) text += "; read from its terminators";
    return text;
}

}  // namespace

void Reporter::BeginFile(const std::string& name) {
    file_ = name;
    counts_.clear();
}

void Reporter::EndFile() {
    for (const auto& [kind, count] : counts_) {
        if (options_.all || count <= kSaidInFull) continue;
        Say(file_ + ": " + std::to_string(count - kSaidInFull) + " more: " + kind);
    }
}

bool Reporter::Count(std::string_view kind) {
    auto counted = counts_.find(kind);
    if (counted == counts_.end()) counted = counts_.emplace(kind, 0).first;
    ++counted->second;
    return options_.all || counted->second <= kSaidInFull;
}

void Reporter::Say(const Item& item, std::string_view kind, std::string_view text) {
    if (Count(kind)) port_.Say({file_, &item, kind, text});
}

void Reporter::Say(const Item& item, std::string_view kind,
                   const std::function<std::string()>& text) {
    if (Count(kind)) port_.Say({file_, &item, kind, text()});
}

void Reporter::SayFault(const Item& item) {
    Say(item, item.reason, FaultText(item));
}

void Reporter::SayAlways(const Item& item, std::string_view text) {
    port_.Say({file_, &item, {}, text});
}

void Reporter::SayCounted(std::string_view kind, std::string_view text) {
    if (Count(kind)) port_.Say({file_, nullptr, kind, text});
}

void Reporter::Say(std::string_view text) const {
    port_.Say({file_, nullptr, {}, text});
}

}  // namespace quillory
