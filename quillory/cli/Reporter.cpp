#include <quillory/cli/Reporter.h>

#include <cstdio>

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

}  // namespace

std::string Printable(std::string_view text) {
    std::string printable;
    for (const char c : text) printable += c >= ' ' && c < 0x7F ? c : '?';
    return printable;
}

std::string Counted(std::uint64_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

void Reporter::BeginFile(const std::string& name) {
    file_ = name;
    counts_.clear();
}

void Reporter::EndFile() {
    for (const auto& [kind, count] : counts_) {
        if (all_ || count <= kSaidInFull) continue;
        Say(file_ + ": " + std::to_string(count - kSaidInFull) + " more: " + kind);
    }
}

std::string Reporter::PlaceOf(const Item& item) const {
    std::string place = file_ + ": ";
    if (item.kind == kItemStray) {
        place += item.number == 0 ? "before the first record"
                                  : "after record " + std::to_string(item.number);
    } else {
        place += "record " + std::to_string(item.number);
    }
    place += " at byte " + std::to_string(item.offset);
    const std::string_view number =
        item.kind == kItemRecord ? item.record.ControlNumber() : item.controlNumber;
    if (!number.empty()) place += " (001 " + Printable(number) + ")";
    return place;
}

bool Reporter::Count(std::string_view kind) {
    auto counted = counts_.find(kind);
    if (counted == counts_.end()) counted = counts_.emplace(kind, 0).first;
    ++counted->second;
    return all_ || counted->second <= kSaidInFull;
}

void Reporter::Say(const Item& item, std::string_view kind, std::string_view text) {
    if (Count(kind)) Say(PlaceOf(item) + ": " + std::string(text));
}

void Reporter::Say(const Item& item, std::string_view kind,
                   const std::function<std::string()>& text) {
    if (Count(kind)) Say(PlaceOf(item) + ": " + text());
}

void Reporter::SayCounted(std::string_view kind, std::string_view text) {
    if (Count(kind)) Say(text);
}

void Reporter::SayFault(const Item& item) {
    std::string text;
    if (!item.tag.empty()) text += "field " + Printable(item.tag) + ": ";
    text += item.reason;
    text += FaultPlace(item);
    if (item.kind == kItemStray && !item.bytes.empty()) {
        text += " (" + Counted(item.bytes.size(), "byte") + ")";
    }
    if (item.kind == kItemRecord) text += "; read from its terminators";
    Say(item, item.reason, text);
}

void Reporter::Say(std::string_view text) const {
    if (text.ends_with('\n')) text.remove_suffix(1);
    std::fprintf(stderr, "quillory: %.*s\n", static_cast<int>(text.size()), text.data());
}

}  // namespace quillory
