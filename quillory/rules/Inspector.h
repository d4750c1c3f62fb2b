#pragma once

#include <quillory/checks/Checker.h>
#include <quillory/coded/CodeLists.h>
#include <quillory/rules/CharacterRules.h>
#include <quillory/rules/NumberMet.h>
#include <quillory/rules/OtherFormats.h>
#include <quillory/rules/OwnRules.h>
#include <quillory/rules/Remark.h>
#include <quillory/rules/RuleChoice.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/SeenNumbers.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillory {

// What a record by itself gives rise to. Numbers are those that a rule in force is about, as views
// of its bytes.
struct RecordLook {
    std::vector<Remark> remarks;  // that are kept
    std::vector<NumberMet> numbers;
    std::optional<Severity> heaviest;  // of all that was found
    bool isUnimarc = false;
};

// Holds records against all rules: those of the library, and what the format and good practice ask
// beyond them. Records of other formats than the bibliographic one are held against the tables of
// their own, those of UNIMARC against nothing.
class Inspector {
public:
    // `charset` is that of the records; auto: each record says it. Policy and dictionaries are in
    // force. Keeps the reference.
    // Keeps what `ownRules` points to, if it does.
    Inspector(CheckerOptions options, const RuleWeights& weights, const CodeLists& lists,
              OwnRules* ownRules = nullptr);

    // Records of the files that follow are named by their numbers alone within this one.
    void BeginFile(const std::string& name) {
        numbers_.BeginFile(name);
        hasToldUnimarc_ = false;
    }

    // From now on, only the first few remarks by each rule are kept. All are counted.
    void KeepOnly(std::uint64_t ofEachRule) { taking_.ofEachRule = ofEachRule; }
    // Of all that this inspector found.
    const RemarkCounts& Counts() const { return taking_.counts; }

    // Replaces `remarks`: in the order of the fields, and then what the record lacks. `number` is
    // that of the record in its file.
    void Inspect(const Record& record, std::uint64_t number, std::vector<Remark>& remarks);

    // The same in two steps. The first does not depend on other records, and any inspector of the
    // same rules can do it; the second adds what depends on the records before this one.
    void Look(const Record& record, RecordLook& look);
    void Compare(std::uint64_t number, RecordLook& look);

private:
    void CheckBibliographic(RecordLook& look, RemarkSink& remarks);
    void TakeFindings(const Record& record, const RecordInHand& inHand, RemarkSink& remarks);
    void NoteControlNumber(const Record& record, RecordLook& look) const;
    void NoteNumbers(RecordLook& look) const;

    CheckerOptions options_;
    Checker checker_;
    RuleWeights weights_;
    RemarkTaking taking_;
    RecordInHand record_;
    CodedRules coded_;
    OtherFormats others_;
    CharacterRules characters_;
    SeenNumbers numbers_;
    OwnRules* ownRules_;
    std::vector<Finding> findings_;
    RecordLook look_;
    bool hasToldUnimarc_ = false;  // of the file in hand
};

}  // namespace quillory
