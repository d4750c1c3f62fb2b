#pragma once

#include <zorby/Export.h>
#include <zorby/platform/ButtonPort.h>
#include <zorby/platform/MemoryControls.h>

#include <map>
#include <memory>
#include <set>
#include <vector>

namespace zorby {

// The grid that a button in memory shows.
struct ShownGrid {
    int width = 0;
    int height = 0;
    std::vector<GridCell> cells;
    bool isOpen = true;
};

// A button with bitmaps in memory.
class ZORBY_EXPORT MemoryButton : public MemoryControlOf<BitmapButtonPort> {
public:
    explicit MemoryButton(int number = 0)
        : MemoryControlOf({ControlKind::kButton, number, {}, {}}) {}

    bool LoadBitmap(ButtonState state, int resource) override;
    void SizeToContent() override { ++timesSized; }
    void SetTabStop(bool tabStop) override { isTabStop = tabStop; }
    std::unique_ptr<GridPort> OpenGrid(int width, int height) override;

    std::set<int> missing;  // bitmaps that can't be loaded
    std::map<ButtonState, int> bitmaps;
    bool isTabStop = true;
    int timesSized = 0;
    // Null until a grid opens; then the last one, also after it was closed.
    std::shared_ptr<ShownGrid> grid;
};

}  // namespace zorby
