#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/text/Charset.h>
#include <quillory/text/TextConverter.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace quillory {

// Tells titles that are written in capitals.
class TitleCase {
public:
    // Whether the first $a of a title field (245) is: a letter or more in each of two words or
    // more, or one word of two letters or more, none of them small by the case of the library's
    // one-byte code. One word is no such title, but an abbreviation (CSS, L.K.A.), where $b, $c, $n
    // or $p have small letters. A text that the code doesn't hold, such as one in another script,
    // is none either. The character set is that of the record where it is auto.
    bool IsUpperCase(const Record& record, std::string_view content, Charset charset);

private:
    // What the letters of a text say.
    struct Capitals {
        std::size_t words = 0;  // with a capital
        std::size_t letters = 0;
        bool hasSmall = false;
    };

    static Capitals CapitalsOfQm(std::string_view qm);
    Capitals CapitalsOf(const Record& record, std::string_view text, Charset charset);
    bool ToQm(std::string_view text, Charset charset);

    std::array<std::unique_ptr<TextConverter>, 4> converters_;  // by the set that they read
    std::string utf8_;
    std::string qm_;
};

}  // namespace quillory
