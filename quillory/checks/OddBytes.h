#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillory {

// Where in a record the bytes stand that are not printable ASCII (0x20 to 0x7E): delimiters, ends
// of fields, and what letters with marks and other scripts are made of. They are found once for all
// fields.
class OddBytes {
public:
    // A record begins, whose bytes, if it has them in one piece, last as long as it is asked for.
    void Begin(std::string_view record) {
        record_ = record;
        text_ = bytes_ = {};
    }
    // The first of them that does not stand before the text, which is part of the record or not.
    // The others follow, up to one that does not stand before the end of the text, or is that end.
    // They hold until the next call, which is fastest for a text that comes later in the record.
    const char* const* From(std::string_view text) {
        const bool goesOn = text_.data() <= text.data() && LiesIn(text, bytes_);
        if (!goesOn) GoTo(text);
        text_ = text;
        while (*next_ < text.data()) ++next_;
        return next_;
    }

private:
    static bool LiesIn(std::string_view text, std::string_view bytes) {
        return !bytes.empty() && bytes.data() <= text.data() &&
               text.data() + text.size() <= bytes.data() + bytes.size();
    }

    void GoTo(std::string_view text);
    void Find(std::string_view bytes);

    std::string_view record_;
    std::string_view bytes_;  // that were looked at
    std::string_view text_;   // in them, that was asked for
    const char* const* next_ = nullptr;
    std::vector<const char*> odd_;  // then the end of the bytes, and room for more
    std::size_t count_ = 0;
};

}  // namespace quillory
