#include <quillory/coded/Material.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/places/Tag.h>
#include <quillory/queries/Values.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kBeginOfLink = "\0376";  // subfield $6

// Whether a control field is of the material that a place names, as "006m" does.
bool IsOfMaterial(const Place& place, std::string_view leader, std::string_view content) {
    const std::string_view letter{&place.material, 1};
    switch (place.Number()) {
        case 6:
            return MaterialOf006(content) == MaterialOf006(letter);
        case 7:
            return content.starts_with(place.material);
        default:
            return MaterialOfLeader(leader) == MaterialOf006(letter);
    }
}

bool TakePositions(const Place& place, std::string_view content, ValueSlice& slice) {
    const auto first = static_cast<std::size_t>(place.first);
    if (first >= content.size()) return false;
    slice.bytes = content.substr(first, static_cast<std::size_t>(place.last) - first + 1);
    slice.place.first = place.first;
    slice.place.last = place.last;
    return true;
}

bool TakeIndicator(const Place& place, const zorby::CommFormatField& field, ValueSlice& slice) {
    const std::size_t indicators =
        std::min(field.content.find(zorby::kDelimiter), field.content.size());
    if (!field.IsDataField() || indicators < kIndicators) return false;
    slice.bytes = field.content.substr(place.indicator - 1U, 1);
    slice.place.indicator = place.indicator;
    return true;
}

// What a field holds besides its indicators.
std::string_view WithoutIndicators(const zorby::CommFormatField& field) {
    const std::size_t first = field.content.find(zorby::kDelimiter);
    if (field.IsControlField()) return field.content;
    if (first != field.content.npos) return field.content.substr(first);
    return field.IsDataField() ? field.content.substr(std::min(kIndicators, field.content.size()))
                               : field.content;
}

}  // namespace

std::uint32_t TagOccurrences::Next(std::string_view tag) {
    constexpr std::size_t kUsual = 64;
    Tag key{};
    std::ranges::copy(tag.substr(0, kTagSize), key.begin());
    if (ascending_.empty()) ascending_.reserve(kUsual);
    if (ascending_.empty() || ascending_.back().tag < key) {
        ascending_.push_back({key, 1});
        return 1;
    }
    const auto known = std::ranges::lower_bound(ascending_, key, {}, &Counted::tag);
    return known->tag == key ? ++known->count : ++others_[key];
}

std::string_view JoinedText(std::string_view slice, std::string& joined) {
    if (slice.find(zorby::kDelimiter) == slice.npos) return slice;
    joined.clear();
    ForEachPart(slice, [&joined](std::string_view part) {
        if (part.starts_with(kBeginOfLink)) return;
        if (part.front() == zorby::kDelimiter) {
            part.remove_prefix(std::min<std::size_t>(2, part.size()));
        }
        if (!part.empty()) joined.append(joined.empty() ? "" : " ").append(part);
    });
    return joined;
}

namespace values {

bool SliceOfLeader(const PlacePattern& pattern, std::string_view leader, ValueSlice& slice) {
    if (!pattern.place.IsLeader() || leader.empty()) return false;
    slice = {Place::OfLeader(), leader, false, pattern.IsCoded(), leader};
    return !pattern.place.HasPositions() || TakePositions(pattern.place, leader, slice);
}

bool SliceOf(const PlacePattern& pattern, std::string_view leader,
             const zorby::CommFormatField& field, ValueSlice& slice) {
    const Place& place = pattern.place;
    if (place.material != '\0' && !IsOfMaterial(place, leader, field.content)) return false;
    if (place.indicator != 0) return TakeIndicator(place, field, slice);
    if (place.HasPositions()) {
        return field.IsControlField() && TakePositions(place, field.content, slice);
    }
    slice.isField = true;
    slice.bytes = WithoutIndicators(field);
    return true;
}

}  // namespace values

std::string_view ValueReader::Converted(const Record& record, std::string_view bytes) {
    if (current_ == kCharsetAuto) current_ = ActualCharset(record);
    auto& converter = converters_[static_cast<std::size_t>(current_)];
    if (!converter) {
        converter = std::make_unique<TextConverter>(current_, kCharsetUtf8, kNormalFormC);
    }
    utf8_.clear();
    losses_.Clear();
    AppendConverted(bytes, *converter, utf8_, losses_);
    hasReplaced_ = hasReplaced_ || losses_.First(kLossReplaced);
    return utf8_;
}

std::string_view ValueReader::TextOf(const Record& record, const ValueSlice& slice) {
    const std::string_view text =
        TextConverter::IsUntouched(slice.bytes) ? slice.bytes : Converted(record, slice.bytes);
    return slice.isField ? JoinedText(text, joined_) : text;
}

}  // namespace quillory
