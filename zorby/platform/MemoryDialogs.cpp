#include <zorby/platform/MemoryDialogs.h>
#include <zorby/platform/detail/PortSlot.h>

#include <algorithm>

namespace zorby {

namespace {

std::string WithoutAccelerator(std::string text) {
    std::erase(text, '&');
    return text;
}

bool IsClicked(ControlKind kind) {
    return kind == ControlKind::kButton || kind == ControlKind::kRadio ||
           kind == ControlKind::kCheck;
}

}  // namespace

template <class Control>
Control& MemoryWindow::Add(const ControlRow& row) {
    auto made = std::make_unique<Control>(row);
    Control& control = *made;
    controls.push_back(std::move(made));
    return control;
}

ControlPort& MemoryWindow::AddControl(const ControlRow& row) {
    return Add<MemoryControl>(row);
}

TextPort& MemoryWindow::AddText(const ControlRow& row) {
    return Add<MemoryText>(row);
}

ListPort& MemoryWindow::AddList(const ControlRow& row) {
    return Add<MemoryList>(row);
}

TreePort& MemoryWindow::AddTree(const ControlRow& row) {
    return Add<MemoryTree>(row);
}

void MemoryWindow::RemoveControl(int id) {
    std::erase_if(controls, [id](const auto& control) { return control->id == id; });
}

int MemoryWindow::Run(CommandTarget& target) {
    target_ = &target;
    result_ = 0;
    if (person_) person_(*this);
    if (IsOpen()) Report(kIdCancel, CN_Clicked);
    return IsOpen() ? kIdCancel : result_;
}

void MemoryWindow::End(int result) {
    result_ = result;
}

ShownControl* MemoryWindow::Find(int id) const {
    const auto found = std::ranges::find(controls, id, &ShownControl::id);
    return found == controls.end() ? nullptr : found->get();
}

int MemoryWindow::IdOf(std::string_view text) const {
    const auto found = std::ranges::find_if(controls, [text](const auto& control) {
        return IsClicked(control->kind) && control->IsOpen() &&
               WithoutAccelerator(control->text) == text;
    });
    return found == controls.end() ? 0 : (*found)->id;
}

std::string MemoryWindow::ShownLabels() const {
    std::string labels;
    for (const auto& control : controls) {
        if (control->kind != ControlKind::kLabel || !control->isShown) continue;
        labels += control->text + '\n';
    }
    return labels;
}

ShownControl* MemoryWindow::Reach(int id) const {
    ShownControl* control = IsOpen() ? Find(id) : nullptr;
    return control && control->IsOpen() ? control : nullptr;
}

bool MemoryWindow::Click(int id) {
    ShownControl* control = Reach(id);
    if (!control || !IsClicked(control->kind)) return false;
    if (control->kind == ControlKind::kCheck) control->isChecked = !control->isChecked;
    if (control->kind == ControlKind::kRadio) CheckRadio(*control);
    Report(id, CN_Clicked);
    return true;
}

void MemoryWindow::CheckRadio(const ShownControl& clicked) {
    const auto isRadio = [](const auto& control) { return control->kind == ControlKind::kRadio; };
    const auto at = std::ranges::find(controls, clicked.id, &ShownControl::id);
    const auto end = std::find_if_not(at, controls.end(), isRadio);
    auto first = at;
    while (first != controls.begin() && isRadio(*(first - 1))) --first;
    for (; first != end; ++first) (*first)->isChecked = first == at;
}

bool MemoryWindow::Type(int id, std::string_view text) {
    auto* edit = dynamic_cast<MemoryText*>(Reach(id));
    if (!edit) return false;
    edit->text = text;
    edit->selectedFrom = edit->selectedTo = static_cast<int>(text.size());
    Report(id, CN_TextChanged);
    return true;
}

bool MemoryWindow::Choose(int id, std::string_view entry) {
    auto* list = dynamic_cast<MemoryList*>(Reach(id));
    if (!list) return false;
    const auto found = std::ranges::find(list->entries, entry, &MemoryList::Entry::text);
    if (found == list->entries.end()) return false;
    list->selected = static_cast<int>(found - list->entries.begin());
    Report(id, CN_SelectionChanged);
    return true;
}

bool MemoryWindow::ClickItem(int id, const std::vector<std::string>& path) {
    auto* tree = dynamic_cast<MemoryTree*>(Reach(id));
    if (!tree || path.empty()) return false;
    for (auto last = path.begin() + 1; last < path.end(); ++last) {
        const MemoryTree::Item* item = tree->Find(std::vector(path.begin(), last));
        if (!item) return false;
        Open(*tree, item->number);
    }
    const MemoryTree::Item* item = tree->Find(path);
    if (!item || item->box == TreeBox::kNone) return false;
    Report(id, CN_Clicked, item->number);
    return true;
}

void MemoryWindow::Open(MemoryTree& tree, TreeItem item) {
    if (tree.Find(item)->isExpanded) return;
    Report(tree.id, CN_Expanding, item);
    tree.Expand(item, true);
}

void MemoryWindow::Report(int id, int code, TreeItem item) {
    if (target_) target_->OnCmdMsg(id, code, item);
}

std::unique_ptr<DialogWindowPort> MemoryDialogs::Open(WindowPort*) {
    ++opened;
    if (persons.empty()) return std::make_unique<MemoryWindow>();
    MemoryWindow::Person person = std::move(persons.front());
    persons.pop_front();
    return std::make_unique<MemoryWindow>(std::move(person));
}

DialogPort& CurrentDialogPort() {
    return SlotOf<DialogPort, MemoryDialogs>().Get();
}

void SetDialogPort(DialogPort* port) {
    SlotOf<DialogPort, MemoryDialogs>().Set(port);
}

}  // namespace zorby
