#pragma once

#include <zorby/charset/QmCode.h>
#include <zorby/charset/UnicodeView.h>
#include <zorby/editing/PaletteTable.h>

#include <QString>
#include <algorithm>
#include <string>

namespace quillory {

// How a text in the library's display code is shown. The blank that a diacritic at the start of a
// text stands on has a code of its own there.
inline zorby::UnicodeView ViewOfDisplay(std::string display) {
    constexpr char kShownBlank = '\x7F';
    constexpr char kBlank = '\x1F';
    std::ranges::replace(display, kShownBlank, kBlank);
    return {display, zorby::kDisplaySIL};
}

inline QString MarcText(const zorby::UnicodeView& view) {
    return QString::fromStdU16String(view.Text());
}

// A character of the palette in Unicode. A diacritic comes without the circle that stands for its
// letter.
inline QString CharacterText(unsigned id) {
    constexpr QChar kDottedCircle = u'\u25CC';
    return MarcText({zorby::PaletteText(id), zorby::kDisplaySIL}).remove(kDottedCircle);
}

}  // namespace quillory
