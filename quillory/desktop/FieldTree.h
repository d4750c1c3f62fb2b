#pragma once

#include <quillory/desktop/QtPorts.h>
#include <zorby/selection/TreeFieldAndSub.h>

#include <QTreeWidget>
#include <string>

namespace quillory {

// The fields of the dictionary in their groups, one of which is checked: the one in hand.
class FieldTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit FieldTree(QWidget* parent = nullptr);

    // "245"; empty if none is checked.
    std::string Tag() const;

Q_SIGNALS:
    void Changed();

private:
    void Click(zorby::TreeItem item);

    QtTree port_{*this};
    zorby::CTreeFieldAndSub tree_;
};

}  // namespace quillory
