#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

enum class MessageIcon : std::int32_t { kInformation, kWarning, kError };

// How the library speaks to the person at the program.
class ZORBY_EXPORT MessagePort {
public:
    virtual ~MessagePort() = default;

    // Shows a modal box and returns when it is closed. Lines of the text end in CR LF.
    virtual void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) = 0;

    // Asks the main frame to close, and returns before it does.
    virtual void RequestClose() = 0;
};

// Keeps what it is told, for tests and for programs that report later.
class ZORBY_EXPORT RecordedMessages : public MessagePort {
public:
    struct Message {
        std::string text;
        std::string title;
        MessageIcon icon = MessageIcon::kInformation;
    };

    void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override;
    void RequestClose() override { ++closeRequests; }

    std::vector<Message> messages;
    int closeRequests = 0;
};

// The port in force. Plain: messages go to standard error, and a close request does nothing.
ZORBY_EXPORT MessagePort& CurrentMessagePort();

// Puts a port in force that the caller owns and keeps alive; null restores the plain one.
ZORBY_EXPORT void SetMessagePort(MessagePort* port);

}  // namespace zorby
