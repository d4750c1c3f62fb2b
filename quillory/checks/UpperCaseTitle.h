#pragma once

#include <quillory/exchange/Charset.h>

#include <string_view>

namespace quillory {

// Whether the first $a of a title field (245) is written in capitals: a letter or more in each of
// two words or more, or one word of two letters or more, none of them small by the case of the
// library's one-byte code. One word is no such title, but an abbreviation (CSS, L.K.A.), where $b,
// $c, $n or $p have small letters. A text that the code doesn't hold, such as one in another
// script, is none either.
//
// The character set is that of the record where it is auto.
bool IsUpperCaseTitle(const Record& record, std::string_view content, Charset charset);

}  // namespace quillory
