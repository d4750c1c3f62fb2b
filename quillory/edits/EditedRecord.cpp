#include <quillory/edits/EditedRecord.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

// Forms that have no limit of their own take records of up to this size.
constexpr std::size_t kLongestContent = std::size_t{4} << 20;

std::size_t IndicatorsOf(std::string_view tag) {
    return zorby::CommFormatField{tag, {}}.IsDataField() ? 2 : 0;
}

}  // namespace

void EditedRecord::Begin(const Record& record) {
    given_ = &record;
    charset_ = options_.charset;
    leader_ = record.leader;
    occurrences_.clear();
    tagCounts_.clear();
    fields_.clear();
    texts_.clear();
    changes_.clear();
    for (const zorby::CommFormatField& field : record.fields) {
        Field& own = fields_.emplace_back();
        own.tag = field.tag;
        own.given = field.content;
    }
}

bool EditedRecord::IsControl(std::size_t index) const {
    return zorby::CommFormatField{TagOf(index), {}}.IsControlField();
}

// A record may have fields by the ten thousand: none is counted twice without need.
Place EditedRecord::PlaceOf(std::size_t index) {
    while (occurrences_.size() <= index) {
        occurrences_.push_back(++tagCounts_[std::string(TagOf(occurrences_.size()))]);
    }
    return Place::OfField(TagOf(index), occurrences_[index]);
}

void EditedRecord::ForgetOccurrences(std::size_t from) {
    for (; occurrences_.size() > from; occurrences_.pop_back()) {
        --tagCounts_.find(TagOf(occurrences_.size() - 1))->second;
    }
}

Charset EditedRecord::CharsetInHand() {
    if (charset_ == kCharsetAuto) charset_ = ActualCharset(*given_);
    return charset_;
}

TextConverter& EditedRecord::Converter(Charset from, Charset to) {
    const bool isDecoder = to == kCharsetUtf8 && from != kCharsetUtf8;
    auto& converter = (isDecoder ? decoders_ : encoders_)[isDecoder ? static_cast<std::size_t>(from)
                                                                    : static_cast<std::size_t>(to)];
    if (!converter) {
        converter = std::make_unique<TextConverter>(from, to, options_.form.value_or(kNormalFormC));
    }
    return *converter;
}

std::string_view EditedRecord::Decoded(std::string_view bytes, std::size_t indicators) {
    if (TextConverter::IsUntouched(bytes)) return bytes;
    const Charset charset = CharsetInHand();
    if (charset == kCharsetUtf8) return bytes;
    std::string text(bytes.substr(0, indicators));
    Losses unused;  // what can't be read is met again when it has to be written
    AppendConverted(bytes.substr(text.size()), Converter(charset, kCharsetUtf8), text, unused);
    return Hold(std::move(text));
}

std::string_view EditedRecord::ContentOf(std::size_t index) {
    Field& field = fields_[index];
    if (!field.isRead) {
        field.decoded = field.content = Decoded(field.given, IndicatorsOf(field.tag));
        field.isRead = true;
    }
    return field.content;
}

void EditedRecord::Note(const Place& place, std::optional<std::string> before,
                        std::optional<std::string> after) {
    changes_.push_back({operation_, place, std::move(before), std::move(after)});
}

void EditedRecord::Note(std::vector<Change> changes) {
    for (Change& change : changes) {
        change.operation = operation_;
        changes_.push_back(std::move(change));
    }
}

void EditedRecord::SetLeader(std::string leader) {
    if (leader == leader_) return;
    Note(ChangesOfField(Place::OfLeader(), leader_, leader));
    leader_ = Hold(std::move(leader));
}

void EditedRecord::SetTag(std::size_t index, std::string_view tag) {
    if (TagOf(index) == tag) return;
    const std::string before = WrittenField(PlaceOf(index), ContentOf(index));
    Note(PlaceOf(index), before, std::nullopt);
    ForgetOccurrences(index);
    fields_[index].tag = Hold(std::string(tag));
    fields_[index].isRenamed = true;
    Note(PlaceOf(index), std::nullopt, before);
}

