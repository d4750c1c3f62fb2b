#pragma once

#include <zorby/Export.h>
#include <zorby/platform/MenuPort.h>

#include <cstdint>
#include <vector>

namespace zorby {

// The commands of an edit control, by the numbers that its context menus give them.
enum EditCommand : std::int32_t {
    kEditUndo = 10301,
    kEditCut = 10302,
    kEditCopy = 10303,
    kEditPaste = 10304,
    kEditClear = 10305,
    kEditPasteNextNumber = 10306,
    kEditSelectAll = 10307,
};

// The menu of the library, and its submenus.
inline constexpr unsigned kEditContextMenu = 10300;
enum EditSubmenu : std::uint32_t { kSubmenuEdit = 0, kSubmenuEditHoldings = 1 };

// Returns the entries of a submenu, all enabled, or none if there is no such menu. Its texts last
// for the whole run of the program.
ZORBY_EXPORT std::vector<MenuEntry> EditMenu(unsigned menu, unsigned submenu);

}  // namespace zorby
