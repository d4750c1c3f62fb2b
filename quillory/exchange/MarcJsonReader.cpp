#include <quillory/exchange/JsonFault.h>
#include <quillory/exchange/MarcJson.h>
#include <quillory/faults/FaultCode.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <utility>

namespace quillory {
namespace {

constexpr auto npos = std::string_view::npos;

// White space, what stands between the objects of an array, and a byte order mark.
constexpr std::string_view kFrame(" \t\r\n,[]\xEF\xBB\xBF");

// Where the next line begins; npos if that is not in sight.
std::size_t EndOfLine(std::string_view window, std::size_t at) {
    const std::size_t end = window.find('\n', at);
    return end == npos ? npos : end + 1;
}

// Where an object ends of which the last brace has been found: after its line, or before what may
// follow an object in an array or a row.
std::size_t EndAfterBrace(std::string_view window, std::size_t end) {
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
                inString_ = false;  // no string goes on after a line's end
                const std::size_t blanks = BlanksOfNextLine();
                if (blanks == npos) return npos;
                if (ObjectBegins(blanks)) return at_ + 1;
            } else if (inString_) {
                TakeInString(c);
            } else if (TakeOutside(c)) {
                return EndAfterBrace(window_, at_ + 1);
            }
        }
        return npos;
    }

private:
    std::size_t BlanksOfNextLine() const {
        const std::size_t next = window_.find_first_not_of(" \t", at_ + 1);
        return next == npos ? npos : next - at_ - 1;
    }

    // Whether the next line begins an object like this one, which is then cut short. An object that
    // is laid out without indents looks like its own parts, so that none can be found in it.
    bool ObjectBegins(std::size_t blanks) {
        const bool isBrace = window_[at_ + 1 + blanks] == '{';
        if (firstLine_) {
            const bool alone = window_.substr(1, at_ - 1).find_first_not_of(" \t\r") == npos;
            objectsStandOut_ = !alone || isBrace || blanks > indent_;
            firstLine_ = false;
        }
        return objectsStandOut_ && isBrace && blanks == indent_;
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
    bool objectsStandOut_ = false;  // a line can be seen to begin an object
};

// Puts a record together from what the parser finds in one object. After a fault in the record the
// parser goes on, since malformed JSON is what to report first.
class Handler {
public:
    explicit Handler(RecordBuilder& builder) : builder_(builder) {}

    void Parse(std::string_view text) {
        if (nlohmann::json::sax_parse(text.begin(), text.end(), this)) malformed_ = NulByteOf(text);
    }

    bool start_object(std::size_t) {
        if (builder_.Failed() || BeginsForeign()) return true;
        switch (where_) {
            case kBefore:
                return Go(kInRecord);
            case kInFields:
                return Go(kInField);
            case kInField:
                builder_.AddDataField(key_);
                return Go(kInData);
            case kInSubfields:
                return Go(kInSubfield);
            default:
                return MisplacedPart();
        }
    }

    bool end_object() {
        if (builder_.Failed() || EndsForeign()) return true;
        switch (where_) {
            case kInSubfield:
                return Go(kInSubfields);
            case kInData:
                builder_.EndDataField();
                return Go(kInField);
            case kInField:
                return Go(kInFields);
            default:
                builder_.End();
                return true;
        }
    }

    bool start_array(std::size_t) {
        if (builder_.Failed() || BeginsForeign()) return true;
        if (where_ == kInRecord && key_ == "fields") return Go(kInFields);
        if (where_ == kInData && key_ == "subfields") return Go(kInSubfields);
        return MisplacedPart();
    }

    bool end_array() {
        if (builder_.Failed() || EndsForeign()) return true;
        return Go(where_ == kInFields ? kInRecord : kInData);
    }

    bool key(std::string& name) {
        if (builder_.Failed() || foreignDepth_ != 0) return true;
        key_.swap(name);
        const bool isForeign =
            (where_ == kInRecord && key_ != "leader" && key_ != "fields") ||
            (where_ == kInData && key_ != "ind1" && key_ != "ind2" && key_ != "subfields");
        if (isForeign) {
            builder_.Note(FaultCode::kForeignParts);
            foreignComes_ = true;
        }
        return true;
    }

