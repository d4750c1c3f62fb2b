#pragma once

#include <quillory/repair/Repair.h>

#include <QDialog>
#include <vector>

class QTreeWidget;

namespace quillory {

class CodeLists;

// The repairs of a record, each with a tick, and what has to be left as it is.
class RepairDialog : public QDialog {
    Q_OBJECT

public:
    RepairDialog(const std::vector<Repair>& repairs, const CodeLists& lists,
                 QWidget* parent = nullptr);

    // For each repair whether it is ticked.
    std::vector<bool> Chosen() const;

private:
    QTreeWidget* list_;
};

}  // namespace quillory
