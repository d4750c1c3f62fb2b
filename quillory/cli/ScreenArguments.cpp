#include <quillory/arguments/StandardStreams.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/jobs/Library.h>

#include <cstdlib>
#include <unistd.h>

namespace quillory {

void DeclareScreen(Arguments& command, ScreenChoice& choice) {
    command.Flag("--names", choice.names, "With the names of fields and subfields");
    command.Flag("--decode", choice.decode,
                 "With Leader, 006, 007 and 008 spelled out; a question mark stands before a "
                 "value that the format does not allow");
    DeclareWidth(command, choice);
}

void DeclareWidth(Arguments& command, ScreenChoice& choice) {
    command.Option("--width", choice.width,
                   "Columns of a line, 0 for no limit; the terminal's if not given");
}

bool ColourOfOutput() {
    const char* noColour = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) != 0 && (noColour == nullptr || *noColour == 0);
}

ShowOptions ShowOptionsOf(const ScreenChoice& choice) {
    ShowOptions screen;
    screen.names = choice.names;
    screen.decode = choice.decode;
    screen.colour = ColourOfOutput();
    screen.width = choice.width ? *choice.width : ColumnsOfOutput().value_or(0);
    return screen;
}

void LoadNames(const ScreenChoice& choice) {
    if (!choice.names) return;
    LoadSettings();
    LoadDictionaries();
}

}  // namespace quillory