    bool string(const std::string& text) {
        if (builder_.Failed() || IsForeignValue()) return true;
        if (where_ == kInRecord && key_ == "leader") {
            builder_.SetLeader(text);
        } else if (where_ == kInField) {
            builder_.AddControlField(key_, text);
        } else if (where_ == kInSubfield) {
            builder_.AddSubfield(key_, text);
        } else if (IsIndicator()) {
            builder_.SetIndicator(key_ == "ind1" ? 0 : 1, text);
        } else {
            return Misplaced();
        }
        return true;
    }

    // For an indicator, nothing.
    bool null() { return IsForeignValue() || IsIndicator() || Misplaced(); }
    bool boolean(bool) { return IsForeignValue() || Misplaced(); }
    bool number_integer(std::int64_t) { return IsForeignValue() || Misplaced(); }
    bool number_unsigned(std::uint64_t number) {
        if (IsForeignValue()) return true;
        return IsIndicator() ? string(std::to_string(number)) : Misplaced();
    }
    bool number_float(double, const std::string&) { return IsForeignValue() || Misplaced(); }
    bool binary(const std::vector<std::uint8_t>&) { return Misplaced(); }

    bool parse_error(std::size_t position, const std::string&, const std::exception& error) {
        malformed_ = MalformedJson(error.what(), position);
        if (!builder_.Failed()) malformed_->place = builder_.PlaceInHand();
        return false;
    }

    // The offset counts from the start of the text.
    const std::optional<ItemFault>& Malformed() const { return malformed_; }

private:
    enum Where { kBefore, kInRecord, kInFields, kInField, kInData, kInSubfields, kInSubfield };

    bool Go(Where where) {
        where_ = where;
        return true;
    }

    bool Misplaced() {
        builder_.Fail(FaultCode::kMisplacedValue);
        return true;
    }

    bool IsIndicator() const { return where_ == kInData && key_ != "subfields"; }

    // An object or array, which is passed over.
    bool MisplacedPart() {
        ++foreignDepth_;
        return Misplaced();
    }

    // The value of a foreign member is passed over, whatever it is made of.
    bool IsForeignValue() { return foreignDepth_ != 0 || std::exchange(foreignComes_, false); }

    bool BeginsForeign() {
        if (!IsForeignValue()) return false;
        ++foreignDepth_;
        return true;
    }

    bool EndsForeign() {
        if (foreignDepth_ == 0) return false;
        --foreignDepth_;
        return true;
    }

    RecordBuilder& builder_;
    bool foreignComes_ = false;  // the next value is that of a foreign member
    std::size_t foreignDepth_ = 0;
    Where where_ = kBefore;
    std::string key_;
    std::optional<ItemFault> malformed_;
};

}  // namespace

// A damaged object ends before a line that begins like its own.
std::size_t MarcJsonReader::EndOfRecord(std::string_view window) const {
    if (window.empty()) return npos;
    const std::size_t frame = window.find_first_not_of(kFrame);
    if (frame != 0) return frame;
    if (window.front() != '{') return EndOfLine(window, 0);
    return ObjectScan(window, Indent()).Run();
}

std::size_t MarcJsonReader::StrayBytes(std::string_view block, FaultCode&) {
    const std::string_view frame = block.substr(0, block.find_first_not_of(kFrame));
    openArrays_ += std::ranges::count(frame, '[');
    openArrays_ -= std::ranges::count(frame, ']');
    return frame.size();
}

// A damaged record may have taken in the end of the array.
FaultCode MarcJsonReader::MissingAtEnd(bool sound) {
    return sound && openArrays_ > 0 ? FaultCode::kArrayNotClosed : FaultCode::kNone;
}

void MarcJsonReader::Read(std::string_view block, Item& item) {
    builder_.Clear();
    Handler handler(builder_);
    handler.Parse(block.substr(0, block.find_last_not_of(" \t\r\n") + 1));
    builder_.Give(item);
    const auto& damage = builder_.Damage(lenient_);
    if (!handler.Malformed() && !damage) return;
    item.kind = kItemDamaged;
    item.fault = handler.Malformed() ? *handler.Malformed() : ItemFault{*damage};
}

}  // namespace quillory
