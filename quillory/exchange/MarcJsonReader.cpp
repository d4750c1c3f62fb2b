#include <quillory/exchange/MarcJson.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>

namespace quillory {
namespace {

constexpr auto npos = std::string_view::npos;

// White space, what stands between the objects of an array, and a byte order mark.
constexpr std::string_view kFrame(" \t\r\n,[]\xEF\xBB\xBF");

// Past the end of the line; npos if that is not in sight.
std::size_t EndOfLine(std::string_view window, std::size_t at) {
    const std::size_t end = window.find('\n', at);
    return end == npos ? npos : end + 1;
}

// The end of an object, up to which it is balanced: with the rest of its line, but for what may
// follow it in an array or a row of objects.
std::size_t EndBehind(std::string_view window, std::size_t end) {
    const std::size_t next = window.find_first_not_of(" \t\r", end);
    if (next == npos) return npos;
    constexpr std::string_view kFollowers = ",]{";
    return kFollowers.find(window[next]) != npos ? end : EndOfLine(window, next);
}

// Looks for the end of the object at the front of a window.
class ObjectScan {
public:
    ObjectScan(std::string_view window, std::size_t indent) : window_(window), indent_(indent) {}

    std::size_t Run() {
        for (; at_ < window_.size(); ++at_) {
            const char c = window_[at_];
            if (c == '\n') {
                inString_ = false;  // no string goes over a line's end
                const std::size_t blanks = BlanksOfNextLine();
                if (blanks == npos) return npos;
                if (ObjectBegins(blanks)) return at_ + 1;
            } else if (inString_) {
                TakeInString(c);
            } else if (TakeOutside(c)) {
                return EndBehind(window_, at_ + 1);
            }
        }
        return npos;
    }

private:
    std::size_t BlanksOfNextLine() const {
        const std::size_t next = window_.find_first_not_of(" \t", at_ + 1);
        return next == npos ? npos : next - at_ - 1;
    }

    // Whether the next line begins an object like this one, which is then cut short. An object laid
    // out without indents is not to be told from its own parts.
    bool ObjectBegins(std::size_t blanks) {
        if (firstLine_) {
            const bool alone = window_.substr(1, at_ - 1).find_first_not_of(" \t\r") == npos;
            toldApart_ = !alone || blanks > indent_;
            firstLine_ = false;
        }
        return toldApart_ && blanks == indent_ && window_[at_ + 1 + blanks] == '{';
    }

    void TakeInString(char c) {
        if (c == '"') inString_ = false;
        if (c == '\\' && at_ + 1 < window_.size() && window_[at_ + 1] != '\n') ++at_;
    }

    // True at the end of the object.
    bool TakeOutside(char c) {
        if (c == '"') inString_ = true;
        if (c == '{' || c == '[') ++depth_;
        if (c == '}' || c == ']') --depth_;
        return depth_ == 0;
    }

    std::string_view window_;
    std::size_t indent_;
    std::size_t at_ = 0;
    std::size_t depth_ = 0;
    bool inString_ = false;
    bool firstLine_ = true;
    bool toldApart_ = false;
};

constexpr const char* kWrongKind = "a value of another kind than its place wants";

// Takes what the parser finds in one object, and puts the record together from it.
class Handler {
public:
    explicit Handler(RecordBuilder& builder) : builder_(builder) {}

    bool start_object(std::size_t) {
        switch (where_) {
            case kBefore:
                return Go(kInRecord);
            case kInFields:
                return Go(kInField);
            case kInField:
                return builder_.AddDataField(key_) && Go(kInData);
            case kInSubfields:
                return Go(kInSubfield);
            default:
                return builder_.Fail(kWrongKind);
        }
    }

    bool end_object() {
        switch (where_) {
            case kInSubfield:
                return Go(kInSubfields);
            case kInData:
                return builder_.EndDataField() && Go(kInField);
            case kInField:
                return Go(kInFields);
            default:
                return builder_.End();
        }
    }

