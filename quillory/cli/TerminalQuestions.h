#pragma once

#include <zorby/platform/QuestionPort.h>

namespace quillory {

// Asks the person at the terminal. Without a terminal the answer is no.
class TerminalQuestions : public zorby::QuestionPort {
public:
    bool AskYesNo(std::string_view question) override;
};

}  // namespace quillory
