#include <quillory/exchange/RecordBuilder.h>
#include <quillory/text/Charset.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

bool IsOneCharacter(std::string_view text) {
    return !text.empty() && DecodeUtf8(text).size == text.size();
}

}  // namespace

void RecordBuilder::Clear() {
    leader_.clear();
    text_.clear();
    fields_.clear();
    tag_.clear();
    reason_.clear();
}

bool RecordBuilder::Fail(std::string reason) {
    if (reason_.empty()) reason_ = std::move(reason);
    return false;
}

bool RecordBuilder::SetLeader(std::string_view leader) {
    if (!leader_.empty()) return Fail("a second leader");
    if (leader.size() > zorby::kLeaderSize) return Fail("a leader of over 24 bytes");
    leader_ = leader;
    leader_.resize(zorby::kLeaderSize, ' ');
    leader_[zorby::kLeaderCharacterCode] = LabelFor(kCharsetUtf8);
    return true;
}

bool RecordBuilder::BeginField(std::string_view tag, bool isData) {
    Field field{{}, text_.size()};
    tag_ = tag;
    if (tag.empty()) return Fail("a field without a tag");
    if (tag.size() != field.tag.size()) return Fail("a tag that is not of three bytes");
    if (!isData && zorby::CommFormatField{tag, {}}.IsDataField()) {
        return Fail("a data field without subfields");
    }
    std::copy(tag.begin(), tag.end(), field.tag.begin());
    fields_.push_back(field);
    return true;
}

bool RecordBuilder::AddControlField(std::string_view tag, std::string_view text) {
    if (!BeginField(tag, false)) return false;
    text_ += text;
    tag_.clear();
    return true;
}

bool RecordBuilder::AddDataField(std::string_view tag) {
    haveIndicator_ = {};
    if (!BeginField(tag, true)) return false;
    text_ += "  ";
    return true;
}

bool RecordBuilder::SetIndicator(std::size_t which, std::string_view value) {
    constexpr unsigned char kFirstBeyondAscii = 0x80;
    if (value.size() != 1 || static_cast<unsigned char>(value.front()) >= kFirstBeyondAscii) {
        return Fail("an indicator that is not one character of ASCII");
    }
    if (value.front() == zorby::kDelimiter) return Fail("a delimiter (0x1F) as an indicator");
    if (std::exchange(haveIndicator_[which], true)) return Fail("the same indicator twice");
    text_[fields_.back().start + which] = value.front();
    return true;
}

bool RecordBuilder::AddSubfield(std::string_view code, std::string_view text) {
    if (!IsOneCharacter(code)) return Fail("a subfield code that is not one character");
    if (code.front() == zorby::kDelimiter || text.find(zorby::kDelimiter) != text.npos) {
        return Fail("a delimiter (0x1F) in a subfield");
    }
    text_ += zorby::kDelimiter;
    text_.append(code).append(text);
    return true;
}

bool RecordBuilder::EndDataField() {
    if (!haveIndicator_[0] || !haveIndicator_[1]) {
        return Fail("a data field without two indicators");
    }
    tag_.clear();
    return true;
}

bool RecordBuilder::End() {
    if (Failed()) return false;
    return leader_.empty() ? Fail("no leader") : true;
}

void RecordBuilder::Give(Record& record) const {
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
