#pragma once

#include <quillory/places/Place.h>
#include <zorby/format/DisplayOptions.h>

#include <QTableView>
#include <array>
#include <string_view>

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

// A record as rows that are edited in place, by keyboard or mouse.
class RecordTable : public QTableView {
    Q_OBJECT

public:
    // Keeps the reference.
    explicit RecordTable(OpenRecord& record, QWidget* parent = nullptr);

    RecordModel& Model() { return *model_; }
    Place CurrentPlace() const;
    void GoTo(const Place& place);
    void SetDisplay(zorby::EDISPLAYOPTIONS display);
    // Takes what is being typed into the record.
    void Finish();
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
    // Fields of the clipboard in line form come after the current one. False if there are none.
    bool PasteFields();

Q_SIGNALS:
    void PlaceChanged();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FitRows();
    int HeightOf(const QModelIndex& index) const;
    void Edit(const QModelIndex& index);

    OpenRecord& record_;
    RecordModel* model_;
    CellEditor* editor_;
    AsciiWidths asciiWidths_;
    int rowHeight_ = 0;  // of one line
};

}  // namespace quillory
