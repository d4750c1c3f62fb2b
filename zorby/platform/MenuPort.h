#pragma once

#include <zorby/Export.h>
#include <zorby/platform/EditPort.h>

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// "&" in the text stands before the accelerator, and a tab before the name of the key that does the
// same without the menu.
struct MenuEntry {
    std::string_view text;
    int command = 0;
    bool isEnabled = true;
};

// How the library shows a context menu.
class ZORBY_EXPORT MenuPort {
public:
    virtual ~MenuPort() = default;

    // Shows a menu at a point of the control that was clicked, and returns when it is closed, with
    // the command of the chosen entry, or 0.
    virtual int PopUp(std::span<const MenuEntry> menu, ControlPoint at) = 0;
};

// Menus in memory. In each one that pops up a person chooses the next of the texts, as they are
// read, such as "Undo". Without such an entry that is enabled, nothing is chosen.
class ZORBY_EXPORT MemoryMenus : public MenuPort {
public:
    int PopUp(std::span<const MenuEntry> menu, ControlPoint at) override;

    std::deque<std::string> choices;
    std::vector<MenuEntry> shown;  // the last menu
};

// Returns the port in force. In the plain one nothing is ever chosen.
ZORBY_EXPORT MenuPort& CurrentMenuPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetMenuPort(MenuPort* port);

}  // namespace zorby
