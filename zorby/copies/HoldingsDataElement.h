#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/holdings/HoldingsID.h>

#include <string>
#include <string_view>

namespace zorby {

// One value of a copy. Texts are in the Qm code.
class ZORBY_EXPORT CHoldingsDataElement : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;

    CHoldingsDataElement() = default;
    CHoldingsDataElement(const CHoldingsDataElement&) = delete;
    CHoldingsDataElement& operator=(const CHoldingsDataElement&) = delete;

    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // The number and the text. A stored form of an unknown version changes nothing, and nothing is
    // read behind its version byte.
    void Serialize(CArchive& archive) override;

    // `userValue` is the host's.
    void Create(EHOLDINGSID id, std::string_view text, int userValue);
    // Copies the number and the text alone.
    void CloneFrom(const CHoldingsDataElement& element);

    EHOLDINGSID GetID() const { return id_; }
    const std::string& GetText() const { return text_; }
    // Stores the text without the white space at its ends.
    void SetText(std::string_view text);
    int GetUserValue() const { return userValue_; }

    // A mark that is neither stored nor cloned; not set at first.
    void SetMarkedForDeletion(int marked) { markedForDeletion_ = marked; }
    int IsMarkedForDeletion() const { return markedForDeletion_; }

    // The same number and the same bytes of text.
    bool IsEqualTo(const CHoldingsDataElement& element) const;
    // The bytes that the element takes as a subfield; 0 for an empty text.
    unsigned GetMARCSize() const;

private:
    EHOLDINGSID id_ = {};
    int markedForDeletion_ = 0;
    int userValue_ = 0;
    std::string text_;
};

}  // namespace zorby
