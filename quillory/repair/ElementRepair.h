#pragma once

#include <quillory/faults/Fault.h>
#include <quillory/repair/AllowedValues.h>
#include <quillory/repair/KnownValues.h>
#include <quillory/repair/RecordEvidence.h>
#include <quillory/repair/RepairClass.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// What is to become of a value that the format does not allow.
struct Judgement {
    RepairClass repairClass = RepairClass::UnknownValue;
    std::string value;             // to put in its place; empty if it is left as it is
    std::string_view source = {};  // of the value, where it is neither the value nor the format
    FaultCode left = {};           // why nothing can be put there
    bool isOfRecord = false;       // whether it may be another one in another record
};

// Judges the elements of coded fields so that no record gets worse: a value that the format allows,
// or ever allowed, stays, and no other comes to say what the record did not say.
class ElementRepair {
public:
    // Keeps the reference.
    explicit ElementRepair(const CodeLists& lists);

    // Nothing for a value that may stay. `isIn008` says that the element stands in the 008, which
    // the facts speak of.
    std::optional<Judgement> Judge(const Element& element, std::string_view value, bool isIn008,
                                   const RecordEvidence& facts);

    // Why the bytes of an 008 can't be told apart: it is too short, or lost or gained a byte before
    // its end, or holds something else.
    std::optional<FaultCode> WhyNot008(std::string_view field008);

private:
    Judgement JudgeMisfit(const Element& element, std::string_view value, bool isIn008,
                          const RecordEvidence& facts);
    Judgement JudgeUndefined(const Element& element, std::string_view value) const;
    Judgement JudgeCountry(const Element& element, std::string_view value,
                           const RecordEvidence& facts);
    Judgement JudgeCountryCode(const Element& element, std::string_view value,
                               const RecordEvidence& facts);
    Judgement JudgeLanguage(const Element& element, std::string_view value,
                            const RecordEvidence& facts);
    Judgement JudgeCodes(const Element& element, std::string_view value) const;
    Judgement JudgeCode(const Element& element, std::string_view value);
    bool IsNoCodeIn(std::string_view field008, const Element& element);
    bool IsNoCode(const Element& element, std::string_view value);
    bool IsLanguageAt(std::string_view field008, int first);
    bool IsLanguageBehind(std::string_view field008);
    std::string RepairedLanguage(const RecordEvidence& facts);
    std::optional<std::string> UnknownOf(const Element& element);
    bool IsCurrent(const Element& element, std::string_view code) const;
    bool MayBeCut(std::string_view country) const;

    const CodeLists& lists_;
    const Element& country_;
    const Element& language_;
    const std::size_t length008_;
    AllowedValues allowed_;
    KnownValues<bool> noCodes_;
};

}  // namespace quillory
