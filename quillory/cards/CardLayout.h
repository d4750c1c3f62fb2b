#pragma once

#include <quillory/cards/CardOptions.h>
#include <quillory/cards/Panel.h>
#include <quillory/cards/Typesetter.h>

#include <vector>

namespace quillory {

// The catalogue card of 7.5 by 12.5 cm.
inline constexpr double kCardWidth = 125 * kPointsPerMillimetre;
inline constexpr double kCardHeight = 75 * kPointsPerMillimetre;

// Lays a card out: the call number in the left margin, headings and paragraphs from the first and
// the second indention on, tracings at the foot. What one card has no room for comes on further
// ones, which begin with author, title and their number.
std::vector<Panel> LayOutCard(const PrintItem& card, const CardOptions& options,
                              Typesetter& typesetter);

}  // namespace quillory
