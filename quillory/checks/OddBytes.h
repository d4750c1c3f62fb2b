#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillory {

// Where in a record the bytes stand that are not printable ASCII (0x20 to 0x7E): delimiters, ends
// of fields, and what letters with marks and other scripts are made of. They are found once for all
// fields.
class OddBytes {
public:
    using BlockBits = std::uint64_t;  // the lowest for the first byte of a block
    static constexpr std::size_t kBlock = 64;

    // Goes through those in a text, until another record begins.
    class Cursor {
    public:
        // The next one, or the end of the text.
        const char* Next() {
            while (bits_ == 0) {
                if (end_ - block_ <= static_cast<std::ptrdiff_t>(kBlock)) return end_;
                block_ += kBlock;
                bits_ = *++word_;
            }
            const char* const at = block_ + std::countr_zero(bits_);
            bits_ &= bits_ - 1;
            return at < end_ ? at : end_;
        }

        const char* End() const { return end_; }

    private:
        friend class OddBytes;

        const BlockBits* word_;
        const char* block_;
        BlockBits bits_;  // of the block in hand, those not yet given
        const char* end_;
    };

    // A record begins, whose bytes, if it has them in one piece, last as long as it is asked for.
    void Begin(std::string_view record) {
        record_ = record;
        bytes_ = {};
    }
    // Those in a text, which is part of the record or not.
    Cursor In(std::string_view text) {
        if (!LiesIn(text, bytes_)) Find(LiesIn(text, record_) ? record_ : text);
        const auto at = static_cast<std::size_t>(text.data() - bytes_.data());
        Cursor cursor;
        cursor.word_ = words_.data() + at / kBlock;
        cursor.block_ = bytes_.data() + at / kBlock * kBlock;
        cursor.bits_ = *cursor.word_ & ~BlockBits{0} << at % kBlock;
        cursor.end_ = text.data() + text.size();
        return cursor;
    }

private:
    static bool LiesIn(std::string_view text, std::string_view bytes) {
        return !bytes.empty() && bytes.data() <= text.data() &&
               text.data() + text.size() <= bytes.data() + bytes.size();
    }

    void Find(std::string_view bytes);

    std::string_view record_;
    std::string_view bytes_;  // that were looked at
    std::vector<BlockBits> words_;
};

}  // namespace quillory
