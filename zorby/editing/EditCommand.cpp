#include <zorby/editing/EditCommand.h>

#include <span>

namespace zorby {

namespace {

constexpr MenuEntry kEdit[] = {
    // The key that cuts is Ctrl+X in this menu too.
    {"&Undo\tCtrl+Z", kEditUndo},
    {"Cu&t\tCtrl+Y", kEditCut},
    {"&Copy\tCtrl+C", kEditCopy},
    {"&Paste\tCtrl+V", kEditPaste},
    {"Clea&r\tDelete", kEditClear},
    {"Paste &Next Sequence Number\tAlt+=", kEditPasteNextNumber},
    {"Select &All\tCtrl+A", kEditSelectAll},
};

constexpr MenuEntry kEditHoldings[] = {
    {"&Undo\tCtrl+Z", kEditUndo},
    {"Cu&t\tCtrl+X", kEditCut},
    {"&Copy\tCtrl+C", kEditCopy},
    {"&Paste\tCtrl+V", kEditPaste},
    {"Paste &Next Sequence Number\tAlt+=", kEditPasteNextNumber},
    {"Clea&r\tDelete", kEditClear},
    {"Select &All\tCtrl+A", kEditSelectAll},
};

}  // namespace

std::vector<MenuEntry> EditMenu(unsigned menu, unsigned submenu) {
    std::span<const MenuEntry> entries;
    if (menu == kEditContextMenu && submenu == kSubmenuEdit) entries = kEdit;
    if (menu == kEditContextMenu && submenu == kSubmenuEditHoldings) entries = kEditHoldings;
    return {entries.begin(), entries.end()};
}

}  // namespace zorby
