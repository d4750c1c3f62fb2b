#pragma once

#include <quillory/exchange/Channel.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace quillory {

// Reads in a thread of its own, a few blocks ahead of what is asked for.
class ReadAhead {
public:
    // Reads into `target` at most `size` bytes; 0 at the end. It may throw.
    using Source = std::function<std::size_t(char* target, std::size_t size)>;
    // How far the source has come.
    using Mark = std::function<std::uint64_t()>;

    // Throws std::system_error if the system has no thread to spare.
    ReadAhead(Source source, Mark mark);
    // Drops what was read and not asked for. The source must not wait for anybody.
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    // As the source. Throws what it threw, after the bytes before that; the source is at rest then,
    // as it is at the end.
    std::size_t Read(char* target, std::size_t size);
    // How far the source had come with the bytes that were read last.
    std::uint64_t Reached() const { return block_ ? block_->reached : 0; }

private:
    struct Block {
        std::string bytes;
        std::uint64_t reached = 0;
        std::exception_ptr failure = {};  // comes after the bytes
        bool isLast = false;
    };

    void Work();
    void Fill(Block& block);

    Source source_;
    Mark mark_;
    std::unique_ptr<Block> block_;  // in hand
    std::size_t taken_ = 0;         // of its bytes
    Channel<std::unique_ptr<Block>> free_;
    Channel<std::unique_ptr<Block>> full_;
    std::jthread thread_;
};

}  // namespace quillory
