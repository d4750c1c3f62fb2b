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
    leader_.clear();
    text_.clear();
    fields_.clear();
    inField_ = false;
    isLeftOut_ = false;
    fault_.reset();
    leftOut_.reset();
    mended_.clear();
    notes_.clear();
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
    Field field{{}, text_.size()};
    const bool hasTag = tag.size() == field.tag.size();
    if (hasTag) std::ranges::copy(tag, field.tag.begin());
    fields_.push_back(field);
    inField_ = true;
    if (hasTag) return true;
    if (tag.empty()) return Fail(FaultCode::kFieldWithoutTag);
    return Fail({FaultCode::kTagNotThreeBytes, {}, Printable(tag)});
}

void RecordBuilder::EndField() {
    inField_ = false;
    if (!std::exchange(isLeftOut_, false)) return;
    text_.resize(fields_.back().start);
    fields_.pop_back();
}

bool RecordBuilder::AddControlField(std::string_view tag, std::string_view text) {
    const bool isSound = BeginField(tag) && (!zorby::CommFormatField{tag, {}}.IsDataField() ||
                                             Fail(FaultCode::kNoSubfields));
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
    for (const char c : code) text_ += c;
    text_.append(text);
    return true;
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
    Record& record = item.record;
    record.leader = leader_;
    record.bytes = {};
    record.fields.clear();
    const std::string_view text = text_;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const std::size_t start = fields_[i].start;
        const std::size_t end = i + 1 < fields_.size() ? fields_[i + 1].start : text.size();
        record.fields.push_back(
            {{fields_[i].tag.data(), fields_[i].tag.size()}, text.substr(start, end - start)});
    }
}

}  // namespace quillory
