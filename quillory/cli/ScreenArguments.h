#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/reports/RecordShower.h>

#include <cstddef>
#include <optional>

namespace quillory {

// How a person wants to see records.
struct ScreenChoice {
    std::optional<std::size_t> width;  // the terminal's if not given
    bool names = false;
    bool decode = false;
};

void DeclareScreen(Arguments& command, ScreenChoice& choice);
// Declares the width of lines alone.
void DeclareWidth(Arguments& command, ScreenChoice& choice);

// Whether standard output is for a person who wants colours.
bool ColourOfOutput();

// With the width and the colours of what goes to standard output.
ShowOptions ShowOptionsOf(const ScreenChoice& choice);

// Puts the dictionaries in force, if names are wanted. Throws FileError.
void LoadNames(const ScreenChoice& choice);

}  // namespace quillory
