#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/controlfields/ReplacedPartCallback.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>
#include <zorby/elements/OffsetTables.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zorby {

class CPmarc;

// An additional material of a record: a pair of fields 006 and 007. The 006 is complete, including
// position 0. An entry without a material type is empty. An int result is 1 for success and 0 for
// failure.
class ZORBY_EXPORT CCFAdditionalMaterial : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CCFAdditionalMaterial();

    // Fills the entry. `field006` is a 006 of 18 characters or a whole 008. Position 0 follows from
    // the material, except that music and sound recordings keep one that fits them. The 007 is cut
    // to the length of the material's standard 007, and the bytes after that length stay as they
    // were.
    void Create(MaterialType material, CFType type006, CFType type007, std::string_view field007,
                std::string_view field006);

    // Gives the bytes of the element up to a zero byte. Returns 0 if the entry doesn't hold the
    // element. The combined form of item (CFPCombinedFormOfItem) fails unless there is a 007 for
    // microforms.
    int Get(CFPart part, std::string& text) const;
    // Pads a short text with blanks and cuts a long one. A combined form of item without a second
    // character blanks the whole 007.
    int Set(CFPart part, std::string_view text);
    // Returns the length of the text that Get gives now.
    int GetPartSize(CFPart part) const;

    bool IsEmpty() const;
    MaterialType GetMaterialType() const;
    CFType Get006Type() const;
    CFType Get007Type() const;
    // The 006 always has 18 bytes.
    void GetAll(std::string& field006, std::string& field007) const;
    // Replaces the whole 006, including position 0. It is cut at 18 bytes or padded with blanks.
    void Set006Complete(std::string_view field006);
    // Replaces the 007 and its length, but not its type. The text is cut at 23 bytes. Elements
    // after the new length can still be read.
    void Set007Complete(std::string_view field007);

    // Works like that of a main material, with the standard workform of this material. A 007 for
    // microforms also determines the form of item, and this change is reported as that of books.
    void SetInvalidValuesToDefault(ReplacedPartCallback callback, void* context);
    // If the literary text of a nonmusical sound recording is blank, it becomes "other". Other
    // kinds of material keep what they have.
    void NonMusicalSoundRecordingFixup();

    // Returns how many bytes the pair takes in a communications record, including the field
    // terminators.
    unsigned GetMARCSize() const;
    void CloneFrom(const CCFAdditionalMaterial& other);
    // Returns 1 if both are equal. The material type isn't compared; the first byte of the 007
    // always is.
    int IsEqualTo(const CCFAdditionalMaterial& other) const;

    // Adds a new 006, and a new 007 unless it is blank.
    void AddToPseudoMARC(CPmarc& record) const;
    // Loads version 1. Any other version leaves the entry as it was.
    void Serialize(CArchive& archive) override;

    // Returns the type of record (006/00, Leader/06) of a material, or 0 if it has no 006.
    static char ByteZeroForMaterialType(MaterialType material);

private:
    static constexpr MaterialType kNoMaterial = static_cast<MaterialType>(0);
    static constexpr std::size_t k006Size = 18;
    static constexpr std::size_t k007Size = 23;

    template <class Material>
    static auto FieldOf(Material& material, CFPart part);
    int GetCombinedFormOfItem(std::string& text) const;
    int SetCombinedFormOfItem(std::string_view text);
    std::string_view Field006() const { return {field006_.data(), k006Size}; }
    std::string_view Field007() const;
    char ByteZeroFor(std::string_view field006) const;
    void MatchFormOfItemToMicroform(ReplacedPartCallback callback, void* context);
    void Load(CArchive& archive);

    MaterialType material_ = kNoMaterial;
    std::array<char, k006Size> field006_;
    std::array<char, k007Size + 1> field007_;  // includes a terminator for a full text
    std::int32_t length007_ = 0;
    CFType type006_ = CF006None;
    CFType type007_ = CF007None;
    const tagCFOFFSETENTRY* table007_ = nullptr;
    const tagCFOFFSETENTRY* table006_ = nullptr;
};

}  // namespace zorby
