#include <quillory/exchange/PlainXml.h>
#include <quillory/text/PlainBytes.h>
#include <quillory/text/Utf8Size.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

// Bytes that stand for themselves in text and in an attribute, whatever is beside them.
bool IsPlain(std::string_view text) {
    return IsAsciiWithout<' ', '&', '<', '>'>(text);
}

// Whether that can be the value of an attribute, all of it as it stands there.
bool IsPlainValue(std::string_view value) {
    return std::ranges::all_of(
        value, [](char c) { return c >= ' ' && c < 0x7F && c != '"' && c != '&' && c != '<'; });
}

// No tag of a record does.
bool HoldsBlank(std::string_view tag) {
    return tag.find(' ') != tag.npos;
}

// Whether a byte of text is a character that stands for itself, whatever is beside it.
bool StandsAlone(char c) {
    constexpr unsigned char kFirstBeyondAscii = 0x80;
    if (static_cast<unsigned char>(c) >= kFirstBeyondAscii) return false;
    return c < ' ' ? c == '\n' || c == '\t' : c != '&' && c != '<' && c != '>';
}

// Bytes of such characters, and of those beyond ASCII, at the front of a text.
std::size_t SizeOfPlainRun(std::string_view text) {
    std::size_t size = 0;
    while (size < text.size()) {
        const std::size_t next = StandsAlone(text[size]) ? 1 : XmlCharacterSize(text.substr(size));
        if (next == 0) break;
        size += next;
    }
    return size;
}

struct Entity {
    std::string_view name;
    char sign;
};

