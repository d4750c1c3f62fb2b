#include <quillory/desktop/Desk.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/RecordListModel.h>
#include <quillory/desktop/Texts.h>

#include <QGuiApplication>
#include <QPalette>
#include <limits>

namespace quillory {
namespace {

constexpr int kSeenRows = 2000;
constexpr int kColumns = static_cast<int>(ListColumn::Number) + 1;

}  // namespace

RecordListModel::RecordListModel(Desk& desk, QObject* parent)
    : QAbstractTableModel(parent), desk_(desk), seen_(kSeenRows) {}

void RecordListModel::SetDocument(Document* document) {
    document_ = document;
    Renew();
}

void RecordListModel::Renew() {
    beginResetModel();
    seen_.clear();
    rows_ = 0;
    endResetModel();
    Grow();
}

void RecordListModel::Grow() {
    if (document_ == nullptr) return;
    const std::size_t most = std::numeric_limits<int>::max();
    const int size = static_cast<int>(std::min(document_->Listing().Size(), most));
    if (size <= rows_) return;
    beginInsertRows({}, rows_, size - 1);
    rows_ = size;
    endInsertRows();
}

void RecordListModel::Refresh(std::size_t record) {
    seen_.remove(record);
    const auto row = document_->Listing().RowOf(record);
    if (!row || static_cast<int>(*row) >= rows_) return;
    const int at = static_cast<int>(*row);
    Q_EMIT dataChanged(index(at, 0), index(at, kColumns - 1));
}

void RecordListModel::RefreshAll() {
    seen_.clear();
    if (rows_ > 0) Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, kColumns - 1));
}

void RecordListModel::RefreshHolders(int first, int last) {
    for (int row = first; row <= last; ++row) {
        const QModelIndex at = index(row, static_cast<int>(ListColumn::State));
        const auto record = RecordAt(at);
        SeenRow* known = record ? seen_.object(*record) : nullptr;
        if (known == nullptr) continue;
        const QString holder = HolderOf(*record);
        if (holder == known->holder) continue;
        known->holder = holder;
        Q_EMIT dataChanged(at, at);
    }
}

QString RecordListModel::HolderOf(std::size_t record) const {
    return ToQt(document_->File().HolderOf(record));
}

std::optional<std::size_t> RecordListModel::RecordAt(const QModelIndex& index) const {
    if (!index.isValid() || document_ == nullptr) return std::nullopt;
    const auto row = static_cast<std::size_t>(index.row());
    const RecordListing& listing = document_->Listing();
    // Fewer may be listed than the view knows of yet.
    return row < listing.Size() ? std::optional(listing.At(row)) : std::nullopt;
}

int RecordListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int RecordListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant RecordListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::ToolTipRole && section == 0) {
        return tr("● well, ▲ warnings, ✖ errors, ✎ changed, ⊘ changed in another window");
    }
    if (role != Qt::DisplayRole) return {};
    switch (static_cast<ListColumn>(section)) {
        case ListColumn::State:
            return QStringLiteral("●");
        case ListColumn::Title:
            return tr("Title");
        case ListColumn::Author:
            return tr("Author");
        case ListColumn::Date:
            return tr("Date");
        case ListColumn::Material:
            return tr("Material");
        case ListColumn::Number:
            break;
    }
    return tr("No.");
}

const RecordListModel::SeenRow& RecordListModel::Seen(std::size_t record) const {
    if (const SeenRow* known = seen_.object(record)) return *known;
    auto* row = new SeenRow;
    try {
        document_->File().Read(record, item_);
        row->row = reader_.RowOf(item_.record);
        row->isDamaged = document_->File().IsDamaged(record);
        row->isChanged = document_->File().IsChanged(record);
        const auto remarks = row->isDamaged ? std::vector<Remark>() : desk_.Check(item_.record);
        row->remarks = static_cast<int>(remarks.size());
        if (!remarks.empty()) row->severity = remarks.front().severity;
        row->holder = HolderOf(record);
    } catch (const FileError&) {
        row->isDamaged = true;
    }
    seen_.insert(record, row);
    return *row;
}

QString RecordListModel::StateSign(const SeenRow& row) const {
    const bool isWell = !row.severity || *row.severity == Severity::Note;
    const QString sign = row.isDamaged ? SignOf(Severity::Error)
                         : isWell      ? QStringLiteral("●")
                                       : SignOf(*row.severity);
    if (!row.holder.isEmpty()) return sign + u'⊘';
    return row.isChanged ? sign + u'✎' : sign;
}

QString RecordListModel::StateText(const SeenRow& row) const {
    QString text = tr("well");
    if (row.isDamaged) {
        text = tr("damaged, can't be read");
    } else if (row.remarks > 0 && row.severity) {
        text = tr("findings: %1, the heaviest: %2").arg(row.remarks).arg(WordOf(*row.severity));
    }
    if (!row.holder.isEmpty()) return text + tr("; being changed by %1").arg(row.holder);
    return row.isChanged ? text + tr("; changed, not saved yet") : text;
}

QVariant RecordListModel::ColorOf(const SeenRow& row) const {
    const QColor ground = QGuiApplication::palette().color(QPalette::Base);
    if (row.isDamaged) return quillory::ColorOf(Severity::Error, ground);
    if (row.severity && *row.severity != Severity::Note) {
        return quillory::ColorOf(*row.severity, ground);
    }
    return ground.lightness() < 128 ? QColor(0x81c995) : QColor(0x1e7e34);
}

QString RecordListModel::CellText(std::size_t record, int column) const {
    const SeenRow& row = Seen(record);
    const auto which = static_cast<ListColumn>(column);
    if (which == ListColumn::State) return StateSign(row);
    if (which == ListColumn::Number) {
        const RecordSet& records = document_->File();
        const bool hasNumber = !records.IsStore() || !records.IsNew(record);
        return hasNumber ? QString::number(records.NumberOf(record)) : tr("new");
    }
    if (which == ListColumn::Title && row.row.title.empty()) {
        return row.isDamaged ? tr("(damaged record)") : tr("(no title)");
    }
    return ToQt(TextOf(row.row, which));
}

QVariant RecordListModel::data(const QModelIndex& index, int role) const {
    const auto record = RecordAt(index);
    if (!record) return {};
    const bool isState = index.column() == static_cast<int>(ListColumn::State);
    switch (role) {
        case Qt::DisplayRole:
            return CellText(*record, index.column());
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return isState ? StateText(Seen(*record)) : CellText(*record, index.column());
        case Qt::ForegroundRole:
            return isState ? ColorOf(Seen(*record)) : QVariant();
        case Qt::TextAlignmentRole:
            return int(isState ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
        default:
            return {};
    }
}

}  // namespace quillory
