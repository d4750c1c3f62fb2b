#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/text/TextBuilder.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Puts a record together from the parts that XML and JSON name. A step returns false if no record
// can be made so, or the field in hand is left out, and the fault says why.
class RecordBuilder {
public:
    void Clear();

    // Where the next record begins, if the builder holds several, one behind the other.
    struct Mark {
        std::size_t text = 0;
        std::size_t field = 0;
        std::size_t note = 0;
    };
    Mark Here() const { return {text_.Size(), fields_.size(), notes_.size()}; }
    // Begins a record behind those before it, which stay; what came after the mark goes.
    void BeginAt(const Mark& mark);

    // Up to 24 bytes, filled up with blanks, or 24 with blanks around them. Byte 09 becomes UTF-8,
    // in which these forms are.
    bool SetLeader(std::string_view leader);
    bool AddControlField(std::string_view tag, std::string_view text);
    // Followed by both indicators and any subfields, in any order, and EndDataField. An indicator
    // that is empty or not given is a blank, one beyond ASCII is taken for a blank.
    bool AddDataField(std::string_view tag);
    bool SetIndicator(std::size_t which, std::string_view value);
    bool AddSubfield(std::string_view code, std::string_view text);
    bool EndDataField();

    // The same for parts that are known to be sound, whose text is appended to Text. A tag has
    // three bytes, indicators and codes are of printable ASCII, and no delimiter is in the text.
    bool BeginControlField(std::string_view tag);
    void EndControlField() { EndField(); }
    void BeginDataField(std::string_view tag, char first, char second);
    void BeginSubfield(char code) { text_.AppendPair(zorby::kDelimiter, code); }
    TextBuilder& Text() { return text_; }

    bool End();
    // Notes what is wrong. The field in hand is left out; if there is none, there is no record. Of
    // several faults the first counts.
    bool Fail(FaultCode code, std::string_view found = {}, std::string_view allowed = {});

    // Makes no record of it, whatever is in hand.
    void Abandon(FaultCode code) { fault_ = {code}; }

    // Counts what leaves no doubt.
    void Note(FaultCode code) { notes_.push_back(code); }

    bool Failed() const { return fault_.has_value(); }
    bool Empty() const { return leader_.empty() && fields_.empty(); }
    // What makes damage of the record. With `lenient` a field that is left out does not.
    const std::optional<Fault>& Damage(bool lenient) const {
        return lenient || Failed() ? fault_ : leftOut_;
    }
    // Of the field that is begun; of the record as a whole between fields.
    Place PlaceInHand() const;
    // The fields put in so far, as views that last until the next Clear, with what was noted, and
    // with what was read otherwise, if anything was, as its fault and its mends.
    void Give(Item& item) const;

    // The same for the record between two marks, if it was made of sound parts alone. Its leader,
    // which only the last record has here, is left out.
    void GiveBetween(const Mark& begin, const Mark& end, Item& item) const;
    std::string_view Leader() const { return leader_; }

private:
    struct Field {
        std::array<char, kTagSize> tag{};
        std::size_t start = 0;  // of its content, which goes as far as the next one's
    };

    bool BeginField(std::string_view tag);
    void EndField();
    bool Fail(Fault fault);
    void LeaveOut(const Fault& fault);
    bool FailIndicator(std::size_t which, FaultCode code);
    void GiveFields(const Mark& begin, const Mark& end, Record& record) const;

    std::string leader_;
    TextBuilder text_;  // contents
    std::vector<Field> fields_;
    std::array<bool, 2> haveIndicator_{};
    bool inField_ = false;
    bool isLeftOut_ = false;  // the field in hand
    std::optional<Fault> fault_;
    std::optional<Fault> leftOut_;  // the first field
    std::vector<Fault> mended_;     // indicators taken for blanks, fields left out
    std::vector<FaultCode> notes_;
};

}  // namespace quillory
