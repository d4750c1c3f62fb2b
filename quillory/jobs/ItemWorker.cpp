#include <quillory/jobs/ItemWorker.h>

#include <utility>

namespace quillory {
namespace {

class PlainWorker : public ItemWorker {
public:
    explicit PlainWorker(std::function<void(Item& item)> take) : take_(std::move(take)) {}

    void Take(Item& item) override { take_(item); }

private:
    std::function<void(Item& item)> take_;
};

}  // namespace

std::unique_ptr<ItemWorker> MakeWorker(std::function<void(Item& item)> take) {
    return std::make_unique<PlainWorker>(std::move(take));
}

}  // namespace quillory
