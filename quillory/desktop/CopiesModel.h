#pragma once

#include <quillory/desktop/RowsModel.h>
#include <quillory/edits/RecordCopies.h>

#include <memory>
#include <optional>
#include <vector>

namespace quillory {

class OpenRecord;

// The copies of the record in hand, a row each, by the holdings system in force: a column for each
// of its elements, and one for what is no element and stays as it is.
class CopiesModel : public RowsModel {
    Q_OBJECT

public:
    // Keeps the reference.
    explicit CopiesModel(OpenRecord& record, QObject* parent = nullptr);

    const RecordCopies& Copies() const { return *copies_; }
    // Another system may be in force.
    void Renew();
    // The element of a column; null for the last one.
    const CopyElement* ElementAt(int column) const;
    // Each is one step. The first copy that `New` is to be like, if any, is that of a row.
    void New(std::optional<int> like, const QString& barCode);
    void Remove(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    void Refused(const QString& why);

private:
    std::vector<RecordCopies::Copy> Read() const;
    void Refresh();
    QString TextOf(const QModelIndex& index) const;

    OpenRecord& record_;
    std::unique_ptr<const RecordCopies> copies_;
    std::vector<RecordCopies::Copy> rows_;
};

}  // namespace quillory
