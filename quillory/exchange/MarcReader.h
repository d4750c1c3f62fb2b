#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/MarcSalvage.h>
#include <quillory/exchange/Record.h>
#include <quillory/exchange/RecordRuns.h>

namespace quillory {

// What systems put between records: line ends, blanks, NUL, the old end-of-file byte, the byte
// order mark of UTF-8.
inline constexpr std::string_view kRecordFiller("\n\r\t \0\x1A\xEF\xBB\xBF", 9);

// Reads ISO 2709 records. Damage goes on to the next record terminator (0x1D); if that is the end
// of a sound record, only what stands before this record is damage. A record over 99,999 bytes is
// read if no field of it is in doubt.
class MarcReader : public RecordReader, public RecordRuns {
public:
    // With `lenient` a damaged record is read as far as that is certain.
    MarcReader(Input& input, bool lenient) : input_(input), lenient_(lenient) {}

    static bool Fits(std::string_view head);

    bool Next(Item& item) override;

    // Each record has the length that its leader states, and no other end within it. Whatever else
    // may be wrong with one, the next one begins there.
    RecordRun PassOver(std::size_t most) override;
    std::unique_ptr<RecordReader> ReaderOf(const RecordRun& run, Input& input) const override;

private:
    bool TakeFiller(Item& item);
    bool TakeSoundRecord(Item& item);
    std::string_view PeekDamage();
    void TakeDamage(Item& item);
    void TakeEndlessDamage(Item& item, std::string_view window);
    void Rescue(Item& item);
    void Give(Item& item, ItemKind kind, std::string_view bytes);

    Input& input_;
    bool lenient_;
    bool inEndlessDamage_ = false;
    std::uint64_t begin_ = 0;  // of the input in its file
    std::uint64_t count_ = 0;
    std::size_t taken_ = 0;  // bytes of the item given last
    zorby::CommFormatFields fields_;
    MarcSalvage salvage_;
};

}  // namespace quillory
