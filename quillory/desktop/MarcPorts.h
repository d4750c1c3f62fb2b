#pragma once

#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/MenuPort.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/platform/SignalPort.h>

#include <QString>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// A field has no line ends: where they and tabs stand between other text, a blank takes their
// place.
QString OneLine(QString text);

// The clipboard of the desktop, in the library's one-byte code and on one line.
class QtClipboard : public zorby::ClipboardPort {
public:
    bool HasText() const override;
    std::optional<std::string> GetText() const override;
    bool IsInQm() const override { return true; }
    void SetText(std::string_view text) override;

    // The text in Unicode, and whether the one-byte code has all of it.
    static QString Text();
    static bool IsCodable();
};

// A context menu at the widget with the focus.
class QtMenus : public zorby::MenuPort {
public:
    int PopUp(std::span<const zorby::MenuEntry> menu, zorby::ControlPoint at) override;
};

class QtSignals : public zorby::SignalPort {
public:
    void Beep(int hertz, int milliseconds) override;
    void ShowWaitCursor(bool show) override;
};

// What the library's fields need of the desktop, in force as long as this object lives.
class MarcPorts {
public:
    MarcPorts();
    ~MarcPorts();
    MarcPorts(const MarcPorts&) = delete;
    MarcPorts& operator=(const MarcPorts&) = delete;

private:
    QtClipboard clipboard_;
    QtMenus menus_;
    QtSignals signals_;
    zorby::ClipboardInForce clipboardInForce_{clipboard_};
    zorby::MenusInForce menusInForce_{menus_};
    zorby::SignalsInForce signalsInForce_{signals_};
    int displayType_;  // that was in force before
};

}  // namespace quillory
