#include <quillory/desktop/OpenRecord.h>
#include <quillory/desktop/RecordModel.h>
#include <quillory/desktop/Texts.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/reports/DictionaryNames.h>
#include <quillory/text/Visible.h>

#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QRegularExpression>
#include <algorithm>

namespace quillory {
namespace {

constexpr auto kNameOnly = zorby::EDO_NameOnly;
constexpr QChar kBlankSign = u'#';

FieldShape ShapeOf(const EditSession::Field& field) {
    return quillory::ShapeOf(zorby::CommFormatField{field.tag, field.content});
}

struct SignForDelimiter {
    QChar sign;
    QChar standIn;  // no character
};
constexpr SignForDelimiter kSigns[] = {{u'‡', u'\uFDD2'}, {u'ǂ', u'\uFDD3'}};

// Whether a sign stood in the text before, beside the same character on one side of it.
bool StoodBefore(const QString& before, const QString& text, qsizetype at) {
    return before.contains(text.sliced(at, std::min<qsizetype>(2, text.size() - at))) ||
           (at > 0 && before.contains(text.sliced(at - 1, 2)));
}

// The signs that stood in the text before are part of it, and no delimiters.
QString WithOldSignsHidden(const QString& text, const QString& before) {
    QString hidden = text;
    for (const auto& [sign, standIn] : kSigns) {
        for (auto at = text.indexOf(sign); at >= 0; at = text.indexOf(sign, at + 1)) {
            if (StoodBefore(before, text, at)) hidden[at] = standIn;
        }
    }
    return hidden;
}

// A person types a subfield with its delimiter as "‡b" or "ǂb". A delimiter without a code begins
// no subfield, and is not taken.
std::string WithDelimiters(const QString& typed, const QString& before) {
    static const QRegularExpression kWithoutCode(QStringLiteral("[‡ǂ\x1F](?=[‡ǂ\x1F]|$)"));
    QString text = WithOldSignsHidden(typed, before);
    text.replace(u'\n', u' ').replace(u'\t', u' ').remove(kWithoutCode);
    for (const auto& [sign, standIn] : kSigns) {
        text.replace(sign, QChar(zorby::kDelimiter)).replace(standIn, sign);
    }
    return text.toStdString();
}

std::string PutTogether(std::string_view head, const std::vector<std::string>& parts) {
    std::string content(head);
    for (const std::string& part : parts) content += part;
    return content;
}

bool IsOneAscii(const QString& text) {
    return text.size() == 1 && text[0] > u' ' && text[0] < u'\x7f';
}

}  // namespace

RecordModel::RecordModel(OpenRecord& record, QObject* parent) : RowsModel(parent), record_(record) {
    connect(&record, &OpenRecord::Replaced, this, [this] {
        beginResetModel();
        Take();
        SetRemarks({});
        endResetModel();
    });
    connect(&record, &OpenRecord::Changed, this, &RecordModel::Refresh);
}

std::vector<RecordModel::Row> RecordModel::RowsOf(const RecordState& state) {
    std::vector<Row> rows(1);
    int index = 0;
    for (const auto& field : state.fields) {
        const FieldShape shape = ShapeOf(field);
        const auto parts = static_cast<int>(PartsOf(field.content).parts.size());
        if (shape != kDataShape || parts == 0) {
            rows.push_back({index, -1, true, shape == kBrokenShape});
        } else {
            for (int part = 0; part < parts; ++part) rows.push_back({index, part, part == 0});
        }
        ++index;
    }
    return rows;
}

void RecordModel::Take() {
    shown_ = record_.Session() == nullptr ? nullptr : record_.Session()->Shared();
    rows_ = shown_ == nullptr ? std::vector<Row>() : RowsOf(*shown_);
    marks_.resize(rows_.size());
    notes_.resize(rows_.size());
}

void RecordModel::Refresh() {
    const auto now = static_cast<int>(RowsOf(record_.Session()->Now()).size());
    ChangeRows(now, [this] { Take(); });
}

void RecordModel::SetRemarks(const std::vector<Remark>& remarks) {
    marks_.assign(rows_.size(), std::nullopt);
    notes_.assign(rows_.size(), {});
    for (const Remark& remark : remarks) {
        const QModelIndex at = IndexOf(remark.place);
        if (!at.isValid()) continue;
        const auto row = static_cast<std::size_t>(at.row());
        marks_[row] = std::min(marks_[row].value_or(remark.severity), remark.severity);
        if (!notes_[row].isEmpty()) notes_[row] += u'\n';
        notes_[row] += WordOf(remark.severity) + QStringLiteral(": ") + ToQt(RemarkText(remark));
    }
    const auto last = static_cast<int>(rows_.size()) - 1;
    if (last >= 0) Q_EMIT dataChanged(index(0, 0), index(last, Columns - 1));
}

const RecordModel::Row* RecordModel::RowOf(const QModelIndex& index) const {
    return HasCell(index) ? &rows_[static_cast<std::size_t>(index.row())] : nullptr;
}

std::optional<std::size_t> RecordModel::FieldOf(const QModelIndex& index) const {
    const Row* row = RowOf(index);
    if (row == nullptr || row->field < 0) return std::nullopt;
    return static_cast<std::size_t>(row->field);
}

std::optional<std::size_t> RecordModel::PartOf(const QModelIndex& index) const {
    const Row* row = RowOf(index);
    if (row == nullptr || row->part < 0) return std::nullopt;
    return static_cast<std::size_t>(row->part);
}

QModelIndex RecordModel::IndexOf(std::size_t field, std::size_t part, int column) const {
    int nearest = -1;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const Row& row = rows_[i];
        const bool isHere = row.field == static_cast<int>(field) &&
                            (nearest < 0 || row.part <= static_cast<int>(part));
        if (isHere) nearest = static_cast<int>(i);
    }
    return nearest < 0 ? QModelIndex() : index(nearest, column);
}

