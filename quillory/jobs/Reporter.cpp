#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/Reporter.h>

namespace quillory {
namespace {

constexpr std::uint64_t kSaidInFull = 5;

// Where in an item its fault is; nothing if only the place of the item is known.
std::string OffsetText(const Item& item, const ItemFault& fault) {
    if (!fault.lineColumn && fault.offset == item.offset) return {};
    std::string text = " (byte " + std::to_string(fault.offset);
    if (fault.lineColumn) text += ", " + LineColumnText(*fault.lineColumn);
    return text + ")";
}

// What is wrong with an item, and what became of it.
std::string FaultTextOf(const Item& item) {
    const ItemFault& fault = *item.fault;
    std::string text = FaultText(fault);
    if (fault.notRescued) {
        text += "; can't be read with certainty: " + FaultText(*fault.notRescued);
    }
    text += OffsetText(item, fault);
    const bool isBetween = item.kind == kItemStray || item.kind == kItemFrame;
    if (isBetween && !item.bytes.empty()) {
        text += " (" + Counted(item.bytes.size(), "byte") + ")";
    }
    if (item.kind != kItemRecord || fault.code == FaultCode::kIndicatorForBlank) return text;
    text += item.isPartial ? "; the rest is read" : "; read from its terminators";
    return text;
}

std::string WithLines(const std::string& text, std::string_view lines) {
    return lines.empty() ? text : text + ":\n" + std::string(lines);
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
    counts_.clear();
    for (const auto& [code, count] : notes_) {
        if (!options_.quiet) Say(file_ + ": " + FaultReason({code, {}, std::to_string(count)}));
    }
    notes_.clear();
}

bool Reporter::Count(std::string_view kind) {
    auto counted = counts_.find(kind);
    if (counted == counts_.end()) counted = counts_.emplace(kind, 0).first;
    ++counted->second;
    return options_.all || counted->second <= kSaidInFull;
}

void Reporter::Say(const Item& item, const Fault& fault, std::string_view lines) {
    const std::string kind = FaultHeading(fault.code);
    if (!Count(kind)) return;
    port_.Say({file_, &item, &fault, kind, WithLines(FaultText(fault), lines), true});
}

void Reporter::Say(const Item& item, FaultCode code, const std::function<Fault()>& fault) {
    const std::string kind = FaultHeading(code);
    if (!Count(kind)) return;
    const Fault said = fault();
    port_.Say({file_, &item, &said, kind, FaultText(said), true});
}

void Reporter::SayFault(const Item& item) {
    const std::string kind = FaultHeading(item.fault->code);
    if (Count(kind)) port_.Say({file_, &item, &*item.fault, kind, FaultTextOf(item), true});
    if (item.kind != kItemRecord) return;
    for (const ItemFault& mend : item.mends) {
        const std::string kindOfMend = FaultHeading(mend.code);
        if (!Count(kindOfMend)) continue;
        port_.Say(
            {file_, &item, &mend, kindOfMend, FaultText(mend) + OffsetText(item, mend), true});
    }
}

void Reporter::SayAlways(const Item& item, const ItemFault& fault, std::string_view lines) {
    const std::string text = FaultText(fault) + OffsetText(item, fault);
    port_.Say({file_, &item, &fault, FaultHeading(fault.code), WithLines(text, lines)});
}

void Reporter::Say(const Item& item, std::string_view kind,
                   const std::function<std::string()>& text) {
    if (Count(kind)) port_.Say({file_, &item, nullptr, kind, text(), true});
}

void Reporter::SayCounted(std::string_view kind, std::string_view text) {
    if (Count(kind)) port_.Say({file_, nullptr, nullptr, kind, text, true});
}

void Reporter::Pass(const Message& message) {
    if (!message.isCounted || Count(message.kind)) port_.Say(message);
}

Reporter::Unsaid Reporter::TakeUnsaid() {
    Unsaid unsaid;
    for (const auto& [kind, count] : counts_) {
        if (!options_.all && count > kSaidInFull) unsaid.counts[kind] = count - kSaidInFull;
    }
    counts_.clear();
    unsaid.notes.swap(notes_);
    return unsaid;
}

void Reporter::Add(const Unsaid& unsaid) {
    for (const auto& [kind, count] : unsaid.counts) counts_[kind] += count;
    for (const auto& [code, count] : unsaid.notes) notes_[code] += count;
}

void Reporter::Say(std::string_view text) const {
    port_.Say({file_, nullptr, nullptr, {}, text});
}

}  // namespace quillory
