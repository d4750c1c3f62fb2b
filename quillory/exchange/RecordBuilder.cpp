#include <quillory/exchange/RecordBuilder.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Charset.h>
#include <quillory/text/Trimmed.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

bool IsOneCharacter(std::string_view text) {
    return text.size() == 1 || (!text.empty() && DecodeUtf8(text).size == text.size());
}

}  // namespace

void RecordBuilder::Clear() {
    BeginAt({});
}

void RecordBuilder::BeginAt(const Mark& mark) {
    leader_.clear();
    text_.CutTo(mark.text);
    fields_.resize(mark.field);
    inField_ = false;
    isLeftOut_ = false;
    fault_.reset();
    leftOut_.reset();
    mended_.clear();
    notes_.resize(mark.note);
}

Place RecordBuilder::PlaceInHand() const {
    if (!inField_) return {};
    const auto& tag = fields_.back().tag;
    const auto occurrence = std::ranges::count(fields_, tag, &Field::tag);
    return Place::OfField({tag.data(), tag.size()}, static_cast<std::uint32_t>(occurrence));
}

bool RecordBuilder::Fail(Fault fault) {
    if (inField_) {
        LeaveOut(fault);
    } else if (!Failed()) {
        fault_ = std::move(fault);
    }
    return false;
}

// The field in hand.
void RecordBuilder::LeaveOut(const Fault& fault) {
    if (std::exchange(isLeftOut_, true)) return;
    if (!leftOut_) leftOut_ = fault;
    const Place place = fault.place.IsRecord() ? fault.place : PlaceInHand();
    mended_.push_back(
        {FaultCode::kFieldNotRead, place, FaultReason({fault.code, {}, fault.found})});
}

bool RecordBuilder::Fail(FaultCode code, std::string_view found, std::string_view allowed) {
    return Fail({code, PlaceInHand(), std::string(found), std::string(allowed)});
}

bool RecordBuilder::FailIndicator(std::size_t which, FaultCode code) {
    return Fail({code, PlaceInHand().Indicator(static_cast<int>(which) + 1)});
}

bool RecordBuilder::SetLeader(std::string_view leader) {
    if (!leader_.empty()) return Fail(FaultCode::kSecondLeader);
    if (leader.size() > zorby::kLeaderSize && Trimmed(leader).size() == zorby::kLeaderSize) {
        leader = Trimmed(leader);
        Note(FaultCode::kLeadersTrimmed);
    }
    if (leader.size() > zorby::kLeaderSize) return Fail(FaultCode::kLeaderTooLong);
    if (leader.size() < zorby::kLeaderSize) Note(FaultCode::kLeadersFilledUp);
    leader_ = leader;
    leader_.resize(zorby::kLeaderSize, ' ');
    leader_[zorby::kLeaderCharacterCode] = LabelFor(kCharsetUtf8);
    return true;
}

bool RecordBuilder::BeginField(std::string_view tag) {
    Field& field = fields_.emplace_back();
    field.start = text_.Size();
    const bool hasTag = tag.size() == field.tag.size();
    if (hasTag) tag.copy(field.tag.data(), field.tag.size());
    inField_ = true;
    if (hasTag) return true;
    if (tag.empty()) return Fail(FaultCode::kFieldWithoutTag);
    return Fail({FaultCode::kTagNotThreeBytes, {}, Printable(tag)});
}

void RecordBuilder::EndField() {
    inField_ = false;
    if (!std::exchange(isLeftOut_, false)) return;
    text_.CutTo(fields_.back().start);
    fields_.pop_back();
}

bool RecordBuilder::BeginControlField(std::string_view tag) {
    return BeginField(tag) &&
           (!zorby::CommFormatField{tag, {}}.IsDataField() || Fail(FaultCode::kNoSubfields));
}

bool RecordBuilder::AddControlField(std::string_view tag, std::string_view text) {
    const bool isSound = BeginControlField(tag);
    if (isSound) text_ += text;
    EndField();
    return isSound;
}

bool RecordBuilder::AddDataField(std::string_view tag) {
    haveIndicator_ = {};
    const bool isSound = BeginField(tag);
    text_ += "  ";
    return isSound;
}

bool RecordBuilder::SetIndicator(std::size_t which, std::string_view value) {
    if (value.empty()) return true;
    const bool isAscii = static_cast<unsigned char>(value.front()) < 0x80;
    if (isAscii ? value.size() != 1 : !IsOneCharacter(value)) {
        return FailIndicator(which, FaultCode::kIndicatorNotAscii);
    }
    if (value.front() == zorby::kDelimiter) {
        return FailIndicator(which, FaultCode::kIndicatorIsDelimiter);
    }
    if (std::exchange(haveIndicator_[which], true)) {
        return FailIndicator(which, FaultCode::kIndicatorTwice);
    }
    if (isAscii) {
        text_[fields_.back().start + which] = value.front();
    } else {
        mended_.push_back(
            {FaultCode::kIndicatorForBlank, PlaceInHand().Indicator(static_cast<int>(which) + 1)});
    }
    return true;
}

bool RecordBuilder::AddSubfield(std::string_view code, std::string_view text) {
    if (!IsOneCharacter(code)) return Fail(FaultCode::kSubfieldCodeSize);
    if (code.front() == zorby::kDelimiter || text.find(zorby::kDelimiter) != text.npos) {
        return Fail(FaultCode::kDelimiterInSubfield);
    }
    text_ += zorby::kDelimiter;
    text_ += code;
    text_ += text;
    return true;
}

void RecordBuilder::BeginDataField(std::string_view tag, char first, char second) {
    BeginField(tag);
    text_.AppendPair(first, second);
    haveIndicator_ = {true, true};
}

bool RecordBuilder::EndDataField() {
    for (const bool have : haveIndicator_) {
        if (!have && !isLeftOut_) Note(FaultCode::kEmptyIndicators);
    }
    EndField();
    return true;
}

bool RecordBuilder::End() {
    if (Failed()) return false;
    return leader_.empty() ? Fail(FaultCode::kNoLeader) : true;
}

void RecordBuilder::Give(Item& item) const {
    item.notes = notes_;
    item.isPartial = !mended_.empty();
    if (leftOut_) item.fault = ItemFault{*leftOut_};
    for (const Fault& mend : mended_) {
        if (!item.fault) {
            item.fault = ItemFault{mend};
        } else {
            item.mends.push_back({mend});
        }
    }
    item.record.leader = leader_;
    GiveFields({}, Here(), item.record);
}

void RecordBuilder::GiveBetween(const Mark& begin, const Mark& end, Item& item) const {
    const auto note = [this](std::size_t at) {
        return notes_.begin() + static_cast<std::ptrdiff_t>(at);
    };
    item.notes.assign(note(begin.note), note(end.note));
    GiveFields(begin, end, item.record);
}

void RecordBuilder::GiveFields(const Mark& begin, const Mark& end, Record& record) const {
    record.bytes = {};
    record.fields.resize(end.field - begin.field);
    const std::string_view text = text_.Text();
    const Field* field = fields_.data() + end.field;
    std::size_t contentEnd = end.text;
    for (std::size_t i = record.fields.size(); i > 0; --i) {
        --field;
        record.fields[i - 1].tag = {field->tag.data(), field->tag.size()};
        record.fields[i - 1].content = text.substr(field->start, contentEnd - field->start);
        contentEnd = field->start;
    }
}

}  // namespace quillory
