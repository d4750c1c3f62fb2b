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

// A further material of a record: a pair of fields 006 and 007. The 006 is whole, position 0
// included. Without a material type the entry is empty. An int result is 1 for success and 0 for
// failure.
class ZORBY_EXPORT CCFAdditionalMaterial : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CCFAdditionalMaterial();

    // Fills the entry. `field006` is a 006 of 18 characters or a whole 008; position 0 goes by the
    // material, but for music and sound recordings that bring a fitting one. The 007 is cut at the
    // length of the material's standard 007; what lay behind it stays.
    void Create(MaterialType material, CFType type006, CFType type007, std::string_view field007,
                std::string_view field006);

    // `text` gets the bytes of the element up to a zero byte; 0 if the entry doesn't hold it. The
    // combined form of item (CFPCombinedFormOfItem) fails unless there is a 007 for microforms.
    int Get(CFPart part, std::string& text) const;
    // A short text leaves blanks, a long one is cut. A combined form of item without a second
    // character blanks the whole 007.
    int Set(CFPart part, std::string_view text);
    // Length of the text that Get gives now.
    int GetPartSize(CFPart part) const;

    bool IsEmpty() const { return material_ == kNoMaterial; }
    MaterialType GetMaterialType() const { return material_; }
    CFType Get006Type() const { return type006_; }
    CFType Get007Type() const { return type007_; }
    // The 006 has 18 bytes.
    void GetAll(std::string& field006, std::string& field007) const;
    // Replaces the 006, position 0 included; it is cut at 18 bytes, and what it lacks is blank.
    void Set006Complete(std::string_view field006);
    // Replaces the 007 and its length but not its type; cut at 23 bytes. What lies beyond its
    // length stays readable by element.
    void Set007Complete(std::string_view field007);

    // As for a main material, by the standard workform of the material. A 007 of a microform also
    // decides the form of item, which is reported as that of books.
    void SetInvalidValuesToDefault(ReplacedPartCallback callback, void* context);
    // The literary text of a nonmusical sound recording becomes "other" if it is blank; any other
    // kind keeps what it has.
    void NonMusicalSoundRecordingFixup();

    // Bytes that the pair takes in a communications record, field ends included.
    unsigned GetMARCSize() const;
    void CloneFrom(const CCFAdditionalMaterial& other);
    // 1 if equal. The material type doesn't count, the first byte of the 007 always does.
    int IsEqualTo(const CCFAdditionalMaterial& other) const;

    // Adds a new 006, and a new 007 unless it is blank.
    void AddToPseudoMARC(CPmarc& record) const;
    // Reads version 1; any other leaves the entry as it was.
    void Serialize(CArchive& archive) override;

    // Type of record (006/00, Leader/06) of a material; 0 if it has no 006.
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
    std::array<char, k007Size + 1> field007_;  // with a terminator behind a full text
    std::int32_t length007_ = 0;
    CFType type006_ = CF006None;
    CFType type007_ = CF007None;
    const tagCFOFFSETENTRY* table007_ = nullptr;
    const tagCFOFFSETENTRY* table006_ = nullptr;
};

}  // namespace zorby
