#include <quillory/exchange/RecordRuns.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/Crew.h>
#include <quillory/jobs/Progress.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/RecordFilter.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillory {
namespace {

const Form& FormOf(const InputOptions& options, Input& input) {
    const Form* form = options.form;
    if (form == nullptr) form = FormOfContent(input);
    if (form == nullptr) form = FormOfFileName(input.Name());
    return form != nullptr ? *form : Forms().front();
}

// What is no damage: filler between records is told only where everything is.
void Tell(const Item& item, Reporter& reporter) {
    for (const FaultCode note : item.notes) reporter.Note(note);
    if (item.kind == kItemFrame && item.fault && reporter.SaysAll()) reporter.SayFault(item);
}

// What is missing is said before the work begins. Nothing is opened: files may be many, and a named
// pipe can be opened only once.
void CheckCanBeOpened(const std::string& file) {
    if (file == "-" || faccessat(AT_FDCWD, file.c_str(), R_OK, AT_EACCESS) == 0) return;
    throw FileError(file + ": " + std::strerror(errno));
}

// Takes items one after the other, and shares them out once the work is large.
class ItemFlow {
public:
    ItemFlow(const CrewOptions& options, const ItemJob& job, Reporter& reporter)
        : options_(options),
          job_(job),
          reporter_(reporter),
          isToGrow_(options.jobs > 1 && job.makeWorker) {}

    void BeginFile(const std::string& name) {
        if (crew_) {
            crew_->BeginFile(name);
        } else {
            reporter_.BeginFile(name);
        }
    }

    bool Take(Item& item) {
        if (isToGrow_ && taken_ >= options_.alone) BeginCrew();
        taken_ += item.bytes.size();
        if (!crew_) return job_.take(item);
        crew_->Take(item);
        return true;
    }

    // What a reader can pass over is read by the crew. Result: how many records.
    std::uint64_t TakeRun(RecordRuns& runs) { return crew_ ? crew_->TakeRun(runs) : 0; }

    // A step after all items so far.
    void Then(Step step) {
        if (crew_) {
            crew_->Then(std::move(step));
        } else {
            step();
        }
    }

    // All is done with the items so far.
    void CatchUp() {
        if (crew_) crew_->CatchUp();
    }

private:
    // Where the system has no threads to spare, the work goes on as before.
    void BeginCrew() {
        isToGrow_ = false;
        crew_.emplace(options_, reporter_, job_.makeWorker);
        try {
            crew_->Start();
        } catch (const std::system_error&) {
            crew_.reset();
        }
    }

    const CrewOptions& options_;
    const ItemJob& job_;
    Reporter& reporter_;
    bool isToGrow_;
    std::size_t taken_ = 0;  // bytes
    std::optional<Crew> crew_;
};

// Hands the items of files to a flow.
class FileWalk {
public:
    FileWalk(const InputOptions& options, Reporter& reporter, const ItemJob& job,
             const FileBeginner& beginFile)
        : options_(options),
          reporter_(reporter),
          beginFile_(beginFile),
          flow_(options.crew, job, reporter),
          progress_(reporter) {}

    Status Run() {
        const std::vector<std::string> standardInput{"-"};
        const auto& files = options_.files.empty() ? standardInput : options_.files;
        for (const std::string& file : files) CheckCanBeOpened(file);
        try {
            for (const std::string& file : files) Read(file);
        } catch (...) {
            flow_.CatchUp();  // what came before it comes first
            throw;
        }
        flow_.CatchUp();
        return status_;
    }

private:
    void Read(const std::string& file) {
        Input input(file);
        if (options_.crew.jobs > 1) input.BeforeWaiting([this] { flow_.CatchUp(); });
        flow_.BeginFile(input.Name());
        input.GiveWhatUnpacks();
        if (input.Peek(1).empty() && !input.WhatIsDamaged()) {
            SayFound(input.Name() + ": " + FaultReason({FaultCode::kEmptyFile}));
            return;
        }
        const Form& form = FormOf(options_, input);
        if (beginFile_) flow_.Then([this, &form] { beginFile_(form); });
        ReadItems(form, input);
        if (input.WhatIsDamaged()) {
            SayFound(input.Name() + ": " + FaultReason(*input.WhatIsDamaged()) +
                     "; what could be unpacked has been read");
        }
        flow_.Then([this] { reporter_.EndFile(); });
    }

