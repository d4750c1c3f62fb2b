#pragma once

#include <quillory/exchange/Channel.h>
#include <quillory/jobs/ItemWorker.h>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace quillory {

class ItemBatch;
class RecordRuns;

// Shares out items to workers, in batches. What they say and leave to be done is done in the thread
// that has the crew, in the order of the items; while that thread would have to wait, it is a
// worker itself. Memory is bounded by a few batches a worker, or by the longest item.
class Crew {
public:
    // Keeps the reporter.
    Crew(const CrewOptions& options, Reporter& reporter, const WorkerMaker& make);
    // What has not been done by then is given up.
    ~Crew();
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    // Throws std::system_error if the system has no thread to spare.
    void Start();

    // These throw what steps and workers throw. The file that the reporter has in hand when the
    // crew is made needs no beginning.
    void BeginFile(const std::string& name);
    // Copies the item.
    void Take(const Item& item);
    // What a reader can pass over, for a worker to read. Result: how many records.
    std::uint64_t TakeRun(RecordRuns& runs);
    // A step after those of all items so far.
    void Then(Step step);
    // All is done with the items so far; nothing more is, once anything was thrown.
    void CatchUp();

private:
    struct Batch;
    class Post;

    void Work(Post& post, Batch& batch);
    void WaitFor(const Batch& batch);
    ItemBatch& InHand();
    void HandOutIfFull();
    void HandOut();
    void FinishFirst();

    CrewOptions options_;
    Reporter& reporter_;
    std::string file_;
    // The first one for the thread that has the crew.
    std::vector<std::unique_ptr<Post>> posts_;
    std::unique_ptr<Batch> batch_;  // that is being filled; or null
    std::deque<std::unique_ptr<Batch>> handedOut_;
    std::vector<std::unique_ptr<Batch>> free_;
    bool isBroken_ = false;
    Channel<Batch*> todo_;
    std::mutex mutex_;  // of what is done with each batch
    std::condition_variable done_;
    std::vector<std::jthread> threads_;
};

}  // namespace quillory
