#pragma once

#include <quillory/cataloging/Pattern.h>
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
// Subfields go into the field of their tag that is being filled, at first the workform's. One that
// is there already is repeated if the format allows it, and else begins another field of the tag.
// In the finished record subfields stand in the workform's order; one that the workform does not
// know stays behind the one after which it was given.
class Draft {
public:
    // Of a record that is entered on that day. Keeps the reference.
    Draft(const Pattern& pattern, const std::tm& day);

    // Throws EntryError for what the format does not allow; the draft is then as it was.
    void Take(const Entry& entry);

    // A subfield of a workform's field that has no text yet.
    struct Gap {
        unsigned tag = 0;
        int occurrence = 0;  // as in Entry
        char code = 0;
    };
    // In the order in which a cataloger fills them.
    std::vector<Gap> Gaps() const;

    // The finished record in UTF-8. Fields without a text of their own are left out. The views hold
    // until the draft is finished again.
    Record Finish();

private:
    struct Field {
        unsigned tag = 0;
        std::string indicators;
        const PatternField* pattern = nullptr;  // null for one that the workform has not
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

    // These give places in `fields_`.
    std::size_t FieldFor(const Entry& entry);
    std::size_t NextField(const Entry& entry);
    std::size_t NumberedField(const Entry& entry);
    std::size_t UntouchedField(unsigned tag, char code) const;
    std::size_t AddField(unsigned tag, char code);
    std::vector<std::size_t> FieldsOf(unsigned tag) const;
    std::vector<ControlField>::iterator FindControlField(const Entry& entry);
    std::string& ControlFieldFor(const Entry& entry);

    void AddFinishedFields();
    void AddFinished(const Field& field);
    std::vector<SubfieldText> SubfieldsOf(const Field& field) const;
    bool HasMainEntry() const;
    void TakeOverDate();
    std::string DateOfPublication(bool isContinuing) const;

    const Pattern& pattern_;
    std::string leader_;
    std::vector<ControlField> controlFields_;  // one without content is left out
    std::set<unsigned> given_;                 // tags of control fields given whole
    std::vector<Field> fields_;                // those of a tag in their order
    std::map<unsigned, std::size_t> current_;  // by tag, the field being filled
    bool hasOwnDate_ = false;                  // date 1 of 008 was given
    zorby::CPmarc record_;
};

}  // namespace quillory
