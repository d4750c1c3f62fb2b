#include <zorby/platform/MemoryButton.h>

#include <utility>

namespace zorby {

namespace {

class MemoryGrid : public GridPort {
public:
    explicit MemoryGrid(std::shared_ptr<ShownGrid> shown) : shown_(std::move(shown)) {}
    ~MemoryGrid() override { shown_->isOpen = false; }
    MemoryGrid(const MemoryGrid&) = delete;
    MemoryGrid& operator=(const MemoryGrid&) = delete;

    void Draw(std::span<const GridCell> cells) override {
        shown_->cells.assign(cells.begin(), cells.end());
    }

private:
    std::shared_ptr<ShownGrid> shown_;
};

}  // namespace

bool MemoryButton::LoadBitmap(ButtonState state, int resource) {
    if (missing.contains(resource)) return false;
    bitmaps[state] = resource;
    return true;
}

std::unique_ptr<GridPort> MemoryButton::OpenGrid(int width, int height) {
    grid = std::make_shared<ShownGrid>();
    grid->width = width;
    grid->height = height;
    return std::make_unique<MemoryGrid>(grid);
}

}  // namespace zorby
