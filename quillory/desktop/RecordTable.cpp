#include <quillory/desktop/CellEditor.h>
#include <quillory/desktop/OpenRecord.h>
#include <quillory/desktop/RecordModel.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/edits/EmptyField.h>
#include <quillory/edits/FieldParts.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <limits>

namespace quillory {
namespace {

constexpr int kTagChars = 6;
constexpr int kSignChars = 3;
constexpr int kCodeChars = 4;  // "$w"
constexpr int kNameChars = 30;
constexpr int kRoomOfLines = 6;     // above and below a line, in pixels
constexpr int kRoomOfMargins = 12;  // beside it, at most

}  // namespace

void AsciiWidths::Measure(const QFontMetrics& metrics) {
    for (std::size_t i = 0; i < widths_.size(); ++i) {
        widths_[i] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(i)));
    }
}

int AsciiWidths::Of(const QString& text) const {
    int width = 0;
    for (const QChar sign : text) {
        if (sign.unicode() >= widths_.size()) return std::numeric_limits<int>::max();
        width += widths_[sign.unicode()];
    }
    return width;
}

RecordTable::RecordTable(OpenRecord& record, QWidget* parent)
    : RecordTable(record, new CellEditor, parent) {}

RecordTable::RecordTable(OpenRecord& record, CellEditor* editor, QWidget* parent)
    : CellTable(editor, parent),
      record_(record),
      model_(new RecordModel(record, this)),
      editor_(editor) {
    setModel(model_);
    connect(editor_, &CellEditor::Said, this, &RecordTable::Said);
    connect(model_, &RecordModel::Refused, this, &RecordTable::Said);
    setAccessibleName(tr("Record"));
    setShowGrid(false);
    setWordWrap(true);
    setAlternatingRowColors(true);
    setTabKeyNavigation(true);
    setSelectionMode(SingleSelection);
    setDragDropMode(DragDrop);
    setEditTriggers(DoubleClicked | AnyKeyPressed | EditKeyPressed | SelectedClicked);
    verticalHeader()->hide();
    rowHeight_ = fontMetrics().height() + kRoomOfLines;
    verticalHeader()->setMinimumSectionSize(rowHeight_);
    verticalHeader()->setDefaultSectionSize(rowHeight_);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(0);
    const int width = fontMetrics().averageCharWidth();
    setColumnWidth(RecordModel::Tag, kTagChars * width);
    setColumnWidth(RecordModel::First, kSignChars * width);
    setColumnWidth(RecordModel::Second, kSignChars * width);
    setColumnWidth(RecordModel::Code, kCodeChars * width);
    setColumnWidth(RecordModel::Name, kNameChars * width);
    horizontalHeader()->setSectionResizeMode(RecordModel::Text, QHeaderView::Stretch);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &RecordTable::FitRows);
    connect(&record, &OpenRecord::Replaced, this, [this] {
        FitRows();
        scrollToTop();
        setCurrentIndex(model_->index(std::min(1, model_->rowCount() - 1), RecordModel::Text));
    });
    connect(&record, &OpenRecord::Changed, this, &RecordTable::FitRows);
}

Place RecordTable::CurrentPlace() const {
    return model_->PlaceOf(currentIndex());
}

void RecordTable::GoTo(const Place& place) {
    const QModelIndex index = model_->IndexOf(place);
    if (!index.isValid()) return;
    setCurrentIndex(index);
    scrollTo(index);
    setFocus();
}

void RecordTable::GoToChange(const RecordState& before) {
    const auto& now = record_.Session()->Now().fields;
    const auto changed = std::ranges::mismatch(before.fields, now);
    const bool isSame = changed.in1 == before.fields.end() && changed.in2 == now.end();
    if (isSame || now.empty()) return;
    const auto field =
        std::min(static_cast<std::size_t>(changed.in2 - now.begin()), now.size() - 1);
    if (model_->FieldOf(currentIndex()) != field) {
        setCurrentIndex(model_->IndexOf(field, 0, RecordModel::Text));
    }
    scrollTo(currentIndex());
}

void RecordTable::SetDisplay(zorby::EDISPLAYOPTIONS display) {
    const bool hasCodes = display != zorby::EDO_NameOnly;
    setColumnHidden(RecordModel::Tag, !hasCodes);
    setColumnHidden(RecordModel::Code, !hasCodes);
    setColumnHidden(RecordModel::Name, display == zorby::EDO_CodeOnly);
    QHeaderView* header = horizontalHeader();
    const bool isNameFirst = display == zorby::EDO_NameOnly || display == zorby::EDO_NameAndCode;
    header->moveSection(header->visualIndex(RecordModel::Name),
                        isNameFirst ? 0 : RecordModel::Columns - 1);
    FitRows();
}

