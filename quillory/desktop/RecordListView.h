#pragma once

#include <QTableView>

namespace quillory {

// The list of records. Titles have what the other columns leave, and always some room.
class RecordListView : public QTableView {
    Q_OBJECT

public:
    RecordListView(QAbstractItemModel* model, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int WidthOf(int chars) const;
    void FitColumns();
};

}  // namespace quillory
