#include <quillory/sets/LinkNumbers.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

using zorby::CommFormatField;

constexpr std::string_view kAlternateTag = "880";
constexpr std::string_view kLinkSubfield = "\0376";
constexpr std::string_view kNoPartner = "00";
constexpr std::size_t kNumber = 4;  // in "880-01"
constexpr std::size_t kNumberSize = 2;
constexpr int kLastNumber = 99;

// A field of a pair.
struct Half {
    const CommFormatField* field;
    std::string_view partner;  // its tag
    std::string_view number;   // in the field's content

    std::size_t NumberPlace() const {
        return static_cast<std::size_t>(number.data() - field->content.data());
    }
    std::string With(std::string_view otherNumber) const {
        return std::string(field->content).replace(NumberPlace(), kNumberSize, otherNumber);
    }
    bool Equals(const Half& other) const {
        return field->tag == other.field->tag && With(kNoPartner) == other.With(kNoPartner);
    }
    bool IsPartnerOf(const Half& other) const {
        return field->tag == other.partner && partner == other.field->tag;
    }
};

std::optional<Half> HalfOf(const CommFormatField& field) {
    const std::size_t at = field.content.find(kLinkSubfield);
    if (at == field.content.npos) return std::nullopt;
    const std::string_view link = field.content.substr(at + kLinkSubfield.size());
    const bool isLink = link.size() >= kNumber + kNumberSize && link[kNumber - 1] == '-' &&
                        IsDigit(link[kNumber]) && IsDigit(link[kNumber + 1]);
    if (!isLink) return std::nullopt;
    const Half half{&field, link.substr(0, kTagSize), link.substr(kNumber, kNumberSize)};
    const bool isOfPair = (field.tag == kAlternateTag) != (half.partner == kAlternateTag);
    return isOfPair && half.number != kNoPartner ? std::optional(half) : std::nullopt;
}

bool HasField(const Record& record, std::string_view tag) {
    return std::ranges::find(record.fields, tag, &CommFormatField::tag) != record.fields.end();
}

using Pairs = std::map<std::string_view, std::vector<Half>>;  // by number

// The pairs of those fields that are meant.
template <class IsMeant>
Pairs PairsOf(const Record& record, IsMeant isMeant) {
    Pairs pairs;
    for (const CommFormatField& field : record.fields) {
        const auto half = HalfOf(field);
        if (half && isMeant(field.tag)) pairs[half->number].push_back(*half);
    }
    return pairs;
}

// Finds the numbers under which pairs can come.
class Numbering {
public:
    Numbering(const Pairs& coming, const Pairs& own, const Pairs& staying)
        : coming_(coming), own_(own), staying_(staying) {}

    // By their present number. Nothing if there are not enough.
    std::optional<std::map<std::string_view, std::string>> Find() {
        for (const auto& [number, halves] : coming_) TakeEqual(number, halves);
        for (const auto& [number, halves] : coming_) {
            if (!found_.contains(number)) TakeWaiting(number, halves);
        }
        for (const auto& [number, halves] : coming_) {
            if (!found_.contains(number) && CanKeep(number, halves)) Take(number, number);
        }
        for (const auto& [number, halves] : coming_) {
            if (!found_.contains(number) && !TakeFree(number)) return std::nullopt;
        }
        return found_;
    }

private:
    void Take(std::string_view number, std::string_view found) {
        found_.emplace(number, found);
        taken_.emplace(found);
    }

    void TakeEqual(std::string_view number, const std::vector<Half>& halves) {
        for (const auto& [ownNumber, own] : own_) {
            const auto isThere = [&own = own](const Half& half) {
                return std::ranges::any_of(
                    own, [&half](const Half& other) { return other.Equals(half); });
            };
            if (taken_.contains(ownNumber) || !std::ranges::all_of(halves, isThere)) continue;
            Take(number, ownNumber);
            return;
        }
    }

    // The record has one half, which waits for the other one under a number of its own.
    void TakeWaiting(std::string_view number, const std::vector<Half>& halves) {
        for (const auto& [ownNumber, own] : staying_) {
            const Half& waiting = own.front();
            const auto isThere = [&](const Half& half) { return waiting.Equals(half); };
            const auto fits = [&](const Half& half) {
                return isThere(half) || waiting.IsPartnerOf(half);
            };
            const bool isWaiting = own.size() == 1 && std::ranges::any_of(halves, isThere) &&
                                   std::ranges::all_of(halves, fits);
            if (!isWaiting || taken_.contains(ownNumber)) continue;
            Take(number, ownNumber);
            return;
        }
    }

    bool CanKeep(std::string_view number, const std::vector<Half>& halves) const {
        if (taken_.contains(number)) return false;
        const auto there = staying_.find(number);
        if (there == staying_.end()) return true;
        return std::ranges::all_of(halves, [&](const Half& half) {
            return std::ranges::all_of(
                there->second, [&half](const Half& other) { return other.IsPartnerOf(half); });
        });
    }

    bool TakeFree(std::string_view number) {
        for (int i = 1; i <= kLastNumber; ++i) {
            const std::string free{static_cast<char>('0' + i / 10),
                                   static_cast<char>('0' + i % 10)};
            if (taken_.contains(free) || staying_.contains(free)) continue;
            Take(number, free);
            return true;
        }
        return false;
    }

    const Pairs& coming_;
    const Pairs& own_;
    const Pairs& staying_;
    std::map<std::string_view, std::string> found_;
    std::set<std::string, std::less<>> taken_;
};

}  // namespace

bool LinkNumbers::FitInto(const Record& record, Record& other) {
    contents_.clear();
    const auto comes = [&](std::string_view tag) {
        return which_.Covers(tag) && (mode_ != MergeMode::Missing || !HasField(record, tag));
    };
    const auto stays = [&](std::string_view tag) {
        return mode_ != MergeMode::Replace || !which_.Covers(tag) || !HasField(other, tag);
    };
    const Pairs coming = PairsOf(other, comes);
    if (coming.empty()) return true;
    const Pairs own = PairsOf(record, [](std::string_view) { return true; });
    const auto found = Numbering(coming, own, PairsOf(record, stays)).Find();
    if (!found) return false;
    for (CommFormatField& field : other.fields) {
        const auto half = HalfOf(field);
        if (!half || !comes(field.tag) || found->at(half->number) == half->number) continue;
        contents_.push_back(half->With(found->at(half->number)));
        field.content = contents_.back();
    }
    return true;
}

}  // namespace quillory
