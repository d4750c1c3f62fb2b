#pragma once

#include <quillory/cards/LabelOptions.h>
#include <quillory/cards/Panel.h>
#include <quillory/cards/PrintItem.h>
#include <quillory/cards/Typesetter.h>

namespace quillory {

// Lays a label out, as wide as the spine and the pocket label of the stock. The font is made
// smaller, by a point at a time, where the text has no room otherwise.
Panel LayOutLabel(const PrintItem& label, const LabelOptions& options, Typesetter& typesetter);

}  // namespace quillory