std::string RecordModel::TextOf(const QModelIndex& index, char code) const {
    const auto field = FieldOf(index);
    if (!field) return {};
    const FieldParts parts = PartsOf(shown_->fields[*field].content);
    const auto part = std::ranges::find(parts.parts, code, CodeOf);
    return part == parts.parts.end() ? std::string() : std::string(quillory::TextOf(*part));
}

Place RecordModel::PlaceOf(const QModelIndex& index) const {
    const Row* row = RowOf(index);
    if (row == nullptr) return Place::OfRecord();
    if (row->field < 0) return Place::OfLeader();
    const auto field = static_cast<std::size_t>(row->field);
    const Place place = quillory::PlaceOf(*shown_, field);
    if (row->part < 0) return place;
    if (row->isFirst && index.column() == First) return place.Indicator(1);
    if (row->isFirst && index.column() == Second) return place.Indicator(2);
    if (index.column() == Tag) return place;
    const FieldParts parts = PartsOf(shown_->fields[field].content);
    return place.Subfield(CodeOf(parts.parts[static_cast<std::size_t>(row->part)]));
}

QModelIndex RecordModel::IndexOf(const Place& place) const {
    if (shown_ == nullptr || place.IsRecord()) return {};
    if (place.IsLeader()) return index(0, Text);
    const auto field = FieldAt(*shown_, place);
    if (!field) return {};
    if (place.indicator != 0) return IndexOf(*field, 0, place.indicator == 1 ? First : Second);
    const FieldParts parts = PartsOf(shown_->fields[*field].content);
    const auto part = std::ranges::find(parts.parts, place.code, CodeOf);
    const bool isThere = place.code != '\0' && part != parts.parts.end();
    return IndexOf(*field, isThere ? static_cast<std::size_t>(part - parts.parts.begin()) : 0,
                   Text);
}

int RecordModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RecordModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::ToolTipRole) {
        if (section == First) return tr("First indicator; # is a blank");
        if (section == Second) return tr("Second indicator; # is a blank");
        if (section == Code) return tr("Subfield code");
    }
    if (role != Qt::DisplayRole) return {};
    switch (section) {
        case Tag:
            return tr("Tag");
        case First:
            return tr("1");
        case Second:
            return tr("2");
        case Code:
            return tr("$");
        case Text:
            return tr("Text");
        default:
            return tr("Name");
    }
}

QString RecordModel::NameOf(const Row& row) const {
    if (row.field < 0) return tr("Leader");
    const auto& field = shown_->fields[static_cast<std::size_t>(row.field)];
    const unsigned tag = TagNumber(field.tag);
    if (tag == kNoTag) return {};
    if (row.part < 0) return ToQt(FieldName(tag, kNameOnly));
    const FieldParts parts = PartsOf(field.content);
    const char code = CodeOf(parts.parts[static_cast<std::size_t>(row.part)]);
    const QString name = ToQt(SubfieldName(tag, code, kNameOnly));
    const QString fieldName = ToQt(FieldName(tag, kNameOnly));
    const bool saysMore = row.isFirst && fieldName.compare(name, Qt::CaseInsensitive) != 0;
    return saysMore ? fieldName + QStringLiteral(" – ") + name : name;
}

QString RecordModel::TextOf(const Row& row, int column, bool isForEditor) const {
    if (column == Name) return NameOf(row);
    if (row.field < 0) {
        if (column == Tag) return QStringLiteral("LDR");
        return column == Text ? ToQt(shown_->leader) : QString();
    }
    const auto& field = shown_->fields[static_cast<std::size_t>(row.field)];
    if (column == Tag) return row.isFirst ? ToQt(field.tag) : QString();
    if (row.part < 0) {
        if (column != Text) return {};
        return ToQt(row.isBroken ? Visible(field.content) : field.content);
    }
    const FieldParts parts = PartsOf(field.content);
    if (column == First || column == Second) {
        if (!row.isFirst) return {};
        const QChar sign(static_cast<uchar>(parts.head[column == First ? 0 : 1]));
        return sign == u' ' ? QString(kBlankSign) : QString(sign);
    }
    const std::string_view part = parts.parts[static_cast<std::size_t>(row.part)];
    if (column == Code) {
        return (isForEditor ? QString() : QStringLiteral("$")) +
               QChar(static_cast<uchar>(CodeOf(part)));
    }
    return ToQt(quillory::TextOf(part));
}

QString RecordModel::AccessibleText(const QModelIndex& index) const {
    const Row& row = *RowOf(index);
    const QString place = ToQt(PlaceText(PlaceOf(index)));
    const QString note = notes_[static_cast<std::size_t>(index.row())];
    const QString text = TextOf(row, index.column(), false);
    return place + u' ' + NameOf(row) + QStringLiteral(": ") + text +
           (note.isEmpty() ? QString() : QStringLiteral("; ") + note);
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
    if (RowOf(index) == nullptr) return {};
    const Row& row = *RowOf(index);
    const auto mark = marks_[static_cast<std::size_t>(index.row())];
    const QPalette palette = QGuiApplication::palette();
    switch (role) {
        case Qt::DisplayRole:
            if (index.column() == Name && mark) return SignOf(*mark) + u' ' + NameOf(row);
            return TextOf(row, index.column(), false);
        case Qt::EditRole:
            return TextOf(row, index.column(), true);
        case Qt::ToolTipRole:
            return notes_[static_cast<std::size_t>(index.row())];
        case Qt::AccessibleTextRole:
            return AccessibleText(index);
        case Qt::TextAlignmentRole:
            if (index.column() == First || index.column() == Second) {
                return int(Qt::AlignHCenter | Qt::AlignTop);
            }
            return int(Qt::AlignLeft | Qt::AlignTop);
        case Qt::ForegroundRole:
            if (index.column() == Name && mark) {
                return ColorOf(*mark, palette.color(QPalette::Base));
            }
            if (index.column() == Name || index.column() == Code) {
                return palette.color(QPalette::PlaceholderText);
            }
            return {};
        case Qt::FontRole:
            if (index.column() == Tag) {
                QFont bold = QGuiApplication::font();
                bold.setBold(true);
                return bold;
            }
            if (index.column() == Text && row.part < 0) {
                return QFontDatabase::systemFont(QFontDatabase::FixedFont);
            }
            return {};
        default:
            return {};
    }
}

