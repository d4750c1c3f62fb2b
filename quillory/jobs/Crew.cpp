#include <quillory/exchange/SignalsBlocked.h>
#include <quillory/jobs/Crew.h>
#include <quillory/jobs/ItemBatch.h>
#include <quillory/jobs/Relay.h>

#include <exception>
#include <span>
#include <utility>

namespace quillory {

// Items of one file, and what comes of them.
struct Crew::Batch {
    std::string file;
    ItemBatch items;
    Steps steps;
    std::exception_ptr failure;  // what ended the work, after the steps
    Steps last;                  // steps that follow
    bool isDone = false;

    void Clear() {
        items.Clear();
        steps.clear();
        last.clear();
        isDone = false;
    }
};

// Where a worker works, and what it has for itself.
class Crew::Post {
public:
    Post(Reporter& reporter, const WorkerMaker& make)
        : told_(reporter),
          relay_(reporter, steps_),
          reporter_(relay_, reporter.Options()),
          worker_(make(reporter_, steps_)) {}

    void Work(Batch& batch) {
        Attempt(batch, [&] {
            reporter_.BeginFile(batch.file);
            batch.items.ForEach([this](Item& item) { return Take(item); });
        });
        Attempt(batch, [&] {
            worker_->EndBatch();
            steps_.emplace_back(
                [unsaid = reporter_.TakeUnsaid(), &told = told_] { told.Add(unsaid); });
        });
        batch.steps.swap(steps_);
    }

private:
    // Whether a step may need the item.
    bool Take(Item& item) {
        const std::size_t stepsBefore = steps_.size();
        worker_->Take(item);
        return worker_->KeepsItems() || steps_.size() > stepsBefore;
    }

    template <class Act>
    static void Attempt(Batch& batch, Act act) {
        try {
            act();
        } catch (...) {
            if (!batch.failure) batch.failure = std::current_exception();
        }
    }

    Reporter& told_;
    Steps steps_;
    Relay relay_;
    Reporter reporter_;
    std::unique_ptr<ItemWorker> worker_;
};

Crew::Crew(const CrewOptions& options, Reporter& reporter, const WorkerMaker& make)
    : options_(options), reporter_(reporter), file_(reporter.File()) {
    for (unsigned i = 0; i < options.jobs; ++i) {
        posts_.push_back(std::make_unique<Post>(reporter, make));
    }
}

// The last post goes first: what a worker has put in force it puts back as it was.
Crew::~Crew() {
    todo_.Close();
    threads_.clear();
    while (!posts_.empty()) posts_.pop_back();
}

void Crew::Start() {
    const SignalsBlocked blocked;
    for (const auto& post : std::span(posts_).subspan(1)) {
        threads_.emplace_back([this, &post = *post] {
            while (const auto batch = todo_.Take()) Work(post, **batch);
        });
    }
}

void Crew::Work(Post& post, Batch& batch) {
    post.Work(batch);
    const std::lock_guard lock(mutex_);
    batch.isDone = true;
    done_.notify_one();
}

// Works meanwhile, as long as there is something to be done.
void Crew::WaitFor(const Batch& batch) {
    std::unique_lock lock(mutex_);
    while (!batch.isDone) {
        lock.unlock();
        const auto another = todo_.TakeIfAny();
        if (another) Work(*posts_.front(), **another);
        lock.lock();
        if (!another) done_.wait(lock, [&batch] { return batch.isDone; });
    }
}

void Crew::BeginFile(const std::string& name) {
    Then([this, name] { reporter_.BeginFile(name); });
    file_ = name;
}

ItemBatch& Crew::InHand() {
    if (!batch_) {
        if (free_.empty()) free_.push_back(std::make_unique<Batch>());
        batch_ = std::move(free_.back());
        free_.pop_back();
        batch_->file = file_;
    }
    return batch_->items;
}

void Crew::HandOutIfFull() {
    if (batch_->items.Bytes() >= options_.batch) HandOut();
}

void Crew::Take(const Item& item) {
    InHand().Add(item);
    HandOutIfFull();
}

std::uint64_t Crew::TakeRun(RecordRuns& runs) {
    const std::size_t most = options_.batch - (batch_ ? batch_->items.Bytes() : 0);
    const RecordRun run = runs.PassOver(most);
    if (run.bytes.empty()) return 0;
    InHand().Add(run, runs);
    HandOutIfFull();
    return run.records;
}

void Crew::HandOut() {
    constexpr std::size_t kWaiting = 4;  // batches beside the one that each worker has in hand
    constexpr std::size_t kLong = 8;     // a batch of so many times the size stands alone
    if (!batch_) return;
    const bool isLong = batch_->items.Bytes() >= options_.batch * kLong;
    todo_.Put(batch_.get());
    handedOut_.push_back(std::move(batch_));
    const std::size_t most = isLong ? 0 : posts_.size() + kWaiting;
    while (handedOut_.size() > most) FinishFirst();
}

void Crew::FinishFirst() {
    auto batch = std::move(handedOut_.front());
    handedOut_.pop_front();
    WaitFor(*batch);
    isBroken_ = true;
    for (const Step& step : batch->steps) step();
    if (batch->failure) std::rethrow_exception(batch->failure);
    for (const Step& step : batch->last) step();
    isBroken_ = false;
    batch->Clear();
    free_.push_back(std::move(batch));
}

void Crew::Then(Step step) {
    if (batch_) {
        batch_->last.push_back(std::move(step));
        HandOut();
    } else if (!handedOut_.empty()) {
        handedOut_.back()->last.push_back(std::move(step));
    } else {
        step();
    }
}

void Crew::CatchUp() {
    if (isBroken_) return;
    HandOut();
    while (!handedOut_.empty()) FinishFirst();
}

}  // namespace quillory
