#pragma once

#include <zorby/Export.h>
#include <zorby/platform/MemoryControls.h>
#include <zorby/platform/WindowPort.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorby {

// A window in memory. What a person does in it stands below; each of these operations returns false
// and does nothing if the control is hidden, disabled or not there, or the dialog has ended.
class ZORBY_EXPORT MemoryWindow : public DialogWindowPort {
public:
    using Person = std::function<void(MemoryWindow&)>;

    // `person` uses the dialog while it runs. A dialog that is still open afterwards, or that
    // nobody uses, is cancelled.
    explicit MemoryWindow(Person person = {}) : person_(std::move(person)) {}

    ControlPort& AddControl(const ControlRow& row) override;
    TextPort& AddText(const ControlRow& row) override;
    ListPort& AddList(const ControlRow& row) override;
    TreePort& AddTree(const ControlRow& row) override;
    void RemoveControl(int id) override;
    void SetTitle(std::string_view newTitle) override { title = newTitle; }
    int Run(CommandTarget& target) override;
    void End(int result) override;

    // Where a window that isn't a dialog reports to.
    void SetTarget(CommandTarget* target) { target_ = target; }
    bool IsOpen() const { return result_ == 0; }

    // Controls by their numbers; null if there is none, or none of that kind.
    ShownControl* Find(int id) const;
    MemoryText* Text(int id) const { return dynamic_cast<MemoryText*>(Find(id)); }
    MemoryList* List(int id) const { return dynamic_cast<MemoryList*>(Find(id)); }
    MemoryTree* Tree(int id) const { return dynamic_cast<MemoryTree*>(Find(id)); }
    // Returns the number of the first open button, radio button or check box with this text, or 0.
    // A person reads the text without "&".
    int IdOf(std::string_view text) const;
    // Returns the texts of all labels that are shown, one a line.
    std::string ShownLabels() const;

    bool Click(int id);
    bool Click(std::string_view text) { return Click(IdOf(text)); }
    bool Type(int id, std::string_view text);  // in the place of what was there
    bool Choose(int id, std::string_view entry);
    // Opens the items on the way, where they are closed, and clicks on the box of the last one.
    bool ClickItem(int id, const std::vector<std::string>& path);
    bool Ok() { return Click(kIdOk); }
    bool Cancel() { return Click(kIdCancel); }

    std::string title;
    std::vector<std::unique_ptr<ShownControl>> controls;  // in the order of creation

private:
    template <class Control>
    Control& Add(const ControlRow& row);
    // Returns null where the control can't be used.
    ShownControl* Reach(int id) const;
    void CheckRadio(const ShownControl& clicked);
    void Open(MemoryTree& tree, TreeItem item);
    void Report(int id, int code, TreeItem item = kTreeRoot);

    Person person_;
    CommandTarget* target_ = nullptr;
    int result_ = 0;
};

// Dialogs in memory. Each one that opens is used by the next person in the queue.
class ZORBY_EXPORT MemoryDialogs : public DialogPort {
public:
    std::unique_ptr<DialogWindowPort> Open(WindowPort* parent) override;

    std::deque<MemoryWindow::Person> persons;
    int opened = 0;
};

}  // namespace zorby