Qt::ItemFlags RecordModel::flags(const QModelIndex& index) const {
    if (RowOf(index) == nullptr) return Qt::NoItemFlags;
    const Row& row = *RowOf(index);
    Qt::ItemFlags shown = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (row.field >= 0) shown |= Qt::ItemIsDragEnabled;
    const bool isText = index.column() == Text && !row.isBroken;
    const bool isOfPart =
        row.part >= 0 && (index.column() == Code || (row.isFirst && index.column() <= Second));
    const bool isTag = row.field >= 0 && row.isFirst && index.column() == Tag;
    if (!record_.CanChange()) return shown;
    return isText || isOfPart || isTag ? shown | Qt::ItemIsEditable : shown;
}

bool RecordModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || RowOf(index) == nullptr || AreRowsChanging()) return false;
    const Row row = *RowOf(index);
    const QString text = value.toString();
    if (text == TextOf(row, index.column(), true)) return true;
    if (Change(row, index.column(), text)) return true;
    if (!record_.IsTried()) Q_EMIT Refused(RuleOf(row, index.column()));
    return false;
}

QString RecordModel::RuleOf(const Row& row, int column) {
    if (column == Tag) return tr("The tag stays as it was: it needs three digits.");
    if (row.field < 0) {
        return tr("The Leader stays as it was: it needs %1 characters.").arg(zorby::kLeaderSize);
    }
    return column == Code ? tr("The code stays as it was: it needs one letter, digit or sign.")
                          : tr("The indicator stays as it was: it needs one digit, letter or #.");
}

bool RecordModel::Change(const Row& row, int column, const QString& text) {
    if (row.part >= 0 && column != Tag) return ChangePart(row, column, text);
    const std::string bytes = text.toStdString();
    if (row.field < 0) {
        if (bytes.size() != zorby::kLeaderSize) return false;
        record_.Do([&](EditSession& session) { session.SetLeader(bytes); });
        return true;
    }
    const auto field = static_cast<std::size_t>(row.field);
    if (column == Tag) {
        if (bytes.size() != kTagSize || TagNumber(bytes) == kNoTag) return false;
        record_.Do([&](EditSession& session) { session.SetTag(field, bytes); });
        return true;
    }
    const QString before = TextOf(row, column, true);
    record_.Do(
        [&](EditSession& session) { session.SetContent(field, WithDelimiters(text, before)); });
    return true;
}

bool RecordModel::ChangePart(const Row& row, int column, const QString& text) {
    const auto field = static_cast<std::size_t>(row.field);
    const auto part = static_cast<std::size_t>(row.part);
    const std::string given = shown_->fields[field].content;
    const FieldParts known = PartsOf(given);
    std::string head(known.head);
    std::vector<std::string> parts(known.parts.begin(), known.parts.end());
    if (column == First || column == Second) {
        const QString sign = text.isEmpty() || text == u' ' ? QString(kBlankSign) : text;
        if (!IsOneAscii(sign)) return false;
        head[column == First ? 0 : 1] = sign[0] == kBlankSign ? ' ' : sign[0].toLatin1();
    } else if (column == Code) {
        if (!IsOneAscii(text)) return false;
        parts[part] = Part(text[0].toLatin1(), quillory::TextOf(parts[part]));
    } else {
        parts[part] = Part(CodeOf(parts[part]), WithDelimiters(text, TextOf(row, column, true)));
    }
    record_.Do([&](EditSession& s) { s.SetContent(field, PutTogether(head, parts)); });
    return true;
}

}  // namespace quillory
