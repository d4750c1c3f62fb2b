#pragma once

#include <QAbstractTableModel>

namespace quillory {

// A table that has more or fewer rows after a step.
class RowsModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

protected:
    // A view can still ask for a cell whose row went away in the step that the view asked for.
    bool HasCell(const QModelIndex& index) const {
        return index.isValid() && index.row() < rowCount();
    }
    // While they are, a view takes leave of rows, and what a person typed there goes with them.
    bool AreRowsChanging() const { return areRowsChanging_; }

    // `take` puts in place what is shown from then on, in `now` rows. Nothing of it may be there
    // before: a view asks between what is announced and what is done.
    template <class Take>
    void ChangeRows(int now, Take&& take) {
        const int old = rowCount();
        areRowsChanging_ = true;
        if (now > old) beginInsertRows({}, old, now - 1);
        if (now < old) beginRemoveRows({}, now, old - 1);
        take();
        if (now > old) endInsertRows();
        if (now < old) endRemoveRows();
        areRowsChanging_ = false;
        if (now > 0) Q_EMIT dataChanged(index(0, 0), index(now - 1, columnCount() - 1));
    }

private:
    bool areRowsChanging_ = false;
};

}  // namespace quillory
