#pragma once

namespace quillory {

// Gives the whole program light or dark colours.
void SetTheme(bool isDark);

}  // namespace quillory
