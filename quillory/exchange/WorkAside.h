#pragma once

#include <quillory/exchange/Channel.h>

#include <exception>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace quillory {

// Works on bytes in a thread of its own, one piece after the other, while few of them wait.
class WorkAside {
public:
    using Work = std::function<void(std::string_view bytes)>;

    // Throws std::system_error if the system has no thread to spare.
    explicit WorkAside(Work work);
    // Waits until the work is done with the piece in hand, and gives up the others.
    ~WorkAside();
    WorkAside(const WorkAside&) = delete;
    WorkAside& operator=(const WorkAside&) = delete;

    // Copies the bytes. Throws what the work threw on bytes before them; nothing is done any more
    // then.
    void Do(std::string_view bytes);
    // Waits until all is done. Throws what the work threw.
    void Finish();

private:
    void Run();
    void ThrowFailure();

    Work work_;
    std::mutex mutex_;  // of the failure
    std::exception_ptr failure_;
    Channel<std::string> free_;
    Channel<std::string> todo_;
    std::jthread thread_;
};

}  // namespace quillory
