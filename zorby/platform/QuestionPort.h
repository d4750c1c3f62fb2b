#pragma once

#include <zorby/Export.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// How the library asks the user for a decision.
class ZORBY_EXPORT QuestionPort {
public:
    virtual ~QuestionPort() = default;

    // Asks a question that is answered with yes or no. Returns true for yes.
    virtual bool AskYesNo(std::string_view question) = 0;
};

// Answers from a script, and "no" when the script is at its end; keeps the questions.
class ZORBY_EXPORT ScriptedAnswers : public QuestionPort {
public:
    bool AskYesNo(std::string_view question) override;

    std::deque<bool> answers;
    std::vector<std::string> questions;
};

// Returns the port in force. The plain one answers every question with no.
ZORBY_EXPORT QuestionPort& CurrentQuestionPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetQuestionPort(QuestionPort* port);

}  // namespace zorby
