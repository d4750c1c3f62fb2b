#pragma once

#include <quillory/checks/RecordInHand.h>
#include <quillory/exchange/Record.h>
#include <quillory/text/Capitals.h>
#include <quillory/text/Charset.h>
#include <quillory/text/TextConverter.h>

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// Recognises titles that are written in capitals.
class TitleCase {
public:
    // Whether the first $a of a title field (245) has two capitals or more and no small letter, by
    // the case of the library's one-byte code. A single word is taken for an abbreviation (CSS,
    // L.K.A.) if $b, $c, $n or $p have small letters. A text that the code can't hold, such as one
    // in another script, is not in capitals. With kCharsetAuto the record is asked for its
    // character set.
    bool IsUpperCase(const Record& record, std::span<const SubfieldInHand> subfields,
                     Charset charset);

private:
    Capitals CapitalsOf(const Record& record, std::string_view text, Charset charset);
    bool ToQm(std::string_view text, Charset charset);

    std::array<std::unique_ptr<TextConverter>, 4> converters_;  // by the set that they read
    std::string utf8_;
    std::string qm_;
};

}  // namespace quillory
