#include <zorby/platform/MessagePort.h>
#include <zorby/platform/detail/PortSlot.h>

#include <cstdio>

namespace zorby {

namespace {

// Works without the heap, since a message may be about exhausted memory.
class ConsoleMessages : public MessagePort {
public:
    void ShowMessage(std::string_view text, std::string_view title, MessageIcon) override {
        Write(title);
        Write(": ");
        Write(text);
        Write("\n");
    }

    void RequestClose() override {}

private:
    static void Write(std::string_view text) {
        for (const char byte : text) {
            if (byte != '\r') std::fputc(byte, stderr);
        }
    }
};

}  // namespace

void RecordedMessages::ShowMessage(std::string_view text, std::string_view title,
                                   MessageIcon icon) {
    messages.push_back({std::string(text), std::string(title), icon});
}

MessagePort& CurrentMessagePort() {
    return SlotOf<MessagePort, ConsoleMessages>().Get();
}

void SetMessagePort(MessagePort* port) {
    SlotOf<MessagePort, ConsoleMessages>().Set(port);
}

}  // namespace zorby
