#include <zorby/platform/MenuPort.h>
#include <zorby/platform/detail/PortSlot.h>

#include <algorithm>
#include <utility>

namespace zorby {

namespace {

std::string AsRead(std::string_view text) {
    std::string read(text.substr(0, text.find('\t')));
    std::erase(read, '&');
    return read;
}

}  // namespace

int MemoryMenus::PopUp(std::span<const MenuEntry> menu, ControlPoint) {
    shown.assign(menu.begin(), menu.end());
    if (choices.empty()) return 0;
    const std::string choice = std::exchange(choices.front(), {});
    choices.pop_front();
    const auto chosen = std::ranges::find_if(menu, [&choice](const MenuEntry& entry) {
        return entry.isEnabled && AsRead(entry.text) == choice;
    });
    return chosen == menu.end() ? 0 : chosen->command;
}

MenuPort& CurrentMenuPort() {
    return SlotOf<MenuPort, MemoryMenus>().Get();
}

void SetMenuPort(MenuPort* port) {
    SlotOf<MenuPort, MemoryMenus>().Set(port);
}

}  // namespace zorby
