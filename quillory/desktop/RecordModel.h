#pragma once

#include <quillory/desktop/RowsModel.h>
#include <quillory/edits/EditSession.h>
#include <quillory/places/Place.h>
#include <quillory/rules/Remark.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillory {

class OpenRecord;

// A record as rows: the leader, control fields, and the subfields of data fields.
class RecordModel : public RowsModel {
    Q_OBJECT

public:
    enum Column : int { Tag, First, Second, Code, Text, Name, Columns };

    // Keeps the reference.
    explicit RecordModel(OpenRecord& record, QObject* parent = nullptr);

    // Marks the rows that something is said of.
    void SetRemarks(const std::vector<Remark>& remarks);

    // What is in a cell. Of the record as a whole if there is no cell.
    Place PlaceOf(const QModelIndex& index) const;
    // The cell of a place, or of what comes nearest to it.
    QModelIndex IndexOf(const Place& place) const;
    // The field of a row; nothing for the leader.
    std::optional<std::size_t> FieldOf(const QModelIndex& index) const;
    // The subfield of a row; nothing for a row that is a whole field.
    std::optional<std::size_t> PartOf(const QModelIndex& index) const;
    QModelIndex IndexOf(std::size_t field, std::size_t part, int column) const;
    // The text of the first subfield with a code in the field of a row, or an empty one.
    std::string TextOf(const QModelIndex& index, char code) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    // What was typed can't stand in its cell.
    void Refused(const QString& why);

private:
    struct Row {
        int field = -1;  // -1 for the leader
        int part = -1;   // of a data field; -1 for a row that is a whole field
        bool isFirst = true;
        bool isBroken = false;  // a data field that is not made of subfields
    };

    static std::vector<Row> RowsOf(const RecordState& state);
    void Take();
    void Refresh();
    // Null if there is no such cell.
    const Row* RowOf(const QModelIndex& index) const;
    QString TextOf(const Row& row, int column, bool isForEditor) const;
    QString NameOf(const Row& row) const;
    QString AccessibleText(const QModelIndex& index) const;
    static QString RuleOf(const Row& row, int column);
    bool Change(const Row& row, int column, const QString& text);
    bool ChangePart(const Row& row, int column, const QString& text);

    OpenRecord& record_;
    std::shared_ptr<const RecordState> shown_;  // null if no record is open
    std::vector<Row> rows_;
    std::vector<std::optional<Severity>> marks_;  // by row
    std::vector<QString> notes_;
};

}  // namespace quillory
