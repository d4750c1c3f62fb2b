#include <zorby/controls/ControlSet.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace zorby {

namespace {

template <class Port>
Port& Existing(Port* port, int id) {
    if (!port) throw std::out_of_range("no such control: " + std::to_string(id));
    return *port;
}

}  // namespace

ControlSet::Entry ControlSet::Create(WindowPort& window, const ControlRow& row) {
    if (row.kind == ControlKind::kText) {
        TextPort& text = window.AddText(row);
        return {row.id, &text, &text, nullptr, nullptr};
    }
    if (row.kind == ControlKind::kList) {
        ListPort& list = window.AddList(row);
        return {row.id, &list, nullptr, &list, nullptr};
    }
    if (row.kind == ControlKind::kTree) {
        TreePort& tree = window.AddTree(row);
        return {row.id, &tree, nullptr, nullptr, &tree};
    }
    return {row.id, &window.AddControl(row), nullptr, nullptr, nullptr};
}

void ControlSet::Add(const ControlRow& row) {
    entries_.push_back(Create(Existing(window_, row.id), row));
}

void ControlSet::Add(std::span<const ControlRow> rows, const ControlBox& place) {
    for (ControlRow row : rows) {
        row.box.left += place.left;
        row.box.top += place.top;
        Add(row);
    }
}

void ControlSet::Destroy() {
    for (const Entry& entry : entries_) window_->RemoveControl(entry.id);
    entries_.clear();
}

const ControlSet::Entry* ControlSet::Find(int id) const {
    const auto found = std::ranges::find(entries_, id, &Entry::id);
    return found == entries_.end() ? nullptr : &*found;
}

const ControlSet::Entry& ControlSet::Get(int id) const {
    return Existing(Find(id), id);
}

ControlPort& ControlSet::At(int id) const {
    return *Get(id).control;
}

TextPort& ControlSet::Text(int id) const {
    return Existing(Get(id).text, id);
}

ListPort& ControlSet::List(int id) const {
    return Existing(Get(id).list, id);
}

TreePort& ControlSet::Tree(int id) const {
    return Existing(Get(id).tree, id);
}

void ControlSet::Enable(std::span<const int> ids, bool enable) const {
    for (const int id : ids) {
        if (const Entry* entry = Find(id)) entry->control->Enable(enable);
    }
}

void ControlSet::Show(std::span<const int> ids, bool show) const {
    for (const int id : ids) {
        if (const Entry* entry = Find(id)) entry->control->Show(show);
    }
}

void ControlSet::EnableAll(bool enable) const {
    for (const Entry& entry : entries_) entry.control->Enable(enable);
}

void ControlSet::SetWindow(WindowPort& window) {
    window_ = &window;
}

bool ControlSet::IsEmpty() const {
    return entries_.empty();
}

}  // namespace zorby
