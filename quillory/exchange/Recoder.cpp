#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/faults/FaultCode.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

// Whether all of the fields are printable ASCII, the same in every character set.
bool IsPlainRecord(const Record& record) {
    const std::string_view data = record.Data();
    if (!data.empty()) return TextConverter::AreUntouched(data);
    return std::all_of(record.fields.begin(), record.fields.end(),
                       [](const auto& field) { return TextConverter::IsUntouched(field.content); });
}

// The two bytes of a data field that are no text.
std::string_view BytesOfIndicators(const zorby::CommFormatField& field) {
    return field.content.substr(0, field.IsDataField() ? 2 : 0);
}

char CarriedIndicator(char indicator, Losses& losses) {
    const auto byte = static_cast<unsigned char>(indicator);
    if (byte < 0x80) return indicator;
    losses.Add(kLossIndicator, byte);
    return ' ';
}

Fault Mislabelled(Charset labelled, Charset actual) {
    constexpr int kAt = zorby::kLeaderCharacterCode;
    return {FaultCode::kMislabelled, Place::OfLeader().Positions(kAt, kAt),
            std::string(CharsetName(labelled)), std::string(CharsetName(actual))};
}

constexpr std::size_t kLeastSubfield = 2;  // the bytes of a delimiter and a code

// The delimiter at the front of a part, and the subfield code after it, unless the byte there is
// part of a character.
std::size_t UnconvertedSize(std::string_view part) {
    if (part.front() != zorby::kDelimiter) return 0;
    const bool hasCode = part.size() > 1 && zorby::PlainRunLength(&part[1], &part[1] + 1) == 1;
    return hasCode ? 2 : 1;
}

}  // namespace

void AppendConverted(std::string_view content, TextConverter& converter, std::string& out,
                     Losses& losses) {
    if (TextConverter::IsUntouched(content)) {
        out += content;
        return;
    }
    ForEachPart(content, [&](std::string_view part) {
        const std::size_t size = UnconvertedSize(part);
        const std::size_t before = out.size();
        out += part.substr(0, size);
        converter.Append(part.substr(size), out, losses);
        // No code is left of a part that is an escape of MARC-8 and nothing else.
        const bool isGone = size < part.size() && out.size() - before < kLeastSubfield;
        if (isGone && part.front() == zorby::kDelimiter) out.resize(before);
    });
}

TextConverter& Recoder::ConverterFor(Charset from) {
    auto& converter = converters_[from];
    if (!converter) {
        converter = std::make_unique<TextConverter>(from, TargetFor(from),
                                                    options_.form.value_or(kNormalFormC));
    }
    return *converter;
}

void Recoder::SetLabel(Record& record, Charset charset) {
    const char label = LabelFor(charset);
    if (record.leader[zorby::kLeaderCharacterCode] == label) return;
    leader_ = record.leader;
    leader_[zorby::kLeaderCharacterCode] = label;
    record.leader = leader_;
}

// New contents are put side by side first; the views are set when the text does not move any more.
void Recoder::Replace(Record& record, TextConverter& converter, Losses& losses) {
    text_.clear();
    replaced_.clear();
    for (zorby::CommFormatField& field : record.fields) {
        if (TextConverter::IsUntouched(field.content)) continue;
        const std::string_view indicators = BytesOfIndicators(field);
        for (const char c : indicators) text_ += CarriedIndicator(c, losses);
        AppendConverted(field.content.substr(indicators.size()), converter, text_, losses);
        replaced_.push_back({&field, text_.size()});
    }
    std::size_t start = 0;
    for (const Replaced& replaced : replaced_) {
        const std::string_view text = text_;
        replaced.field->content = text.substr(start, replaced.end - start);
        start = replaced.end;
    }
    record.bytes = {};
}

Charset Recoder::TargetFor(Charset from) const {
    return options_.to == kCharsetAuto ? from : options_.to;
}

Recoder::Result Recoder::Recode(Record& record, Losses& losses) {
    Result result;
    const bool forced = options_.from != kCharsetAuto;
    if (options_.to == kCharsetAuto && !forced && !options_.form && !options_.verify) return result;

    if (IsPlainRecord(record)) {
        const Charset target = TargetFor(options_.from);
        if (target != kCharsetAuto) SetLabel(record, target);
        return result;
    }
    const Utf8Counts counts = forced ? Utf8Counts{} : CountUtf8(record);
    result.from = forced ? options_.from : ActualCharset(record.leader, counts);
    const bool isToLookAt = options_.verify && result.from == kCharsetUtf8;
    if (isToLookAt && (forced || counts.invalid > 0)) result.invalid = FirstInvalidByte(record);
    const bool isToReplace = result.invalid && options_.replaceInvalid;
    if (result.invalid && !isToReplace) return result;
    result.invalid.reset();
    const Charset labelled = LabelledCharset(record.leader);
    if (!forced && result.from != labelled) result.mislabelled = Mislabelled(labelled, result.from);
    const Charset target = TargetFor(result.from);
    const bool normalize = target == kCharsetUtf8 && options_.form.has_value();
    if (result.from != target || normalize || isToReplace) {
        Replace(record, ConverterFor(result.from), losses);
    }
    SetLabel(record, target);
    return result;
}

}  // namespace quillory
