#pragma once

#include <zorby/Export.h>

#include <optional>
#include <string>
#include <string_view>

namespace zorby {

// The clipboard that all programs share, as far as it holds plain text, one byte a character.
class ZORBY_EXPORT ClipboardPort {
public:
    virtual ~ClipboardPort() = default;

    virtual bool HasText() const = 0;
    // Returns nothing if there is no text or the clipboard can't be opened.
    virtual std::optional<std::string> GetText() const = 0;
    // Whether the text is in the `Qm` code, whoever put it there. A host says so that carries the
    // clipboard's text over. Otherwise only what a field of this program has copied is.
    virtual bool IsInQm() const { return false; }
    virtual void SetText(std::string_view text) = 0;
};

// A clipboard of this program alone.
class ZORBY_EXPORT MemoryClipboard : public ClipboardPort {
public:
    bool HasText() const override { return text.has_value(); }
    std::optional<std::string> GetText() const override { return text; }
    void SetText(std::string_view newText) override { text = std::string(newText); }

    std::optional<std::string> text;
};

// Returns the port in force. The plain one is a MemoryClipboard.
ZORBY_EXPORT ClipboardPort& CurrentClipboardPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetClipboardPort(ClipboardPort* port);

}  // namespace zorby
