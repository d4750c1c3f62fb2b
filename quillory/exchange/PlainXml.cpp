#include <quillory/exchange/PlainXml.h>
#include <quillory/text/PlainXmlText.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillory {
namespace {

constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

// The characters that stand in the value of an attribute as they are.
constexpr auto kPlainInValues = [] {
    std::array<bool, 256> isPlain{};
    for (unsigned char c = ' '; c < 0x7F; ++c) isPlain[c] = c != '"' && c != '&' && c != '<';
    return isPlain;
}();

constexpr bool IsPlainValue(char c) {
    return kPlainInValues[static_cast<unsigned char>(c)];
}

bool IsPlainValue(std::string_view value) {
    return std::ranges::all_of(value, [](char c) { return IsPlainValue(c); });
}

// Whether that can be the tag of a field.
bool IsTagValue(std::string_view value) {
    return std::ranges::all_of(value, [](char c) { return c != ' ' && IsPlainValue(c); });
}

// The same as starts_with, for the tags and blanks that stand between texts. Compilers make a few
// instructions of the comparison of a block whose size they know; blocks may overlap.
inline bool StartsWith(std::string_view text, std::string_view literal) {
    constexpr std::size_t kBlock = 16;
    const auto isSameBlock = [&](std::size_t at) {
        return std::memcmp(text.data() + at, literal.data() + at, kBlock) == 0;
    };
    const std::size_t size = literal.size();
    if (size < kBlock || size > 4 * kBlock) return text.starts_with(literal);
    if (text.size() < size || !isSameBlock(0) || !isSameBlock(size - kBlock)) return false;
    return size <= 2 * kBlock || (isSameBlock(kBlock) && isSameBlock(size - 2 * kBlock));
}

inline bool TakeLiteral(std::string_view literal, std::string_view& rest) {
    if (literal.empty() || !StartsWith(rest, literal)) return false;
    rest.remove_prefix(literal.size());
    return true;
}

// What stands in text for a sign.
struct WrittenSign {
    std::string_view written;
    char sign;
};

constexpr std::array<WrittenSign, 9> kWrittenSigns{{{"\"", '"'},
                                                    {"&amp;", '&'},
                                                    {"&lt;", '<'},
                                                    {"&gt;", '>'},
                                                    {"&quot;", '"'},
                                                    {"&apos;", '\''},
                                                    {"\n", '\n'},
                                                    {"\t", '\t'},
                                                    {">", '>'}}};

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
    // These are of the prefix before.
    for (std::string* const literal :
         {&beforeTag_, &beforeControlTag_, &beforeCode_, &beforeNext_, &beforeEnd_}) {
        literal->clear();
    }
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
    return TakeLiteral(literal, rest_);
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

// Up to the next tag.
bool PlainXml::ReadText(TextBuilder& text) {
    for (;;) {
        rest_.remove_prefix(AppendPlainXml(rest_, text));
        if (rest_.starts_with('<')) return true;
        if (!ReadSigns(text)) return false;
    }
}

// Characters beyond ASCII, or a sign that has a meaning beside others or is written in another way.
bool PlainXml::ReadSigns(TextBuilder& text) {
    constexpr std::size_t kLongest = 6;
    if (const std::size_t size = AppendXmlBeyondAscii(rest_, text)) {
        rest_.remove_prefix(size);
        return true;
    }
    for (const auto& [written, sign] : kWrittenSigns) {
        if (!IsAt(written)) continue;
        if (written == ">" && text.Text().ends_with("]]")) return false;
        text += sign;
        rest_.remove_prefix(written.size());
        return true;
    }
    return rest_.size() < kLongest && StopShort();
}

bool PlainXml::ReadLeader() {
    leaderText_.Clear();
    return Take(">") && ReadText(leaderText_) && Take(leader_.end) &&
           builder_->SetLeader(leaderText_.Text());
}

bool PlainXml::ReadControlField() {
    std::array<Attribute, 1> attributes{{{"tag=\""}}};
    return ReadAttributes(attributes) && ReadControlText(attributes[0].value);
}

// After its start tag.
bool PlainXml::ReadControlText(std::string_view tag) {
    const bool isRead = IsTagValue(tag) && builder_->BeginControlField(tag) &&
                        ReadText(builder_->Text()) && Take(controlField_.end);
    if (isRead) builder_->EndControlField();
    return isRead;
}

// After what stands before the value of its tag. False, with nothing read, if there is more in its
// start tag.
bool PlainXml::ReadUsualControlTag(std::string_view& tag) {
    constexpr std::string_view kEnd = "\">";
    tag = rest_.substr(0, kTagSize);
    const bool isUsual = IsTagValue(tag) && rest_.substr(tag.size()).starts_with(kEnd);
    if (isUsual) rest_.remove_prefix(tag.size() + kEnd.size());
    return isUsual;
}

// As far as its text.
bool PlainXml::ReadSubfield() {
    std::array<Attribute, 1> attributes{{{"code=\""}}};
    const auto& code = attributes[0].value;
    if (!Take(subfield_.start) || !ReadAttributes(attributes) || code.size() != 1) return false;
    builder_->BeginSubfield(code.front());
    return ReadText(builder_->Text());
}

// After what stands before its code, and more of them after what stands between them.
bool PlainXml::ReadUsualSubfields() {
    constexpr std::string_view kForm = ".\">";
    TextBuilder& text = builder_->Text();
    std::string_view rest = rest_;  // on which the compiler can work without looks at memory
    do {
        if (rest.size() < kForm.size()) return StopShort();
        const char code = rest.front();
        if (!IsPlainValue(code) || rest[1] != kForm[1] || rest[2] != kForm[2]) return false;
        rest.remove_prefix(kForm.size());
        builder_->BeginSubfield(code);
        rest.remove_prefix(AppendPlainXml(rest, text));
        if (!rest.starts_with('<')) {
            rest_ = rest;
            if (!ReadText(text)) return false;
            rest = rest_;
        }
    } while (TakeLiteral(beforeNext_, rest));
    rest_ = rest;
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
    constexpr std::string_view kForm = "...\" ind1=\".\" ind2=\".\">";
    constexpr std::size_t kFirstAt = kForm.find('.', kTagSize);
    constexpr std::size_t kSecondAt = kForm.find('.', kFirstAt + 1);
    const auto isAsInForm = [this, &kForm](std::size_t from, std::size_t to) {
        return std::memcmp(rest_.data() + from, kForm.data() + from, to - from) == 0;
    };
    if (rest_.size() < kForm.size()) return false;
    const std::string_view tag(rest_.data(), kTagSize);
    const char first = rest_[kFirstAt];
    const char second = rest_[kSecondAt];
    const bool isUsual = isAsInForm(kTagSize, kFirstAt) && isAsInForm(kFirstAt + 1, kSecondAt) &&
                         isAsInForm(kSecondAt + 1, kForm.size()) && IsTagValue(tag) &&
                         IsPlainValue(first) && IsPlainValue(second);
    if (!isUsual) return false;
    builder_->BeginDataField(tag, first, second);
    rest_.remove_prefix(kForm.size());
    return true;
}

bool PlainXml::ReadTag() {
    std::array<Attribute, 3> attributes{{{"tag=\""}, {"ind1=\""}, {"ind2=\""}}};
    return ReadAttributes(attributes) && IsTagValue(attributes[0].value) &&
           builder_->AddDataField(attributes[0].value) &&
           builder_->SetIndicator(0, attributes[1].value) &&
           builder_->SetIndicator(1, attributes[2].value);
}

// After its start tag.
bool PlainXml::ReadDataField() {
    return ReadSubfields() && builder_->EndDataField();
}

bool PlainXml::ReadFields() {
    for (;;) {
        const std::string_view before = rest_;
        if (TakeIf(beforeTag_) && ReadUsualTag()) {
            if (!ReadDataField()) return false;
            continue;
        }
        rest_ = before;
        std::string_view tag;
        if (TakeIf(beforeControlTag_) && ReadUsualControlTag(tag)) {
            if (!ReadControlText(tag)) return false;
            continue;
        }
        rest_ = before;
        const std::string_view blanks = SkipBlanks();
        if (IsAt("</")) return true;
        if (TakeIf(dataField_.start)) {
            beforeTag_.assign(blanks).append(dataField_.start).append(" tag=\"");
            if (!ReadTag() || !ReadDataField()) return false;
        } else if (TakeIf(controlField_.start)) {
            beforeControlTag_.assign(blanks).append(controlField_.start).append(" tag=\"");
            if (!ReadControlField()) return false;
        } else if (!ReadOtherPart()) {
            return false;
        }
    }
}

bool PlainXml::ReadOtherPart() {
    if (TakeIf(leader_.start)) return ReadLeader();
    return rest_.size() < controlField_.start.size() && StopShort();
}

bool PlainXml::ReadRecord() {
    return Take(recordStart_) && Take(">") && ReadFields() && Take(recordEnd_) && builder_->End();
}

PlainXml::Reading PlainXml::Read(std::string_view xml, RecordBuilder& builder) {
    builder_ = &builder;
    isCutShort_ = false;
    rest_ = xml;
    blanks_ = SkipBlanks().size();
    const bool isRead = ReadRecord();
    size_ = xml.size() - rest_.size();
    if (isRead) return kRead;
    return isCutShort_ ? kCutShort : kNotPlain;
}

}  // namespace quillory
