#include <quillory/desktop/CopiesModel.h>
#include <quillory/desktop/OpenRecord.h>
#include <quillory/desktop/Texts.h>

#include <QGuiApplication>
#include <QPalette>

namespace quillory {

CopiesModel::CopiesModel(OpenRecord& record, QObject* parent)
    : RowsModel(parent),
      record_(record),
      copies_(std::make_unique<RecordCopies>(HoldingsSystemInForce())) {
    connect(&record, &OpenRecord::Replaced, this, [this] {
        beginResetModel();
        rows_ = Read();
        endResetModel();
    });
    connect(&record, &OpenRecord::Changed, this, &CopiesModel::Refresh);
}

void CopiesModel::Renew() {
    beginResetModel();
    copies_ = std::make_unique<RecordCopies>(HoldingsSystemInForce());
    rows_ = Read();
    endResetModel();
}

std::vector<RecordCopies::Copy> CopiesModel::Read() const {
    if (record_.Session() == nullptr) return {};
    return copies_->CopiesOf(record_.Session()->Now());
}

void CopiesModel::Refresh() {
    std::vector<RecordCopies::Copy> rows = Read();
    const auto now = static_cast<int>(rows.size());
    ChangeRows(now, [&] { rows_ = std::move(rows); });
}

const CopyElement* CopiesModel::ElementAt(int column) const {
    const auto& elements = copies_->Elements();
    const auto at = static_cast<std::size_t>(column);
    return at < elements.size() ? &elements[at] : nullptr;
}

void CopiesModel::New(std::optional<int> like, const QString& barCode) {
    const std::string given = barCode.toStdString();
    record_.Do([&](EditSession& session) {
        session.Become(
            like ? copies_->WithOneLike(session.Now(), static_cast<std::size_t>(*like), given)
                 : copies_->WithNew(session.Now(), given));
    });
}

void CopiesModel::Remove(int row) {
    record_.Do([&](EditSession& session) {
        session.Become(copies_->Without(session.Now(), static_cast<std::size_t>(row)));
    });
}

int CopiesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CopiesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(copies_->Elements().size()) + 1;
}

QVariant CopiesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    }
    const CopyElement* element = ElementAt(section);
    if (role == Qt::ToolTipRole) {
        return element == nullptr ? tr("What the holdings system has no element for")
                                  : ToQt(PlaceText(element->place) + "  " + element->help);
    }
    if (role != Qt::DisplayRole) return {};
    return element == nullptr ? tr("Kept as it is") : ToQt(element->name);
}

QString CopiesModel::TextOf(const QModelIndex& index) const {
    const RecordCopies::Copy& copy = rows_[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    return ToQt(column < copy.texts.size() ? copy.texts[column] : copy.kept);
}

QVariant CopiesModel::data(const QModelIndex& index, int role) const {
    if (!HasCell(index)) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return TextOf(index);
        case Qt::AccessibleTextRole:
            return tr("Copy %1, %2: %3")
                .arg(index.row() + 1)
                .arg(headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString(),
                     TextOf(index));
        case Qt::ForegroundRole:
            if (ElementAt(index.column()) != nullptr) return {};
            return QGuiApplication::palette().color(QPalette::PlaceholderText);
        default:
            return {};
    }
}

Qt::ItemFlags CopiesModel::flags(const QModelIndex& index) const {
    if (!HasCell(index)) return Qt::NoItemFlags;
    const Qt::ItemFlags shown = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const bool isElement = ElementAt(index.column()) != nullptr;
    return isElement && record_.CanChange() ? shown | Qt::ItemIsEditable : shown;
}

bool CopiesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !HasCell(index) || AreRowsChanging()) return false;
    if (!record_.CanChange()) return false;
    const QString text = value.toString();
    if (text == TextOf(index)) return true;
    RecordCopies::Outcome outcome =
        copies_->WithText(record_.Session()->Now(), static_cast<std::size_t>(index.row()),
                          static_cast<std::size_t>(index.column()), text.toStdString());
    if (outcome.fault) {
        Q_EMIT Refused(ToQt(FaultText(*outcome.fault)));
        return false;
    }
    record_.Do([&](EditSession& session) { session.Become(std::move(outcome.record)); });
    return true;
}

}  // namespace quillory
