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

// The coded control data of one record or workform: Leader, 008, 007, and a 006 of its own beside
// them. The material section of the 008 (bytes 18 to 34) is kept apart, as positions 1 to 17 of the
// 006 form that it shares; there it is read and written, and GetAll puts it back.
//
// Elements are addressed by CFPart. A record answers Get and Set from Create, or from loading, on;
// before, and after Empty, it holds no element. An int result is 1 for success and 0 for failure.
class ZORBY_EXPORT CCFMainMaterial : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CCFMainMaterial();

    // Fills the whole record. In every text "#" stands for a blank. What a leader lacks of 24
    // bytes, a block of 32, or a second 006 of 18, is blank, and what goes beyond is cut; a 007 is
    // cut at 24 bytes, an 008 at 40. An empty second 006 means that there is none. Result: 1.
    int Create(CFType type006, CFType type007, std::string_view leader, std::string_view block,
               std::string_view field007, std::string_view field008, std::string_view second006);
    // Blanks everything but the second 006.
    void Empty();

    // `text` gets the bytes of the element up to a zero byte; 0 if the record doesn't hold it. The
    // combined form of item (CFPCombinedFormOfItem) fails unless there is a 007 for microforms, or
    // the form of item is "s".
    int Get(CFPart part, std::string& text) const;
    // A short text leaves blanks, a long one is cut. A combined form of item without a second
    // character blanks the whole 007.
    int Set(CFPart part, std::string_view text);
    // Length of the text that Get gives now.
    int GetPartSize(CFPart part) const;
    // Bytes of the element in whichever format holds it; 0 if none does.
    static int GetPartSizeNew(CFPart part);

    // The Leader of the first standard workform of these types; empty if there is none.
    static std::string DefaultLdr(CFType type006, CFType type007);

    CFType Get006Type() const { return type006_; }
    CFType Get007Type() const { return type007_; }
    void GetAll(std::string& leader, std::string& field007, std::string& field008,
                std::string& second006) const;
    // One of them alone.
    std::string GetLeader() const;
    std::string GetField007() const;
    std::string GetField008() const;
    const std::string& GetSecond006() const { return second006_; }
    // The four parts that the library stores and never reads, 32 bytes.
    std::string GetBlock() const;
    // Replaces the 007 and its length but not its type; cut at 24 bytes. What lies beyond its
    // length stays readable by element.
    void Set007Complete(std::string_view field007);

    // Gives every element with an invalid value another one: that of the standard workform of the
    // record's types (of `material` for a 007), or a fixed one. An element of several codes loses
    // its valid codes too. What no workform gives stays. `callback` hears of each, unless it is
    // null. The second 006 is not looked at, and the 007 is, beyond its length, too.
    void SetInvalidValuesToDefault(ReplacedPartCallback callback, void* context,
                                   MaterialType material);
    // The literary text of a nonmusical sound recording becomes "other" if it is blank; any other
    // kind of record has none.
    void NonMusicalSoundRecordingFixup();

    // An upper bound, in bytes, of what the fields take in a communications record.
    unsigned GetMARCSize() const;
    void CloneFrom(const CCFMainMaterial& other);
    // 1 if equal. The second 006 doesn't count. A record that was loaded differs from one that was
    // created, even with the same fields.
    int IsEqualTo(const CCFMainMaterial& other) const;

    // Adds the Leader as tag 000, then 006, 007 and 008 where they are not empty, the 007 not if it
    // is blank.
    void AddToPseudoMARC(CPmarc& record) const;
    // Reads versions 1 and 2. Any other leaves all but the second 006 as it was.
    void Serialize(CArchive& archive) override;

    // Whether the form of item of a 006 text is a microform's (a, b or c).
    static bool IsMicroform(CFType type006, const tagCFOFFSETENTRY* table,
                            std::string_view field006);
    // The form of item that goes with a microform's specific material designation; else a blank.
    static char FormOfItemFrom007Byte1(char designation);
    static const tagCFOFFSETENTRY* CFOFFSETENTRYARRAYFor006Type(CFType type006);

private:
    // A field's bytes, and behind them at least one that is a blank at first, and ends the text
    // once it is loaded.
    template <std::size_t size, std::size_t behind = 1>
    using Buffer = std::array<char, size + behind>;

    static constexpr std::size_t kLeaderSize = 24;
    static constexpr std::size_t kBlockSize = 32;
    static constexpr std::size_t k008Size = 40;
    static constexpr std::size_t k006Size = 18;
    static constexpr std::size_t k007Size = 24;

    void AttachTables();
    // The table that holds the element, and the bytes that it describes.
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
    Buffer<k008Size> field008_;  // bytes 18 to 34 are as given, and stale
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
