#include <quillory/cli/ScreenArguments.h>
#include <quillory/jobs/Library.h>

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quillory {

void AddScreenOptions(CLI::App& command, ScreenChoice& choice) {
    command.add_flag("--names", choice.names, "With the names of fields and subfields");
    command.add_flag("--decode", choice.decode,
                     "With Leader, 006, 007 and 008 spelled out; a question mark stands before "
                     "what the format has not");
    AddWidthOption(command, choice);
}

void AddWidthOption(CLI::App& command, ScreenChoice& choice) {
    command.add_option_function<std::size_t>(
        "--width",
        [&choice](std::size_t width) {
            choice.width = width;
            choice.widthGiven = true;
        },
        "Columns of a line, 0 for no limit; the terminal's if not given");
}

ShowOptions ShowOptionsOf(const ScreenChoice& choice) {
    ShowOptions screen;
    screen.names = choice.names;
    screen.decode = choice.decode;
    const bool terminal = isatty(STDOUT_FILENO) != 0;
    const char* noColour = std::getenv("NO_COLOR");
    screen.colour = terminal && (noColour == nullptr || *noColour == 0);
    winsize size{};
    if (choice.widthGiven) {
        screen.width = choice.width;
    } else if (terminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {
        screen.width = size.ws_col;
    }
    return screen;
}

bool LoadNames(const ScreenChoice& choice) {
    if (!choice.names) return true;
    LoadSettings();
    return LoadDictionaries({});
}

}  // namespace quillory