void RecordTable::TellTyped() {
    if (Box() != nullptr) editor_->setModelData(Box(), model_, currentIndex());
}

bool RecordTable::TypeCharacter(unsigned id) {
    if (editor_->TypeCharacter(id)) return true;
    const QModelIndex text = currentIndex().siblingAtColumn(RecordModel::Text);
    if (!model_->PartOf(text)) return false;
    Edit(text);
    return editor_->TypeCharacter(id);
}

void RecordTable::SetCompanion(const QWidget* companion) {
    editor_->SetCompanion(companion);
}

void RecordTable::TakeFocus() {
    if (Box() != nullptr) {
        Box()->setFocus();
    } else {
        setFocus();
    }
}

void RecordTable::Edit(const QModelIndex& index) {
    if (!index.isValid()) return;
    setCurrentIndex(index);
    scrollTo(index);
    setFocus();
    Open(index);
}

void RecordTable::AddField(std::string_view tag) {
    Finish();
    if (record_.Session() == nullptr) return;
    const std::size_t place = PlaceOfNew(record_.Session()->Now(), tag);
    record_.Do(
        [&](EditSession& session) { session.Insert(place, std::string(tag), EmptyField(tag)); });
    Edit(model_->IndexOf(place, 0, RecordModel::Text));
}

void RecordTable::RemoveField() {
    Finish();
    const auto field = model_->FieldOf(currentIndex());
    if (!field) return;
    record_.Do([&](EditSession& session) { session.Remove(*field); });
    const std::size_t last = record_.Session()->Now().fields.size();
    if (last > 0) {
        setCurrentIndex(model_->IndexOf(std::min(*field, last - 1), 0, RecordModel::Text));
    }
}

void RecordTable::MoveField(int by) {
    Finish();
    const auto field = model_->FieldOf(currentIndex());
    if (!field) return;
    const auto to = static_cast<std::ptrdiff_t>(*field) + by;
    const auto count = static_cast<std::ptrdiff_t>(record_.Session()->Now().fields.size());
    if (to < 0 || to >= count) return;
    MoveFieldTo(*field, static_cast<std::size_t>(to));
}

void RecordTable::MoveFieldTo(std::size_t field, std::size_t place) {
    if (field == place) return;
    record_.Do([&](EditSession& session) { session.Move(field, place); });
    setCurrentIndex(model_->IndexOf(place, 0, currentIndex().column()));
}

// Within a text that is being typed it is divided at the caret.
void RecordTable::AddSubfield() {
    if (editor_->TypeDelimiter()) return;
    Finish();
    const auto field = model_->FieldOf(currentIndex());
    const auto part = model_->PartOf(currentIndex());
    if (!field || !part) return;
    const auto& now = record_.Session()->Now().fields[*field];
    FieldParts parts = PartsOf(now.content);
    const std::string added = Part(NextCode(now.tag, now.content), {});
    parts.parts.insert(parts.parts.begin() + static_cast<std::ptrdiff_t>(*part) + 1, added);
    const std::string content = Joined(parts);
    record_.Do([&](EditSession& session) { session.SetContent(*field, content); });
    Edit(model_->IndexOf(*field, *part + 1, RecordModel::Text));
}

// A field without its last subfield is none.
void RecordTable::RemoveSubfield() {
    Finish();
    const auto field = model_->FieldOf(currentIndex());
    const auto part = model_->PartOf(currentIndex());
    if (!field) return;
    FieldParts parts = PartsOf(record_.Session()->Now().fields[*field].content);
    if (!part || parts.parts.size() < 2) {
        RemoveField();
        return;
    }
    parts.parts.erase(parts.parts.begin() + static_cast<std::ptrdiff_t>(*part));
    const std::string content = Joined(parts);
    record_.Do([&](EditSession& session) { session.SetContent(*field, content); });
    setCurrentIndex(model_->IndexOf(*field, *part, RecordModel::Text));
}

void RecordTable::RenameTag() {
    Finish();
    const auto field = model_->FieldOf(currentIndex());
    if (!field) return;
    setColumnHidden(RecordModel::Tag, false);
    Edit(model_->IndexOf(*field, 0, RecordModel::Tag));
}

void RecordTable::GoToNextField(int by) {
    Finish();
    const auto field = model_->FieldOf(currentIndex());
    const auto to = static_cast<std::ptrdiff_t>(field.value_or(0)) + (field ? by : 0);
    if (to < 0) return;
    const QModelIndex index = model_->IndexOf(static_cast<std::size_t>(to), 0, RecordModel::Text);
    if (!index.isValid()) return;
    setCurrentIndex(index);
    scrollTo(index);
    if (isVisible()) setFocus();
}

