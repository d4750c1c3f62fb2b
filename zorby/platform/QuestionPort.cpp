#include <zorby/platform/QuestionPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

namespace {

class AlwaysNo : public QuestionPort {
public:
    bool AskYesNo(std::string_view) override { return false; }
};

}  // namespace

bool ScriptedAnswers::AskYesNo(std::string_view question) {
    questions.emplace_back(question);
    if (answers.empty()) return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

QuestionPort& CurrentQuestionPort() {
    return SlotOf<QuestionPort, AlwaysNo>().Get();
}

void SetQuestionPort(QuestionPort* port) {
    SlotOf<QuestionPort, AlwaysNo>().Set(port);
}

}  // namespace zorby
