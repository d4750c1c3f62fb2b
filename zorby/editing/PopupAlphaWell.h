#pragma once

#include <zorby/Export.h>
#include <zorby/editing/PaletteTable.h>
#include <zorby/platform/ButtonPort.h>

#include <cstdint>
#include <memory>
#include <string>

namespace zorby {

class CEditMARCAlpha;

// What a person does to a cell of the palette.
enum WellSelection : std::int32_t {
    kWellMoved = 0,    // onto the cell, by the pointer or by a key
    kWellPressed = 1,  // the mouse button goes down
    kWellChosen = 2,   // the final click, or Enter
};

// The grid of special characters, which types the chosen one into a field. It closes once a
// character is chosen, and on Escape, and gives the focus back to the field.
class ZORBY_EXPORT CPopupAlphaWell {
public:
    static constexpr int kGlyphWidth = 16;
    static constexpr int kGlyphHeight = 15;
    // Where in a cell its glyph is.
    static constexpr int kGlyphLeft = 2;
    static constexpr int kGlyphTop = 3;

    CPopupAlphaWell() = default;
    virtual ~CPopupAlphaWell() = default;
    CPopupAlphaWell(const CPopupAlphaWell&) = delete;
    CPopupAlphaWell& operator=(const CPopupAlphaWell&) = delete;

    // Opens the grid under a button, for a field that may be null. Both must outlive this object.
    void Create(BitmapButtonPort& button, CEditMARCAlpha* edit);
    bool IsOpen() const;
    void Close();
    const CEditMARCAlpha* Field() const;

    virtual void HandleSelection(int column, int row, int selection);

    // What a person does. OnKeyDown returns false for a key that the grid has no use for.
    void OnMouseMove(ControlPoint point);
    void OnLButtonDown(ControlPoint point) { Select(point, kWellPressed); }
    void OnLButtonUp(ControlPoint point) { Select(point, kWellChosen); }
    bool OnKeyDown(EditKey key);
    void OnEnter();
    void OnEscape() { Close(); }

    // Gives the cell at a point, or returns false outside the grid.
    bool GetColRow(ControlPoint point, int& column, int& row) const;
    // The name of the character at a point; empty for none.
    std::string OnToolHitTest(ControlPoint point) const;
    // The size of the grid, in pixels.
    void CalculateSize(int& width, int& height) const;

private:
    void SetGridSize();
    void Select(ControlPoint point, int selection);
    GridCell CellAt(int column, int row) const;
    void Draw() const;

    CEditMARCAlpha* edit_ = nullptr;
    std::unique_ptr<GridPort> grid_;
    int rows_ = 0;
    int columns_ = 0;
    int column_ = 0;  // of the selected cell
    int row_ = 0;
};

}  // namespace zorby