    void ReadItems(const Form& form, Input& input) {
        const auto reader = form.makeReader(input, options_.lenient);
        auto* const runs = dynamic_cast<RecordRuns*>(reader.get());
        Item item;
        while (goOn_) {
            std::uint64_t records = runs == nullptr ? 0 : flow_.TakeRun(*runs);
            if (records == 0) {
                if (!reader->Next(item)) return;
                goOn_ = flow_.Take(item);
                records = 1;
            }
            progress_.Step(input.BytesRead(), input.FileSize(), records);
        }
    }

    void SayFound(const std::string& text) {
        flow_.Then([this, text] { reporter_.Say(text); });
        status_ = kStatusFindings;
    }

    const InputOptions& options_;
    Reporter& reporter_;
    const FileBeginner& beginFile_;
    ItemFlow flow_;
    Progress progress_;
    Status status_ = kStatusWell;
    bool goOn_ = true;
};

// What a job does with the items that are asked for.
class Asked {
public:
    Asked(const InputOptions& options, Reporter& reporter)
        : reporter_(reporter),
          filter_(options.where, options.charset),
          passOver_(options.passOver) {}

    bool Takes(const Item& item) {
        Tell(item, reporter_);
        if (item.kind == kItemFrame) return false;
        if (item.kind != kItemRecord || filter_.Takes(item.record)) return true;
        if (passOver_) passOver_(item);
        return false;
    }

private:
    Reporter& reporter_;
    RecordFilter filter_;
    const std::function<void(const Item& item)>& passOver_;
};

// Tells first, of each item.
class TellingWorker : public HandingWorker {
public:
    TellingWorker(Reporter& reporter, std::unique_ptr<ItemWorker> worker)
        : HandingWorker(std::move(worker)), reporter_(reporter) {}

    void Take(Item& item) override {
        Tell(item, reporter_);
        HandOn(item);
    }

private:
    Reporter& reporter_;
};

class AskedWorker : public HandingWorker {
public:
    AskedWorker(const InputOptions& options, Reporter& reporter, std::unique_ptr<ItemWorker> worker)
        : HandingWorker(std::move(worker)), asked_(options, reporter) {}

    void Take(Item& item) override {
        if (asked_.Takes(item)) HandOn(item);
    }

private:
    Asked asked_;
};

}  // namespace

Status ReadAllItems(const InputOptions& options, Reporter& reporter, const ItemJob& job,
                    const FileBeginner& beginFile) {
    ItemJob telling{[&](Item& item) {
        Tell(item, reporter);
        return job.take(item);
    }};
    if (job.makeWorker) {
        telling.makeWorker = [&](Reporter& own, Steps& steps) {
            return std::make_unique<TellingWorker>(own, job.makeWorker(own, steps));
        };
    }
    return FileWalk(options, reporter, telling, beginFile).Run();
}

Status ReadAllItems(const InputOptions& options, Reporter& reporter, const ItemTaker& take,
                    const FileBeginner& beginFile) {
    return ReadAllItems(options, reporter, ItemJob{take}, beginFile);
}

Status ReadFiles(const InputOptions& options, Reporter& reporter, const ItemJob& job) {
    Asked asked(options, reporter);
    ItemJob ofAsked{[&](Item& item) { return !asked.Takes(item) || job.take(item); }};
    if (job.makeWorker) {
        ofAsked.makeWorker = [&](Reporter& own, Steps& steps) {
            return std::make_unique<AskedWorker>(options, own, job.makeWorker(own, steps));
        };
    }
    return FileWalk(options, reporter, ofAsked, {}).Run();
}

Status ReadFiles(const InputOptions& options, Reporter& reporter, const ItemTaker& take) {
    return ReadFiles(options, reporter, ItemJob{take});
}

}  // namespace quillory
