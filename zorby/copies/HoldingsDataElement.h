#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/holdings/HoldingsID.h>

#include <string>
#include <string_view>

namespace zorby {

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

    EHOLDINGSID GetID() const { return id_; }
    const std::string& GetText() const { return text_; }
    // Stores the text without white space at its ends.
    void SetText(std::string_view text);
    int GetUserValue() const { return userValue_; }

    // A mark that is neither stored nor cloned. It is not set at first.
    void SetMarkedForDeletion(int marked) { markedForDeletion_ = marked; }
    int IsMarkedForDeletion() const { return markedForDeletion_; }

    // Returns whether both have the same number and the same text, byte for byte.
    bool IsEqualTo(const CHoldingsDataElement& element) const;
    // Returns how many bytes the element takes as a subfield, or 0 if its text is empty.
    unsigned GetMARCSize() const;

private:
    EHOLDINGSID id_ = {};
    int markedForDeletion_ = 0;
    int userValue_ = 0;
    std::string text_;
};

}  // namespace zorby
