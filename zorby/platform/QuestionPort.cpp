#include <zorby/platform/QuestionPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

namespace {

class AlwaysNo : public QuestionPort {
public:
    bool AskYesNo(std::string_view) override { return false; }
};

PortSlot<QuestionPort, AlwaysNo>& Slot() {
    static PortSlot<QuestionPort, AlwaysNo> slot;
    return slot;
}

}  // namespace

bool ScriptedAnswers::AskYesNo(std::string_view question) {
    questions.emplace_back(question);
    if (answers.empty()) return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

QuestionPort& CurrentQuestionPort() {
    return Slot().Get();
}

void SetQuestionPort(QuestionPort* port) {
    Slot().Set(port);
}

}  // namespace zorby
