#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

enum class MessageIcon : std::int32_t { kInformation, kWarning, kError };

// How the library speaks to the user.
class ZORBY_EXPORT MessagePort {
public:
    virtual ~MessagePort() = default;

    // Shows a modal message box and returns when it is closed. Lines of the text end in CR LF.
    virtual void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) = 0;

    // Asks the main frame to close, and returns before it does.
    virtual void RequestClose() = 0;
};

// Keeps the messages, for tests and for programs that report later.
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

// Returns the port in force. The plain one writes messages to standard error, and ignores a request
// to close.
ZORBY_EXPORT MessagePort& CurrentMessagePort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetMessagePort(MessagePort* port);

}  // namespace zorby
