#pragma once

#include <quillory/reports/RecordShower.h>

namespace CLI {
class App;
}

namespace quillory {

// How a person wants to see records.
struct ScreenChoice {
    std::size_t width = 0;
    bool widthGiven = false;  // else the terminal's
    bool names = false;
    bool decode = false;
};

void AddScreenOptions(CLI::App& command, ScreenChoice& choice);
// That of them that says how wide the lines are.
void AddWidthOption(CLI::App& command, ScreenChoice& choice);

// With the width and the colours of what goes to standard output.
ShowOptions ShowOptionsOf(const ScreenChoice& choice);

// Puts in force what the names are taken from, if they are wanted. False if it is not there, which
// the user has been told.
bool LoadNames(const ScreenChoice& choice);

}  // namespace quillory
