#include <quillory/desktop/QtControls.h>
#include <quillory/desktop/QtPorts.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace quillory {

QtControls::QtControls(QWidget& window, zorby::CommandTarget& target)
    : window_(window), target_(target), layout_(new QVBoxLayout(&window)) {}

QtControls::~QtControls() = default;

template <class Port, class Box>
Port& QtControls::Keep(int id, std::unique_ptr<Box> widget) {
    auto port = std::make_unique<Port>(*widget);
    Port& kept = *port;
    layout_->addWidget(widget.get());
    widget->show();
    controls_[id] = {std::move(port), std::move(widget)};
    return kept;
}

zorby::ControlPort& QtControls::AddControl(const zorby::ControlRow& row) {
    const QString text = ShownText(row.text);
    std::unique_ptr<QAbstractButton> button;
    if (row.kind == zorby::ControlKind::kButton) button = std::make_unique<QPushButton>(text);
    if (row.kind == zorby::ControlKind::kRadio) button = std::make_unique<QRadioButton>(text);
    if (row.kind == zorby::ControlKind::kCheck) button = std::make_unique<QCheckBox>(text);
    if (!button) {
        auto label = std::make_unique<QLabel>(text);
        label->setWordWrap(true);
        return Keep<QtLabel>(row.id, std::move(label));
    }
    QObject::connect(button.get(), &QAbstractButton::clicked, &window_,
                     [this, id = row.id] { target_.OnCmdMsg(id, zorby::CN_Clicked, 0); });
    return Keep<QtButton>(row.id, std::move(button));
}

zorby::TextPort& QtControls::AddText(const zorby::ControlRow& row) {
    auto text = std::make_unique<QLineEdit>();
    QObject::connect(text.get(), &QLineEdit::textEdited, &window_,
                     [this, id = row.id] { target_.OnCmdMsg(id, zorby::CN_TextChanged, 0); });
    return Keep<QtText>(row.id, std::move(text));
}

zorby::ListPort& QtControls::AddList(const zorby::ControlRow& row) {
    auto list = std::make_unique<QListWidget>();
    QObject::connect(list.get(), &QListWidget::currentRowChanged, &window_,
                     [this, id = row.id] { target_.OnCmdMsg(id, zorby::CN_SelectionChanged, 0); });
    return Keep<QtList>(row.id, std::move(list));
}

zorby::TreePort& QtControls::AddTree(const zorby::ControlRow& row) {
    auto tree = std::make_unique<QTreeWidget>();
    tree->setHeaderHidden(true);
    QtTree& port = Keep<QtTree>(row.id, std::move(tree));
    const auto tells = [this, id = row.id](int notice) {
        return [this, id, notice](zorby::TreeItem item) { target_.OnCmdMsg(id, notice, item); };
    };
    port.Report(tells(zorby::CN_Clicked), tells(zorby::CN_Expanding));
    return port;
}

void QtControls::RemoveControl(int id) {
    controls_.erase(id);
}

QWidget* QtControls::Widget(int id) const {
    const auto found = controls_.find(id);
    return found == controls_.end() ? nullptr : found->second.widget.get();
}

}  // namespace quillory
