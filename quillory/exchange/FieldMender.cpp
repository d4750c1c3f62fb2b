#include <quillory/exchange/FieldMender.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Utf8.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::kDelimiter;

std::string Quoted(std::string_view bytes) {
    return bytes.empty() ? "nothing" : "\"" + Printable(bytes) + "\"";
}

// Whether what stands before the first delimiter may be indicators, however many, and no text that
// lacks its code.
bool MayBeIndicators(std::string_view before) {
    constexpr std::size_t kMost = 9;
    const auto letters = std::ranges::count_if(
        before, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); });
    return IsBlank(before) || (before.size() <= kMost && letters <= 1);
}

// Two indicators out of what stands before the first delimiter.
std::string IndicatorsOf(std::string_view given, std::vector<Fault>& faults) {
    std::string indicators;
    std::size_t characters = 0;
    for (std::string_view rest = given; !rest.empty(); ++characters) {
        const std::size_t size = DecodeUtf8(rest).size;
        if (characters < kIndicators) indicators += size == 1 ? rest.front() : ' ';
        rest.remove_prefix(size);
    }
    if (characters == kIndicators) {
        faults.push_back({FaultCode::kIndicatorForBlank});
    } else {
        const bool isShort = characters < kIndicators;
        faults.push_back({isShort ? FaultCode::kIndicatorsAdded : FaultCode::kIndicatorBytes,
                          {},
                          Quoted(given)});
    }
    indicators.resize(kIndicators, ' ');
    return indicators;
}

// The subfields, without delimiters that have no code.
std::string WithoutEmptyCodes(std::string_view subfields, std::vector<Fault>& faults) {
    std::string kept;
    ForEachPart(subfields, [&](std::string_view part) {
        if (part == std::string_view(&kDelimiter, 1)) {
            faults.push_back({FaultCode::kDelimiterLeftOut});
        } else {
            kept += part;
        }
    });
    return kept;
}

std::string WithoutFieldEnds(std::string_view content, std::vector<Fault>& faults) {
    std::string kept(content);
    faults.insert(faults.end(), std::erase(kept, zorby::kFieldEnd),
                  Fault{FaultCode::kFieldEndLeftOut});
    return kept;
}

// Whether a field terminator is followed by what begins a data field.
bool HoldsAnotherField(std::string_view content) {
    for (std::size_t at = content.find(zorby::kFieldEnd); at != content.npos;
         at = content.find(zorby::kFieldEnd, at + 1)) {
        if (content.substr(at + 1, kIndicators + 1).find(kDelimiter) == kIndicators) return true;
    }
    return false;
}

// False if it is not clear what was meant.
bool MendData(std::string& content, std::vector<Fault>& faults) {
    const std::size_t first = std::min(content.find(kDelimiter), content.size());
    const std::string before = content.substr(0, first);
    const std::string after = content.substr(first);
    if (after.empty()) {
        if (before.size() <= kIndicators || !IsBlank(before.substr(0, kIndicators))) return false;
        faults.push_back({FaultCode::kNoDelimiter});
        content.insert(kIndicators, std::string{kDelimiter, 'a'});
        return true;
    }
    if (first != kIndicators && !MayBeIndicators(before)) return false;
    content = first == kIndicators ? before : IndicatorsOf(before, faults);
    content += WithoutEmptyCodes(after, faults);
    return true;
}

}  // namespace

FieldMender::Mended FieldMender::Mend(std::string_view tag, std::string_view content) {
    if (HoldsAnotherField(content)) return {false, content};
    Mended mended;
    std::string clean = WithoutFieldEnds(content, mended.faults);
    if (ShapeOf({tag, clean}) == kBrokenShape && !MendData(clean, mended.faults)) {
        return {false, content};
    }
    mended.content = content;
    if (!mended.faults.empty()) mended.content = held_.emplace_back(std::move(clean));
    return mended;
}

}  // namespace quillory
