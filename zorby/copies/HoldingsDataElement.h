#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/conditions/ContainType.h>
#include <zorby/holdings/HoldingsID.h>

#include <string>
#include <string_view>

namespace zorby {

class COnlyWhenState;

// One value of a copy's holdings data. The text is in the Qm code.
class ZORBY_EXPORT CHoldingsDataElement : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;

    CHoldingsDataElement() = default;
    CHoldingsDataElement(const CHoldingsDataElement&) = delete;
    CHoldingsDataElement& operator=(const CHoldingsDataElement&) = delete;

    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Stores the number and the text. A stored form of an unknown version changes nothing, and
    // nothing after its version byte is read.
    void Serialize(CArchive& archive) override;

    // `userValue` is for the host.
    void Create(EHOLDINGSID id, std::string_view text, int userValue);
    // Copies only the number and the text.
    void CloneFrom(const CHoldingsDataElement& element);

    EHOLDINGSID GetID() const;
    const std::string& GetText() const;
    // Stores the text without white space at its ends.
    void SetText(std::string_view text);
    int GetUserValue() const;

    // A mark that is neither stored nor cloned. It is not set at first.
    void SetMarkedForDeletion(int marked);
    int IsMarkedForDeletion() const;

    // Returns whether both have the same number and the same text, byte for byte.
    bool IsEqualTo(const CHoldingsDataElement& element) const;

    // Returns the element if it meets the condition, else null. Each test is about the element that
    // it names, even if it is set to look at any. If the operation always applies, the element has
    // to be the one that the condition is attached to. With `requireText` an element without text
    // meets nothing, not even "is empty or missing".
    CHoldingsDataElement* OnlyWhenElement(const COnlyWhenState& state, int requireText);
    // Returns 1 if the element has the number and its text passes the test, else 0. `text` may have
    // wildcards, as CGeneral::FindWild reads them. An unknown type counts as CT_DOES_NOT_CONTAIN.
    int OnlyWhenElementMeetsCondition(EHOLDINGSID id, int matchCase, std::string_view text,
                                      CONTAIN_TYPE type) const;

    // Returns how many bytes the element takes as a subfield, or 0 if its text is empty.
    unsigned GetMARCSize() const;

private:
    EHOLDINGSID id_ = {};
    int markedForDeletion_ = 0;
    int userValue_ = 0;
    std::string text_;
};

}  // namespace zorby
