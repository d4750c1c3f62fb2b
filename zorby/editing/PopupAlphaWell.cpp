#include <zorby/charset/KeyTable.h>
#include <zorby/editing/EditMARCAlpha.h>
#include <zorby/editing/PopupAlphaWell.h>

#include <algorithm>
#include <vector>

namespace zorby {

namespace {

constexpr int kCellWidth = CPopupAlphaWell::kGlyphWidth + 2 * CPopupAlphaWell::kGlyphLeft;
constexpr int kCellHeight = CPopupAlphaWell::kGlyphHeight + 2 * CPopupAlphaWell::kGlyphTop;

}  // namespace

void CPopupAlphaWell::Create(BitmapButtonPort& button, CEditMARCAlpha* edit) {
    edit_ = edit;
    SetGridSize();
    column_ = row_ = 0;
    int width = 0;
    int height = 0;
    CalculateSize(width, height);
    grid_ = button.OpenGrid(width, height);
    Draw();
}

void CPopupAlphaWell::Close() {
    if (!IsOpen()) return;
    grid_.reset();
    if (edit_) edit_->Port().SetFocus();
}

void CPopupAlphaWell::SetGridSize() {
    rows_ = kPaletteRows;
    columns_ = kPaletteColumns;
}

void CPopupAlphaWell::CalculateSize(int& width, int& height) const {
    width = columns_ * kCellWidth;
    height = rows_ * kCellHeight;
}

bool CPopupAlphaWell::GetColRow(ControlPoint point, int& column, int& row) const {
    int width = 0;
    int height = 0;
    CalculateSize(width, height);
    if (point.x < 0 || point.y < 0 || point.x >= width || point.y >= height) return false;
    column = point.x / kCellWidth;
    row = point.y / kCellHeight;
    return true;
}

std::string CPopupAlphaWell::OnToolHitTest(ControlPoint point) const {
    int column = 0;
    int row = 0;
    if (!GetColRow(point, column, row)) return {};
    const char* const name = CharacterLongName(PaletteId(PaletteCellAt(column, row)));
    return name ? name : std::string();
}

void CPopupAlphaWell::HandleSelection(int column, int row, int selection) {
    if (!IsOpen() || column < 0 || row < 0 || column >= columns_ || row >= rows_) return;
    column_ = column;
    row_ = row;
    Draw();
    const unsigned id = PaletteId(PaletteCellAt(column, row));
    if (selection != kWellChosen || !edit_ || id == 0) return;
    edit_->AddCharFromButton(id);
    Close();
}

void CPopupAlphaWell::Select(ControlPoint point, int selection) {
    int column = 0;
    int row = 0;
    if (GetColRow(point, column, row)) HandleSelection(column, row, selection);
}

void CPopupAlphaWell::OnMouseMove(ControlPoint point) {
    Select(point, kWellMoved);
}

bool CPopupAlphaWell::OnKeyDown(EditKey key) {
    const bool isSideways = key == EditKey::kLeft || key == EditKey::kRight;
    if (!isSideways && key != EditKey::kUp && key != EditKey::kDown) return false;
    const int step = key == EditKey::kLeft || key == EditKey::kUp ? -1 : 1;
    const int column = column_ + (isSideways ? step : 0);
    const int row = row_ + (isSideways ? 0 : step);
    HandleSelection(std::clamp(column, 0, kPaletteColumns - 1),
                    std::clamp(row, 0, kPaletteRows - 1), kWellMoved);
    return true;
}

GridCell CPopupAlphaWell::CellAt(int column, int row) const {
    const PaletteCell cell = PaletteCellAt(column, row);
    const ControlBox box = {column * kCellWidth, row * kCellHeight, kCellWidth, kCellHeight};
    const ControlBox glyph = {box.left + kGlyphLeft, box.top + kGlyphTop, kGlyphWidth,
                              kGlyphHeight};
    const bool isSelected = column == column_ && row == row_;
    if (cell.strip == 0) return {column, row, box, glyph, 0, 0, {}, isSelected};
    return {column,
            row,
            box,
            glyph,
            cell.strip,
            (cell.position - 1) * kGlyphWidth,
            PaletteText(PaletteId(cell)),
            isSelected};
}

void CPopupAlphaWell::Draw() const {
    std::vector<GridCell> cells;
    for (int row = 0; row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column) cells.push_back(CellAt(column, row));
    }
    grid_->Draw(cells);
}

bool CPopupAlphaWell::IsOpen() const {
    return grid_ != nullptr;
}

const CEditMARCAlpha* CPopupAlphaWell::Field() const {
    return edit_;
}

void CPopupAlphaWell::OnEnter() {
    HandleSelection(column_, row_, kWellChosen);
}

}  // namespace zorby
