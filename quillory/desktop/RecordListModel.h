#pragma once

#include <quillory/reports/ListRow.h>
#include <quillory/rules/Rule.h>

#include <QAbstractTableModel>
#include <QCache>
#include <optional>

namespace quillory {

class Desk;
class Document;

// The records of a file as a list. A row is read, and checked, when it is seen.
class RecordListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // Keeps the reference.
    explicit RecordListModel(Desk& desk, QObject* parent = nullptr);

    // Null for none. Keeps the pointer.
    void SetDocument(Document* document);
    // The list has other records, or another order.
    void Renew();
    // There may be more records at its end.
    void Grow();
    // A record has changed.
    void Refresh(std::size_t record);
    void RefreshAll();
    // What other windows have may be others by now in these rows.
    void RefreshHolders(int first, int last);

    std::optional<std::size_t> RecordAt(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct SeenRow {
        ListRow row;
        bool isDamaged = false;
        bool isChanged = false;
        std::optional<Severity> severity;  // the heaviest of what the rules say
        int remarks = 0;
        QString holder;  // another window that is changing it
    };

    const SeenRow& Seen(std::size_t record) const;
    QString HolderOf(std::size_t record) const;
    QString StateText(const SeenRow& row) const;
    QString StateSign(const SeenRow& row) const;
    QVariant ColorOf(const SeenRow& row) const;
    QString CellText(std::size_t record, int column) const;

    Desk& desk_;
    Document* document_ = nullptr;
    int rows_ = 0;
    mutable QCache<std::size_t, SeenRow> seen_;
    mutable ListRows reader_;
    mutable Item item_;
};

}  // namespace quillory
