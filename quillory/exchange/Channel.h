#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace quillory {

// Hands things from one thread to others, in order.
template <class Thing>
class Channel {
public:
    void Put(Thing thing) {
        const std::lock_guard lock(mutex_);
        things_.push_back(std::move(thing));
        changed_.notify_one();
    }
    // Waits for the next one. Nothing once the channel is closed.
    std::optional<Thing> Take() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isClosed_ || !things_.empty(); });
        return TakeFirst();
    }
    // The next one, without waiting. Nothing if there is none.
    std::optional<Thing> TakeIfAny() {
        const std::lock_guard lock(mutex_);
        return TakeFirst();
    }
    // What has not been taken is given up.
    void Close() {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
        changed_.notify_all();
    }

private:
    std::optional<Thing> TakeFirst() {
        if (isClosed_ || things_.empty()) return std::nullopt;
        std::optional<Thing> thing(std::move(things_.front()));
        things_.pop_front();
        return thing;
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Thing> things_;
    bool isClosed_ = false;
};

}  // namespace quillory
