#pragma once

#include <zorby/Export.h>
#include <zorby/platform/EditPort.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace zorby {

// A cell of a grid of characters: its place in the grid, its box in the window of the grid, and
// what it shows. A host draws the glyph, or the character itself in its font.
struct GridCell {
    int column = 0;
    int row = 0;
    ControlBox box;
    ControlBox glyph;   // where in the cell the glyph is
    int strip = 0;      // the bitmap with the glyph, 0 for an empty cell
    int stripLeft = 0;  // where in the strip the glyph begins, in pixels
    std::string text;   // the character in the `Qm` code
    bool isSelected = false;
};

// A window with a grid that pops up under a button. Destroying the port closes it.
class ZORBY_EXPORT GridPort {
public:
    virtual ~GridPort() = default;

    // Draws all cells. The first call shows the window.
    virtual void Draw(std::span<const GridCell> cells) = 0;
};

// The states of a button, and the bitmap that shows each.
enum class ButtonState : std::int32_t { kNormal, kSelected, kFocused, kDisabled };

// A button that shows a bitmap.
class ZORBY_EXPORT BitmapButtonPort : public ControlPort {
public:
    // Returns false if the host has no such bitmap.
    virtual bool LoadBitmap(ButtonState state, int resource) = 0;
    virtual void SizeToContent() = 0;
    // Whether the Tab key reaches the button.
    virtual void SetTabStop(bool tabStop) = 0;
    // Makes the window of a grid under the button, in pixels. Never null.
    virtual std::unique_ptr<GridPort> OpenGrid(int width, int height) = 0;
};

}  // namespace zorby