void RecordTable::CopyField() {
    Finish();
    const auto field = model_->FieldOf(currentIndex());
    if (field) QGuiApplication::clipboard()->setText(LinesOf(*field));
}

QString RecordTable::PasteFields() {
    Finish();
    if (record_.Session() == nullptr) return {};
    std::string lines = QGuiApplication::clipboard()->text().toStdString();
    lines.erase(0, lines.find_first_not_of("\r\n"));
    std::vector<EditSession::Field> fields;
    const auto fault = ReadFieldLines(lines, fields);
    if (fault && fault->lineColumn && lines.starts_with('=')) {
        return tr("Nothing was pasted. Line %1 of the clipboard can't be read: %2")
            .arg(fault->lineColumn->line)
            .arg(ToQt(FaultText(*fault)));
    }
    if (fields.empty()) {
        return tr("There are no fields on the clipboard, such as =500  \\\\$aA note.");
    }
    const auto current = model_->FieldOf(currentIndex());
    InsertFields(current ? *current + 1 : record_.Session()->Now().fields.size(), fields);
    return {};
}

void RecordTable::InsertFields(std::size_t place, const std::vector<EditSession::Field>& fields) {
    record_.Do([&](EditSession& session) {
        EditSession::State state = session.Now();
        state.fields.insert(state.fields.begin() + static_cast<std::ptrdiff_t>(place),
                            fields.begin(), fields.end());
        session.Become(std::move(state));
    });
    setCurrentIndex(model_->IndexOf(place, 0, RecordModel::Text));
}

void RecordTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    Q_EMIT PlaceChanged();
}

// Tab leads through what can be typed in: indicators, codes and texts.
QModelIndex RecordTable::moveCursor(CursorAction action, Qt::KeyboardModifiers with) {
    const bool isTab = action == MoveNext || action == MovePrevious;
    const QModelIndex next = isTab ? NextToEdit(action == MoveNext ? 1 : -1) : QModelIndex();
    return next.isValid() ? next : CellTable::moveCursor(action, with);
}

// In the order that is seen, from the last cell on to the first one.
QModelIndex RecordTable::NextToEdit(int by) const {
    const QHeaderView* header = horizontalHeader();
    const int count = model_->rowCount() * RecordModel::Columns;
    const QModelIndex now = currentIndex();
    const int from = now.row() * RecordModel::Columns + header->visualIndex(now.column());
    for (int i = 1; now.isValid() && i <= count; ++i) {
        const int at = (from + by * i + count) % count;
        const int column = header->logicalIndex(at % RecordModel::Columns);
        const QModelIndex cell = model_->index(at / RecordModel::Columns, column);
        if (!isColumnHidden(column) && cell.flags().testFlag(Qt::ItemIsEditable)) return cell;
    }
    return {};
}

// Texts have the most room, names a third of it at most.
void RecordTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    const int names = kNameChars * fontMetrics().averageCharWidth();
    setColumnWidth(RecordModel::Name, std::min(names, viewport()->width() / 3));
    FitRows();
}

void RecordTable::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->modifiers() == Qt::NoModifier && state() != EditingState) {
        edit(currentIndex(), EditKeyPressed, nullptr);
    } else {
        QTableView::keyPressEvent(event);
    }
}

// A cell whose text is surely one line is not laid out: a record can have a thousand of them.
int RecordTable::HeightOf(const QModelIndex& index) const {
    const bool hasOwnFont = index.data(Qt::FontRole).isValid();
    const int room = columnWidth(index.column()) - kRoomOfMargins;
    const bool isOneLine = !hasOwnFont && asciiWidths_.Of(index.data().toString()) <= room;
    if (isOneLine) return rowHeight_;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = QRect(0, 0, columnWidth(index.column()), rowHeight_);
    option.features |= QStyleOptionViewItem::WrapText;
    return itemDelegate()->sizeHint(option, index).height();
}

void RecordTable::FitRows() {
    asciiWidths_.Measure(fontMetrics());
    for (int row = 0; row < model_->rowCount(); ++row) {
        int height = rowHeight_;
        for (const int column : {RecordModel::Text, RecordModel::Name}) {
            if (isColumnHidden(column)) continue;
            height = std::max(height, HeightOf(model_->index(row, column)));
        }
        if (height != rowHeight(row)) setRowHeight(row, height);
    }
}

}  // namespace quillory
