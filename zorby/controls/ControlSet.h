#pragma once

#include <zorby/Export.h>
#include <zorby/platform/WindowPort.h>

#include <span>
#include <string_view>
#include <vector>

namespace zorby {

// The controls that a dialog or a composite control has made, by their numbers. The window owns
// them. Asking for a control that wasn't added, or for one as what it isn't, throws
// std::out_of_range.
class ZORBY_EXPORT ControlSet {
public:
    // The window must outlive the set.
    void SetWindow(WindowPort& window);

    void Add(const ControlRow& row);
    // The boxes are moved by where `place` begins.
    void Add(std::span<const ControlRow> rows, const ControlBox& place = {});
    // Removes all controls from the window in the order of their creation.
    void Destroy();

    bool Has(int id) const { return Find(id) != nullptr; }
    bool IsEmpty() const;
    ControlPort& At(int id) const;
    TextPort& Text(int id) const;
    ListPort& List(int id) const;
    TreePort& Tree(int id) const;

    // These skip numbers that weren't added.
    void Enable(std::span<const int> ids, bool enable) const;
    void Show(std::span<const int> ids, bool show) const;
    void EnableAll(bool enable) const;

private:
    struct Entry {
        int id;
        ControlPort* control;
        TextPort* text;
        ListPort* list;
        TreePort* tree;
    };

    static Entry Create(WindowPort& window, const ControlRow& row);
    const Entry* Find(int id) const;
    const Entry& Get(int id) const;

    WindowPort* window_ = nullptr;
    std::vector<Entry> entries_;
};

}  // namespace zorby
