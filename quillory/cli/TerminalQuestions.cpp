#include <quillory/cli/TerminalQuestions.h>

#include <cstdio>
#include <iostream>
#include <string>
#include <unistd.h>

namespace quillory {

bool TerminalQuestions::AskYesNo(std::string_view question) {
    if (isatty(STDIN_FILENO) == 0) {
        std::fputs("quillory: there is no terminal to ask at; --yes does without\n", stderr);
        return false;
    }
    std::fprintf(stderr, "%s [y/N] ", std::string(question).c_str());
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

}  // namespace quillory
