#pragma once

#include <quillory/cataloging/Pattern.h>
#include <quillory/cataloging/Punctuator.h>
#include <quillory/exchange/Record.h>
#include <zorby/record/Pmarc.h>

#include <ctime>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace quillory {

// A new record on its way from the workform to the finished record.
//
// A subfield goes into the field of its tag that is being filled, at first one of the workform's.
// If that field has the subfield already, it is repeated if the format allows it, and else begins
// another field of the tag. In the finished record subfields stand in the workform's order; one
// that the workform does not know follows the subfield after which it was given.
class Draft {
public:
    // The record is entered on that day. `putsMarks`: subfields that were not written as a whole
    // field get the marks of the ISBD, if Leader/18 says that the record has them. Keeps the
    // reference.
    Draft(const Pattern& pattern, const std::tm& day, bool putsMarks = false);

    // Throws EntryError for what the format does not allow, and then changes nothing.
    void Take(const Entry& entry);

    // The subfields of the workform's fields that have no text yet, each in the field of its
    // occurrence, in the order in which a cataloger fills them.
    std::vector<Place> Gaps() const;

    // The finished record in UTF-8. Fields without a text of their own are left out. The views hold
    // until the draft is finished again.
    Record Finish();

private:
    struct Field {
        unsigned tag = 0;
        std::string indicators;
        const PatternField* pattern = nullptr;  // null where the workform has no such field
        std::vector<SubfieldText> given;        // an empty text takes the workform's away
        bool isTouched = false;
        bool isWritten = false;      // as it is to stand, with nothing of the workform
        bool hasIndicators = false;  // of its own

        bool Has(char code) const;
        bool IsWanted() const;
    };

    static void CheckRepeats(const Field& field, const Entry& entry);
    void TakeSubfields(const Entry& entry);
    void TakeWrittenField(const Entry& entry);
    void TakeControlField(const Entry& entry);
    void TakePositions(const Entry& entry);

    // These give indexes into `fields_`.
    std::size_t FieldFor(const Entry& entry);
    std::size_t NextField(const Entry& entry);
    std::size_t NumberedField(const Entry& entry);
    std::size_t UntouchedField(unsigned tag, char code) const;
    std::size_t AddField(unsigned tag, char code);
    std::vector<std::size_t> FieldsOf(unsigned tag) const;
    std::vector<ControlField>::iterator FindControlField(const Entry& entry);
    std::size_t CountControlFields(unsigned tag) const;
    std::string& ControlFieldFor(const Entry& entry);

    void AddFinishedFields();
    void AddFinished(const Field& field);
    DraftedField PartsOf(const Field& field) const;
    std::string IndicatorsOf(const Field& field) const;
    Punctuation GetPunctuation() const;
    bool HasAny(unsigned firstTag, unsigned lastTag) const;
    void TakeOverDate();
    std::string DateOfPublication(bool isContinuing) const;

    const Pattern& pattern_;
    bool putsMarks_;
    std::string leader_;
    std::vector<ControlField> controlFields_;  // one without content is left out
    std::set<unsigned> given_;                 // tags of control fields given whole
    std::vector<Field> fields_;                // those of a tag in their order
    std::map<unsigned, std::size_t> current_;  // by tag, the field being filled
    bool hasOwnDate_ = false;                  // date 1 of 008 was given
    zorby::CPmarc record_;
};

}  // namespace quillory