// The entity at the front of a text; without a name if it is none of those of XML itself.
Entity EntityAt(std::string_view text) {
    constexpr std::array<Entity, 5> kEntities{
        {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    for (const Entity& entity : kEntities) {
        if (text.starts_with(entity.name)) return entity;
    }
    return {};
}

}  // namespace

PlainXml::Element PlainXml::ElementOf(std::string_view name) const {
    const std::string whole = prefix_ + std::string(name);
    return {"<" + whole, "</" + whole + ">"};
}

void PlainXml::SetStartTag(std::string_view tag) {
    if (tag == recordStart_) return;
    recordStart_ = tag;
    const std::string_view name = tag.substr(1, tag.find_first_of(" \t\r\n") - 1);
    const std::size_t colon = name.find(':');
    prefix_ = colon == name.npos ? std::string_view{} : name.substr(0, colon + 1);
    recordEnd_ = ElementOf("record").end;
    leader_ = ElementOf("leader");
    controlField_ = ElementOf("controlfield");
    dataField_ = ElementOf("datafield");
    subfield_ = ElementOf("subfield");
}

bool PlainXml::StopShort() {
    isCutShort_ = true;
    return false;
}

std::string_view PlainXml::SkipBlanks() {
    std::size_t size = 0;
    while (size < rest_.size() && IsBlank(rest_[size])) ++size;
    const std::string_view blanks = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return blanks;
}

bool PlainXml::TakeIf(std::string_view literal) {
    if (literal.empty() || !IsAt(literal)) return false;
    rest_.remove_prefix(literal.size());
    return true;
}

bool PlainXml::Take(std::string_view literal) {
    if (!IsAt(literal)) return rest_.size() < literal.size() && StopShort();
    rest_.remove_prefix(literal.size());
    return true;
}

bool PlainXml::ReadValue(Attribute& attribute) {
    if (std::exchange(attribute.isGiven, true)) return false;
    rest_.remove_prefix(attribute.name.size());
    const std::size_t size = rest_.find('"');
    if (size == rest_.npos) return StopShort();
    attribute.value = rest_.substr(0, size);
    rest_.remove_prefix(size + 1);
    return IsPlainValue(attribute.value);
}

// Up to the end of a start tag.
template <std::size_t kSize>
bool PlainXml::ReadAttributes(std::array<Attribute, kSize>& attributes) {
    constexpr std::size_t kLongestName = 6;
    while (!rest_.starts_with('>')) {
        if (!Take(" ")) return false;
        const auto known = std::ranges::find_if(
            attributes, [this](const Attribute& attribute) { return IsAt(attribute.name); });
        if (known == attributes.end()) return rest_.size() < kLongestName && StopShort();
        if (!ReadValue(*known)) return false;
    }
    rest_.remove_prefix(1);
    return true;
}

bool PlainXml::Unescape(std::string_view text) {
    unescaped_.clear();
    while (!text.empty()) {
        std::size_t size = SizeOfPlainRun(text);
        if (text.starts_with('>') && !unescaped_.ends_with("]]")) size = 1;
        unescaped_.append(text.substr(0, size));
        if (size == 0) {
            const Entity entity = EntityAt(text);
            if (entity.name.empty()) return false;
            unescaped_ += entity.sign;
            size = entity.name.size();
        }
        text.remove_prefix(size);
    }
    text_ = unescaped_;
    return true;
}

// Up to the next tag.
bool PlainXml::ReadText() {
    const std::size_t size = rest_.find('<');
    if (size == rest_.npos) return StopShort();
    text_ = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return IsPlain(text_) || Unescape(text_);
}

bool PlainXml::ReadLeader() {
    return Take(">") && ReadText() && Take(leader_.end) && builder_->SetLeader(text_);
}

bool PlainXml::ReadControlField() {
    std::array<Attribute, 1> attributes{{{"tag=\""}}};
    return ReadAttributes(attributes) && ReadText() && Take(controlField_.end) &&
           !HoldsBlank(attributes[0].value) &&
           builder_->AddControlField(attributes[0].value, text_);
}

// As far as its text.
bool PlainXml::ReadSubfield() {
    std::array<Attribute, 1> attributes{{{"code=\""}}};
    return Take(subfield_.start) && ReadAttributes(attributes) && ReadText() &&
           builder_->AddSubfield(attributes[0].value, text_);
}

// After what stands before its code, and more of them after what stands between them.
bool PlainXml::ReadUsualSubfields() {
    do {
        const std::string_view code = rest_.substr(0, 1);
        rest_.remove_prefix(code.size());
        const bool isRead =
            IsPlainValue(code) && Take("\">") && ReadText() && builder_->AddSubfield(code, text_);
        if (!isRead) return false;
    } while (TakeIf(beforeNext_));
    return true;
}

bool PlainXml::ReadSubfields() {
    bool inSubfield = TakeIf(beforeCode_);
    if (inSubfield && !ReadUsualSubfields()) return false;
    for (;;) {
        if (inSubfield && TakeIf(beforeEnd_)) return true;
        if (inSubfield && !Take(subfield_.end)) return false;
        const std::string_view blanks = SkipBlanks();
        if (IsAt("</")) {
            beforeEnd_.assign(subfield_.end).append(blanks).append(dataField_.end);
            return Take(dataField_.end);
        }
        if (!ReadSubfield()) return false;
        beforeCode_.assign(blanks).append(subfield_.start).append(" code=\"");
        beforeNext_.assign(subfield_.end).append(beforeCode_);
        inSubfield = true;
        if (TakeIf(beforeNext_) && !ReadUsualSubfields()) return false;
    }
}

// The rest of a start tag in the usual order, after what stands before the value of its tag.
bool PlainXml::ReadUsualTag() {
    constexpr std::string_view kFirst = "\" ind1=\"";
    constexpr std::string_view kSecond = "\" ind2=\"";
    constexpr std::string_view kEnd = "\">";
    constexpr std::size_t kFirstAt = kTagSize + kFirst.size();
    constexpr std::size_t kSecondAt = kFirstAt + 1 + kSecond.size();
    constexpr std::size_t kEndAt = kSecondAt + 1;
    if (rest_.size() < kEndAt + kEnd.size()) return false;
    values_ = {rest_.substr(0, kTagSize), rest_.substr(kFirstAt, 1), rest_.substr(kSecondAt, 1)};
    const bool isUsual = rest_.substr(kTagSize, kFirst.size()) == kFirst &&
                         rest_.substr(kFirstAt + 1, kSecond.size()) == kSecond &&
                         rest_.substr(kEndAt, kEnd.size()) == kEnd &&
                         std::ranges::all_of(values_, IsPlainValue);
    if (isUsual) rest_.remove_prefix(kEndAt + kEnd.size());
    return isUsual;
}

bool PlainXml::ReadTag() {
    std::array<Attribute, 3> attributes{{{"tag=\""}, {"ind1=\""}, {"ind2=\""}}};
    if (!ReadAttributes(attributes)) return false;
    for (std::size_t i = 0; i < values_.size(); ++i) values_[i] = attributes[i].value;
    return true;
}

// After its start tag.
bool PlainXml::ReadDataField() {
    return !HoldsBlank(values_[0]) && builder_->AddDataField(values_[0]) &&
           builder_->SetIndicator(0, values_[1]) && builder_->SetIndicator(1, values_[2]) &&
           ReadSubfields() && builder_->EndDataField();
}

bool PlainXml::ReadFields() {
    for (;;) {
        const std::string_view before = rest_;
        if (TakeIf(beforeTag_) && ReadUsualTag()) {
            if (!ReadDataField()) return false;
            continue;
        }
        rest_ = before;
        const std::string_view blanks = SkipBlanks();
        if (IsAt("</")) return true;
        if (TakeIf(dataField_.start)) {
            beforeTag_.assign(blanks).append(dataField_.start).append(" tag=\"");
            if (!ReadTag() || !ReadDataField()) return false;
        } else if (!ReadOtherPart()) {
            return false;
        }
    }
}

bool PlainXml::ReadOtherPart() {
    if (TakeIf(controlField_.start)) return ReadControlField();
    if (TakeIf(leader_.start)) return ReadLeader();
    return rest_.size() < controlField_.start.size() && StopShort();
}

bool PlainXml::ReadRecord() {
    return Take(recordStart_) && Take(">") && ReadFields() && Take(recordEnd_) && builder_->End();
}

PlainXml::Reading PlainXml::Read(std::string_view xml, RecordBuilder& builder) {
    builder_ = &builder;
    builder.Clear();
    isCutShort_ = false;
    rest_ = xml;
    blanks_ = SkipBlanks().size();
    const bool isRead = ReadRecord();
    size_ = xml.size() - rest_.size();
    if (isRead) return kRead;
    return isCutShort_ ? kCutShort : kNotPlain;
}

}  // namespace quillory
