#include <zorby/editing/EditMARCAlpha.h>

#include <algorithm>
#include <iterator>

namespace zorby {

namespace {

struct CommandRow {
    int command;
    void (CEditMARCAlpha::*run)();
    int (CEditMARCAlpha::*isPossible)() const;
};

using Edit = CEditMARCAlpha;
constexpr CommandRow kCommands[] = {
    {kEditUndo, &Edit::EditUndo, &Edit::UndoStateHasChanged},
    {kEditCut, &Edit::EditCut, &Edit::CanCut},
    {kEditCopy, &Edit::EditCopy, &Edit::CanCopy},
    {kEditPaste, &Edit::EditPaste, &Edit::CanPaste},
    {kEditClear, &Edit::EditClear, &Edit::CanCut},
    {kEditPasteNextNumber, &Edit::EditPasteNextNumber, &Edit::CanPasteNextNumber},
    {kEditSelectAll, &Edit::EditSelectAll, &Edit::CanSelectAll},
};

const CommandRow* FindCommand(int command) {
    const auto* const found = std::ranges::find(kCommands, command, &CommandRow::command);
    return found == std::end(kCommands) ? nullptr : found;
}

}  // namespace

void CEditMARCAlpha::EditSelectAll() {
    SetSel(0, port_.GetTextLength());
}

int CEditMARCAlpha::CanSelectAll() const {
    return GetWindowTextLengthA() > 0 ? 1 : 0;
}

bool CEditMARCAlpha::CanDo(int command) const {
    const CommandRow* row = FindCommand(command);
    return row && (this->*row->isPossible)() != 0;
}

int CEditMARCAlpha::OnCmdMsg(int id, int code, TreeItem) {
    const CommandRow* row = FindCommand(id);
    if (!row || code != CN_Clicked) return 0;
    if (CanDo(id)) (this->*row->run)();
    return 1;
}

void CEditMARCAlpha::SetContextMenu(CommandTarget* target, unsigned menu, unsigned submenu) {
    contextMenuTarget_ = target;
    contextMenu_ = menu;
    contextSubmenu_ = submenu;
}

void CEditMARCAlpha::OnContextMenu(ControlPoint point) {
    std::vector<MenuEntry> menu = EditMenu(contextMenu_, contextSubmenu_);
    if (menu.empty()) return;
    port_.SetFocus();
    for (MenuEntry& entry : menu) entry.isEnabled = CanDo(entry.command);
    const int command = CurrentMenuPort().PopUp(menu, point);
    CommandTarget* const target = contextMenuTarget_ ? contextMenuTarget_ : this;
    if (command != 0) target->OnCmdMsg(command, CN_Clicked, kTreeRoot);
}

}  // namespace zorby
