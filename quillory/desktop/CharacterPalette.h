#pragma once

#include <QWidget>

class QTableWidget;

namespace quillory {

// The library's table of special characters: a click, or Enter on a cell, chooses one. The mouse
// leaves the focus where it is, so that a text that is being typed stays open.
class CharacterPalette : public QWidget {
    Q_OBJECT

public:
    explicit CharacterPalette(QWidget* parent = nullptr);

    // Shows the palette and takes the focus; with the focus already, closes it.
    void Toggle();
    QTableWidget& Grid() { return *grid_; }

Q_SIGNALS:
    // By its number in the library's table.
    void Chosen(unsigned id);
    // By the keyboard, which goes back to the text.
    void Left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill();
    void Choose(int row, int column);

    QTableWidget* grid_;
};

}  // namespace quillory
