#include <quillory/desktop/FieldTree.h>
#include <quillory/places/Tag.h>

namespace quillory {

FieldTree::FieldTree(QWidget* parent) : QTreeWidget(parent) {
    setAccessibleName(tr("Fields by groups"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    tree_.Attach(&port_);
    tree_.SetOptions(1, 0, 1, 0, 0);
    tree_.PopulateFieldGroups({}, 0, 0, 1);
    port_.Report([this](zorby::TreeItem item) { Click(item); },
                 [this](zorby::TreeItem item) { tree_.OnNotify(zorby::CN_Expanding, item); });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* current) {
        const zorby::TreeItem item = QtTree::NumberOf(current);
        if (tree_.GetItemSelection(item) == zorby::CTreeWithCheckBoxes::kClear) Click(item);
    });
}

void FieldTree::Click(zorby::TreeItem item) {
    tree_.OnNotify(zorby::CN_Clicked, item);
    Q_EMIT Changed();
}

// The paths of what is checked begin with a backslash and the tag.
std::string FieldTree::Tag() const {
    std::string paths;
    tree_.GetSelected(paths);
    return paths.empty() ? paths : paths.substr(1, kTagSize);
}

}  // namespace quillory
