#include <zorby/platform/MemoryControls.h>

#include <algorithm>
#include <cstddef>

namespace zorby {

void MemoryText::Select(int first, int last) {
    selectedFrom = first;
    selectedTo = last;
}

void MemoryText::GetSelection(int& first, int& last) const {
    first = selectedFrom;
    last = selectedTo;
}

void MemoryList::Insert(int index, std::string_view entry, int data) {
    const int place = std::clamp(index, 0, GetCount());
    entries.insert(entries.begin() + place, {std::string(entry), data});
    if (selected >= place) ++selected;
}

void MemoryList::Remove(int index) {
    if (!Has(index)) return;
    entries.erase(entries.begin() + index);
    if (selected == index) selected = -1;
    if (selected > index) --selected;
}

std::string MemoryList::GetTextAt(int index) const {
    return Has(index) ? entries[static_cast<std::size_t>(index)].text : std::string();
}

int MemoryList::GetDataAt(int index) const {
    return Has(index) ? entries[static_cast<std::size_t>(index)].data : 0;
}

void MemoryList::Select(int index) {
    selected = Has(index) ? index : -1;
}

void MemoryTree::Insert(TreeItem item, TreeItem parent, int index, std::string_view itemText) {
    auto place = items.begin();
    for (int before = index; place != items.end(); ++place) {
        if (place->parent == parent && before-- == 0) break;
    }
    items.insert(place, {item, parent, std::string(itemText)});
}

void MemoryTree::SetBox(TreeItem item, TreeBox newBox) {
    if (Item* found = FindToChange(item)) found->box = newBox;
}

void MemoryTree::SetExpandable(TreeItem item, bool expandable) {
    if (Item* found = FindToChange(item)) found->isExpandable = expandable;
}

void MemoryTree::Expand(TreeItem item, bool expand) {
    if (Item* found = FindToChange(item)) found->isExpanded = expand;
}

void MemoryTree::RemoveAll() {
    items.clear();
    scrolledTo = kTreeRoot;
}

const MemoryTree::Item* MemoryTree::Find(TreeItem item) const {
    const auto found = std::ranges::find(items, item, &Item::number);
    return found == items.end() ? nullptr : &*found;
}

MemoryTree::Item* MemoryTree::FindToChange(TreeItem item) {
    const auto found = std::ranges::find(items, item, &Item::number);
    return found == items.end() ? nullptr : &*found;
}

const MemoryTree::Item* MemoryTree::Find(const std::vector<std::string>& path) const {
    const Item* found = nullptr;
    for (const std::string& step : path) {
        const auto children = ChildrenOf(found ? found->number : kTreeRoot);
        const auto child = std::ranges::find(children, step, &Item::text);
        if (child == children.end()) return nullptr;
        found = *child;
    }
    return found;
}

std::vector<const MemoryTree::Item*> MemoryTree::ChildrenOf(TreeItem parent) const {
    std::vector<const Item*> children;
    for (const Item& item : items) {
        if (item.parent == parent) children.push_back(&item);
    }
    return children;
}

}  // namespace zorby