    bool start_array(std::size_t) {
        if (where_ == kInRecord && key_ == "fields") return Go(kInFields);
        if (where_ == kInData && key_ == "subfields") return Go(kInSubfields);
        return builder_.Fail(kWrongKind);
    }

    bool end_array() { return Go(where_ == kInFields ? kInRecord : kInData); }

    bool key(std::string& name) {
        key_.swap(name);
        if (where_ == kInRecord && key_ != "leader" && key_ != "fields") {
            return builder_.Fail("a member that is neither leader nor fields");
        }
        if (where_ == kInData && key_ != "ind1" && key_ != "ind2" && key_ != "subfields") {
            return builder_.Fail("a member that is none of ind1, ind2 and subfields");
        }
        return true;
    }

    bool string(std::string& text) {
        if (where_ == kInRecord && key_ == "leader") return builder_.SetLeader(text);
        if (where_ == kInField) return builder_.AddControlField(key_, text);
        if (where_ == kInSubfield) return builder_.AddSubfield(key_, text);
        if (where_ != kInData || key_ == "subfields") return builder_.Fail(kWrongKind);
        return builder_.SetIndicator(key_ == "ind1" ? 0 : 1, text);
    }

    bool null() { return builder_.Fail(kWrongKind); }
    bool boolean(bool) { return builder_.Fail(kWrongKind); }
    bool number_integer(std::int64_t) { return builder_.Fail(kWrongKind); }
    bool number_unsigned(std::uint64_t) { return builder_.Fail(kWrongKind); }
    bool number_float(double, const std::string&) { return builder_.Fail(kWrongKind); }
    bool binary(const std::vector<std::uint8_t>&) { return builder_.Fail(kWrongKind); }

    // `position` is that of the byte behind the fault, which may be the end of the text.
    bool parse_error(std::size_t position, const std::string&, const std::exception& error) {
        malformedAt_ = position == 0 ? 0 : position - 1;
        return builder_.Fail("malformed JSON: " + Words(error.what()));
    }

    // Where in the text it is malformed; 0 where it is not.
    std::size_t MalformedAt() const { return malformedAt_; }

private:
    enum Where { kBefore, kInRecord, kInFields, kInField, kInData, kInSubfields, kInSubfield };

    bool Go(Where where) {
        where_ = where;
        return true;
    }

    // The parser's words without its own numbers, and without bytes of the file.
    static std::string Words(std::string_view what) {
        constexpr std::string_view kBehindNumbers = ": ";
        const std::size_t start = what.find(kBehindNumbers);
        if (start == npos) return "a number out of range";
        what.remove_prefix(start + kBehindNumbers.size());
        return std::string(what.substr(0, what.find("; last read: ")));
    }

    RecordBuilder& builder_;
    Where where_ = kBefore;
    std::string key_;
    std::size_t malformedAt_ = 0;
};

}  // namespace

std::size_t JsonBlock::EndOfRecord(std::string_view window) const {
    if (window.empty()) return npos;
    const std::size_t frame = window.find_first_not_of(kFrame);
    if (frame != 0) return frame;
    if (window.front() != '{') return EndOfLine(window, 0);
    return ObjectScan(window, place_.indent).Run();
}

std::size_t MarcJsonReader::StrayBytes(std::string_view block, std::string&) const {
    return std::min(block.find_first_not_of(kFrame), block.size());
}

bool MarcJsonReader::Read(std::string_view block, Item& item) {
    builder_.Clear();
    Handler handler(builder_);
    nlohmann::json::sax_parse(block.begin(), block.end(), &handler);
    builder_.Give(item.record);
    if (!builder_.Failed()) return true;
    item.reason = builder_.Reason();
    item.tag = builder_.Tag();
    item.faultOffset += handler.MalformedAt();
    item.faultPlace = Place().After(block.substr(0, handler.MalformedAt()));
    return false;
}

}  // namespace quillory