void EditedRecord::SetContent(std::size_t index, std::string content) {
    const std::string_view before = ContentOf(index);
    if (content == before) return;
    const Place place = PlaceOf(index);
    if (content.size() > kLongestContent) {
        throw EditRefused({FaultCode::kFieldTooLong, place, std::to_string(content.size())});
    }
    Note(ChangesOfField(place, before, content));
    Field& field = fields_[index];
    field.content = Hold(std::move(content));
    field.isChanged = true;
}

void EditedRecord::Insert(std::size_t index, std::string_view tag, std::string content) {
    const Field field{Hold(std::string(tag)), {}, {}, Hold(std::move(content)), true, true};
    ForgetOccurrences(index);
    fields_.insert(fields_.begin() + static_cast<std::ptrdiff_t>(index), field);
    Note(PlaceOf(index), std::nullopt, WrittenField(PlaceOf(index), field.content));
}

void EditedRecord::Remove(std::size_t index) {
    Note(PlaceOf(index), WrittenField(PlaceOf(index), ContentOf(index)), std::nullopt);
    ForgetOccurrences(index);
    fields_.erase(fields_.begin() + static_cast<std::ptrdiff_t>(index));
}

std::string EditedRecord::TagsInOrder() const {
    std::string tags;
    for (const Field& field : fields_) tags.append(tags.empty() ? "" : " ").append(field.tag);
    return tags;
}

void EditedRecord::Reorder(const std::vector<std::size_t>& order) {
    if (std::ranges::is_sorted(order)) return;
    ForgetOccurrences(0);
    const std::string before = TagsInOrder();
    std::vector<Field> fields;
    fields.reserve(order.size());
    for (const std::size_t index : order) fields.push_back(fields_[index]);
    fields_ = std::move(fields);
    Note(Place::OfRecord(), before, TagsInOrder());
}

const Record& EditedRecord::InUtf8() {
    view_.leader = leader_;
    view_.fields.clear();
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const std::string_view content = ContentOf(i);
        view_.fields.push_back({TagOf(i), content});
    }
    return view_;
}

const Record& EditedRecord::InUtf8(std::size_t index) {
    view_.leader = leader_;
    view_.fields.assign(1, {TagOf(index), ContentOf(index)});
    return view_;
}

void EditedRecord::AppendEncoded(std::string_view part, std::string& bytes, Losses& losses) {
    const bool isAsItIs = CharsetInHand() == kCharsetUtf8 && !options_.form;
    if (isAsItIs || TextConverter::IsUntouched(part)) {
        bytes += part;
    } else {
        AppendConverted(part, Converter(kCharsetUtf8, CharsetInHand()), bytes, losses);
    }
}

// A subfield that was there before keeps its bytes.
std::string_view EditedRecord::Encoded(const Field& field, Losses& losses) {
    if (TextConverter::IsUntouched(field.content)) return field.content;
    const FieldParts given = PartsOf(field.given);
    FieldParts decoded = PartsOf(field.decoded);
    if (decoded.parts.size() != given.parts.size()) decoded = {};  // text that reads as a delimiter
    const FieldParts content = PartsOf(field.content);
    std::string bytes;
    AppendEncoded(content.head, bytes, losses);
    for (const std::string_view part : content.parts) {
        const auto known = std::ranges::find(decoded.parts, part);
        if (known != decoded.parts.end()) {
            bytes += given.parts[static_cast<std::size_t>(known - decoded.parts.begin())];
        } else {
            AppendEncoded(part, bytes, losses);
        }
    }
    return Hold(std::move(bytes));
}

void EditedRecord::Give(Record& record, Losses& losses) {
    std::vector<zorby::CommFormatField> fields;
    fields.reserve(fields_.size());
    for (const Field& field : fields_) {
        fields.push_back({field.tag, field.isChanged ? Encoded(field, losses) : field.given});
    }
    record.leader = leader_;
    record.fields = std::move(fields);
    record.bytes = {};
}

}  // namespace quillory
