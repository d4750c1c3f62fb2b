#include <quillory/exchange/ReadAhead.h>
#include <quillory/exchange/SignalsBlocked.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 18;
constexpr int kBlocks = 4;

}  // namespace

ReadAhead::ReadAhead(Source source, Mark mark)
    : source_(std::move(source)), mark_(std::move(mark)) {
    for (int i = 0; i < kBlocks; ++i) free_.Put(std::make_unique<Block>());
    const SignalsBlocked blocked;
    thread_ = std::jthread([this] { Work(); });
}

ReadAhead::~ReadAhead() {
    free_.Close();
}

void ReadAhead::Work() {
    for (bool isLast = false; !isLast;) {
        auto block = free_.Take();
        if (!block) return;
        Fill(**block);
        isLast = (*block)->isLast;
        full_.Put(std::move(*block));
    }
}

void ReadAhead::Fill(Block& block) {
    std::size_t size = 0;
    try {
        block.bytes.resize(kBlockSize);
        while (size < kBlockSize && !block.isLast) {
            const std::size_t got = source_(block.bytes.data() + size, kBlockSize - size);
            block.isLast = got == 0;
            size += got;
        }
    } catch (...) {
        block.failure = std::current_exception();
        block.isLast = true;
    }
    block.bytes.resize(size);
    block.reached = mark_();
}

std::size_t ReadAhead::Read(char* target, std::size_t size) {
    while (!block_ || taken_ == block_->bytes.size()) {
        if (block_ && block_->failure) std::rethrow_exception(block_->failure);
        if (block_ && block_->isLast) return 0;
        if (block_) free_.Put(std::move(block_));
        block_ = std::move(*full_.Take());
        taken_ = 0;
    }
    const std::size_t taken = block_->bytes.copy(target, size, taken_);
    taken_ += taken;
    return taken;
}

}  // namespace quillory
