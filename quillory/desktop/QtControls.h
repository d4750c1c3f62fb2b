#pragma once

#include <zorby/platform/WindowPort.h>

#include <QWidget>
#include <map>
#include <memory>

class QBoxLayout;

namespace quillory {

// A part of a window that the library fills with its controls. They stand one below the other, in
// the order in which they are added, in boxes that Qt lays out. What a person does to them goes to
// the target.
class QtControls : public zorby::WindowPort {
public:
    // Keeps the references. The widget must have no layout; it owns the controls.
    QtControls(QWidget& window, zorby::CommandTarget& target);
    ~QtControls() override;
    QtControls(const QtControls&) = delete;
    QtControls& operator=(const QtControls&) = delete;

    zorby::ControlPort& AddControl(const zorby::ControlRow& row) override;
    zorby::TextPort& AddText(const zorby::ControlRow& row) override;
    zorby::ListPort& AddList(const zorby::ControlRow& row) override;
    zorby::TreePort& AddTree(const zorby::ControlRow& row) override;
    void RemoveControl(int id) override;

    // Null if there is none with this number.
    QWidget* Widget(int id) const;

private:
    struct Control {
        std::unique_ptr<zorby::ControlPort> port;
        std::unique_ptr<QWidget> widget;
    };
    template <class Port, class Box>
    Port& Keep(int id, std::unique_ptr<Box> widget);

    QWidget& window_;
    zorby::CommandTarget& target_;
    QBoxLayout* layout_;
    std::map<int, Control> controls_;
};

}  // namespace quillory
