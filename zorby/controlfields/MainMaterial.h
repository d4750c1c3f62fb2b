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
struct RepairTask;

// The coded control data of one record or workform: Leader, 008, 007, and one more 006. The
// material section of the 008 (bytes 18 to 34) is kept apart, as positions 1 to 17 of the 006 form
// that has the same layout. It is read and written there, and GetAll puts it back into the 008.
//
// Elements are addressed by CFPart. Get and Set work after Create and after loading. Before that,
// and after Empty, the record holds no element. An int result is 1 for success and 0 for failure.
class ZORBY_EXPORT CCFMainMaterial : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CCFMainMaterial();

    // Fills the whole record. In every text "#" stands for a blank. Short texts are padded with
    // blanks, and long ones cut: a leader to 24 bytes, a block to 32, a second 006 to 18. A 007 is
    // only cut, at 24 bytes, and so is an 008, at 40. An empty second 006 means that there is none.
    // Returns 1.
    int Create(CFType type006, CFType type007, std::string_view leader, std::string_view block,
               std::string_view field007, std::string_view field008, std::string_view second006);
    // Blanks everything except the second 006.
    void Empty();

    // Gives the bytes of the element up to a zero byte. Returns 0 if the record doesn't hold the
    // element. The combined form of item (CFPCombinedFormOfItem) fails unless there is a 007 for
    // microforms or the form of item is "s".
    int Get(CFPart part, std::string& text) const;
    // Pads a short text with blanks and cuts a long one. A combined form of item without a second
    // character blanks the whole 007.
    int Set(CFPart part, std::string_view text);
    // Returns the length of the text that Get gives now.
    int GetPartSize(CFPart part) const;
    // Returns how many bytes the element takes in the format that has it, or 0 if none does.
    static int GetPartSizeNew(CFPart part);

    // Returns the Leader of the first standard workform of these types, or an empty text if there
    // is none.
    static std::string DefaultLdr(CFType type006, CFType type007);

    CFType Get006Type() const;
    CFType Get007Type() const;
    void GetAll(std::string& leader, std::string& field007, std::string& field008,
                std::string& second006) const;
    // Each returns one of these alone.
    std::string GetLeader() const;
    std::string GetField007() const;
    std::string GetField008() const;
    const std::string& GetSecond006() const;
    // Returns the 32 bytes of the four-part block, which the library stores and never interprets.
    std::string GetBlock() const;
    // Replaces the 007 and its length, but not its type. The text is cut at 24 bytes. Elements
    // after the new length can still be read.
    void Set007Complete(std::string_view field007);

    // Gives every element with an invalid value another value: that of the standard workform of the
    // record's types (of `material` for a 007), or a fixed one. An element of several codes loses
    // its valid codes too. If no workform gives a value, the element stays as it is. `callback` is
    // called for each element that was changed, unless it is null. The second 006 is not checked.
    // The 007 is, even after its length.
    void SetInvalidValuesToDefault(ReplacedPartCallback callback, void* context,
                                   MaterialType material);
    // If the literary text of a nonmusical sound recording is blank, it becomes "other". In any
    // other kind of record it becomes blank.
    void NonMusicalSoundRecordingFixup();

    // Returns an upper bound, in bytes, for what the fields take in a communications record.
    unsigned GetMARCSize() const;
    void CloneFrom(const CCFMainMaterial& other);
    // Returns 1 if both are equal. The second 006 isn't compared. A record that was loaded differs
    // from one that was created, even if their fields are the same.
    int IsEqualTo(const CCFMainMaterial& other) const;

    // Adds the Leader as tag 000, and then those of 006, 007 and 008 that are not empty. A blank
    // 007 is left out.
    void AddToPseudoMARC(CPmarc& record) const;
    // Loads versions 1 and 2. Any other version only removes the second 006.
    void Serialize(CArchive& archive) override;

    // Returns whether the form of item in a 006 is that of a microform (a, b or c).
    static bool IsMicroform(CFType type006, const tagCFOFFSETENTRY* table,
                            std::string_view field006);
    // Returns the form of item that goes with the specific material designation of a microform, or
    // a blank for any other.
    static char FormOfItemFrom007Byte1(char designation);
    static const tagCFOFFSETENTRY* CFOFFSETENTRYARRAYFor006Type(CFType type006);

private:
    // A field's bytes, followed by at least one more. That one is a blank at first, and the
    // terminator once the field was loaded.
    template <std::size_t size, std::size_t extra = 1>
    using Buffer = std::array<char, size + extra>;

    static constexpr std::size_t kLeaderSize = 24;
    static constexpr std::size_t kBlockSize = 32;
    static constexpr std::size_t k008Size = 40;
    static constexpr std::size_t k006Size = 18;
    static constexpr std::size_t k007Size = 24;

    void AttachTables();
    // Finds the table that holds the element, and the bytes that the table describes.
    template <class Material>
    static auto FieldOf(Material& material, CFPart part);
    auto Image006();
    void Repair007(RepairTask task);
    int GetCombinedFormOfItem(std::string& text) const;
    int SetCombinedFormOfItem(std::string_view text);
    std::string_view Field007() const;
    void CopyField008(std::string& field) const;
    std::size_t BlockLength() const;
    void Store(CArchive& archive) const;
    void Load(CArchive& archive, bool withSecond006);

    Buffer<kLeaderSize> leader_;
    Buffer<kBlockSize> block_;
    Buffer<k008Size> field008_;  // bytes 18 to 34 are outdated; image006_ has them
    Buffer<k006Size> image006_;  // the material section; position 0 is blank
    Buffer<k007Size, 2> field007_;
    std::int32_t length007_ = 0;
    std::int32_t length008_ = 0;
    CFType type006_ = CF006None;
    CFType type007_ = CF007None;
    const tagCFOFFSETENTRY* leaderTable_ = nullptr;
    const tagCFOFFSETENTRY* table008_ = nullptr;
    const tagCFOFFSETENTRY* table007_ = nullptr;
    const tagCFOFFSETENTRY* table006_ = nullptr;
    std::string second006_;
};

}  // namespace zorby
