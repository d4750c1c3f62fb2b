#pragma once

#include <quillory/desktop/CellTable.h>
#include <quillory/edits/EditSession.h>
#include <quillory/places/Place.h>
#include <zorby/format/DisplayOptions.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

class QDrag;

namespace quillory {

class CellEditor;
class OpenRecord;
class RecordModel;

// How wide a text is, if it has no character outside ASCII. The layout of a text may make it
// narrower by a pixel or two, hardly wider.
class AsciiWidths {
public:
    void Measure(const QFontMetrics& metrics);
    // The largest number for a text with other characters.
    int Of(const QString& text) const;

private:
    std::array<int, 128> widths_{};
};

// A record as rows that are edited in place, by keyboard or mouse. A row that is dragged moves its
// field, or its subfield within its field, and is a copy for other windows and programs.
class RecordTable : public CellTable {
    Q_OBJECT

public:
    // Keeps the reference.
    explicit RecordTable(OpenRecord& record, QWidget* parent = nullptr);

    RecordModel& Model() { return *model_; }
    Place CurrentPlace() const;
    void GoTo(const Place& place);
    // To the first field that is another one than before, unless it is in hand.
    void GoToChange(const RecordState& before);
    void SetDisplay(zorby::EDISPLAYOPTIONS display);
    // Takes it, too, and leaves the box open.
    void TellTyped();
    // Types a character of the palette into the text in hand. False if there is none.
    bool TypeCharacter(unsigned id);
    // A widget to which the focus can go while a text is typed, and where it goes from there.
    void SetCompanion(const QWidget* companion);
    void TakeFocus();

    // Each is one step, and puts the cursor where a person goes on.
    void AddField(std::string_view tag);
    void RemoveField();
    void MoveField(int by);
    void AddSubfield();
    void RemoveSubfield();
    void RenameTag();
    void GoToNextField(int by);
    void CopyField();
    // Fields of the clipboard in line form come after the current one. Result: why there are none,
    // or an empty text.
    QString PasteFields();

    // For tests: what carries a row that is dragged in the place of the system, until it is
    // dropped.
    void SetCarrier(std::function<void(QDrag&)> carry) { carry_ = std::move(carry); }

Q_SIGNALS:
    void PlaceChanged();
    void Said(const QString& text);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers with) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions supported) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    RecordTable(OpenRecord& record, CellEditor* editor, QWidget* parent);
    // What is being dragged, in the state of the record that it was taken from.
    struct Taken {
        std::shared_ptr<const RecordState> state;
        std::size_t field;
        std::optional<std::size_t> part;  // none if the whole field was taken
    };
    // Where it goes: before a row, which is that of a field, or of a subfield of what is dragged.
    struct Gap {
        int row;
        std::size_t field;
        std::optional<std::size_t> part;
    };

    QModelIndex NextToEdit(int by) const;
    QString LinesOf(std::size_t field) const;
    void InsertFields(std::size_t place, const std::vector<EditSession::Field>& fields);
    void MoveFieldTo(std::size_t field, std::size_t place);
    void MovePart(std::size_t field, std::size_t part, std::size_t to);
    QPixmap PictureOf(int begin, int end);
    bool IsMove(const QDropEvent& event) const;
    bool Takes(QDropEvent& event) const;
    int FirstRowOf(std::size_t field) const;
    int TopOf(int row) const;
    Gap GapAt(int y, bool isMove) const;
    void ShowGap(std::optional<int> row);

    void FitRows();
    int HeightOf(const QModelIndex& index) const;
    void Edit(const QModelIndex& index);

    OpenRecord& record_;
    RecordModel* model_;
    CellEditor* editor_;
    AsciiWidths asciiWidths_;
    int rowHeight_ = 0;  // of one line
    std::function<void(QDrag&)> carry_;
    std::optional<Taken> taken_;
    std::optional<int> gap_;  // the row before which a line shows where a drop would go
};

}  // namespace quillory
