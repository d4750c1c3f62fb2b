#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/DamageKeeper.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/PickRecords.h>
#include <quillory/jobs/RecordCopier.h>
#include <quillory/jobs/RecordFilter.h>
#include <quillory/jobs/RecordIds.h>
#include <quillory/queries/RecordNumbers.h>

#include <algorithm>
#include <memory>
#include <random>
#include <utility>

namespace quillory {
namespace {

// Tells which records are asked for.
class Choice {
public:
    explicit Choice(const PickOptions& options)
        : filter_(options.input.where, options.input.charset), invert_(options.invert) {
        if (!options.numbers.empty()) ReadNumbers(options);
        if (!options.ids.empty()) ReadIds(options);
    }

    bool Takes(const Item& item) { return IsAskedFor(item) != invert_; }
    void Pass(const Item& item) { passed_ = item.number; }

    // Whether no record from this number on can be asked for.
    bool IsOver(std::uint64_t number) const {
        return !invert_ && !numbers_.Empty() && number > numbers_.Last();
    }

    Status SayNotMet(const Reporter& reporter) const {
        return std::max(SayIdsNotMet(reporter), SayNumbersNotMet(reporter));
    }

private:
    Status SayIdsNotMet(const Reporter& reporter) const {
        constexpr std::size_t kMostNamed = 5;
        const std::vector<std::string> notMet = ids_ ? ids_->NotMet() : std::vector<std::string>();
        if (notMet.empty()) return kStatusWell;
        std::string text = "no record has " + std::to_string(notMet.size()) + " of the " +
                           Counted(ids_->Size(), "ID") + ":";
        for (std::size_t i = 0; i < std::min(notMet.size(), kMostNamed); ++i) {
            text += (i == 0 ? " " : ", ") + notMet[i];
        }
        if (notMet.size() > kMostNamed) text += " ...";
        reporter.Say(text);
        return kStatusFindings;
    }

    // A range may go on after the last record, so that it takes all from its beginning.
    Status SayNumbersNotMet(const Reporter& reporter) const {
        if (passed_ >= numbers_.BeginOfLastRange()) return kStatusWell;
        reporter.Say("no record has the number " + std::to_string(numbers_.BeginOfLastRange()) +
                     ", which --records asks for; the last one is " + std::to_string(passed_));
        return kStatusFindings;
    }

    void ReadNumbers(const PickOptions& options) {
        if (options.input.files.size() > 1) {
            throw UsageError(Fault{FaultCode::kHoldingsNumberFiles});
        }
        RecordNumbersReading reading = ParseRecordNumbers(options.numbers);
        if (reading.fault) {
            throw UsageError("--records: " + CaretText(options.numbers, reading.fault));
        }
        numbers_ = std::move(reading.numbers);
    }

    void ReadIds(const PickOptions& options) {
        PlaceSetReading reading = ParsePlaceSet(options.idPlace);
        if (reading.fault) {
            throw UsageError("--id-place: " + CaretText(options.idPlace, reading.fault));
        }
        ids_.emplace(options.ids, std::move(reading.places), options.input.charset);
    }

    bool IsAskedFor(const Item& item) {
        if (!numbers_.Empty() && !numbers_.Has(item.number)) return false;
        return (!ids_ || ids_->Has(item.record)) && filter_.Takes(item.record);
    }

    RecordFilter filter_;
    RecordNumbers numbers_;
    std::optional<RecordIdList> ids_;
    bool invert_;
    std::uint64_t passed_ = 0;  // the number of the last record
};

// So many of the records by chance, each as likely as any other.
class Sample {
public:
    Sample(std::uint64_t size, std::uint64_t seed) : size_(size), random_(seed) {}

    void Take(const RecordCopier::Copy& copy) {
        const std::uint64_t number = taken_++;
        if (kept_.size() < size_) {
            kept_.push_back({number, std::string(copy.lead), std::string(copy.bytes)});
            return;
        }
        const std::uint64_t chance = random_() % taken_;
        if (chance < size_) {
            kept_[chance] = {number, std::string(copy.lead), std::string(copy.bytes)};
        }
    }

    void WriteTo(RecordCopier& copier) {
        std::ranges::sort(kept_, {}, &Kept::number);
        for (const Kept& kept : kept_) copier.Write({kept.lead, kept.bytes});
    }

    std::uint64_t Size() const { return kept_.size(); }

private:
    struct Kept {
        std::uint64_t number;
        std::string lead;
        std::string bytes;
    };

    std::uint64_t size_;
    std::mt19937_64 random_;
    std::uint64_t taken_ = 0;
    std::vector<Kept> kept_;
};

class PickRun {
public:
    PickRun(const PickOptions& options, Reporter& reporter)
        : options_(options),
          reporter_(reporter),
          choice_(options),
          damage_(options.rejects, reporter),
          output_(options.output),
          copier_(output_) {
        if (options.sample) sample_.emplace(*options.sample, options.seed);
    }

    Status Run() {
        Status read = kStatusWell;
        try {
            read = ReadAllItems(options_.input, reporter_, Job(),
                                [this](const Form& form) { BeginFile(form); });
            copier_.EndFile();
            Finish();
        } catch (const ClosedPipe&) {
            damage_.Finish();
            return damage_.Result();
        }
        const Status ids = IsFull() ? kStatusWell : choice_.SayNotMet(reporter_);
        const Status picked = picked_ == 0 ? kStatusFindings : kStatusWell;
        return std::max({read, damage_.Result(), ids, picked});
    }

private:
    // Work is shared out where neither an end before the last record nor a list of IDs has to be
    // kept in mind.
    ItemJob Job() {
        ItemJob job{[this](const Item& item) { return Take(item); }};
        if (!options_.first && options_.numbers.empty() && options_.ids.empty()) {
            job.makeWorker = [this](Reporter& own, Steps& steps) {
                return std::make_unique<Worker>(*this, own, steps);
            };
        }
        return job;
    }

    // Sound records that follow one another are passed in one step.
    class Worker : public ItemWorker {
    public:
        Worker(PickRun& run, Reporter& own, Steps& steps)
            : run_(run), own_(own), steps_(steps), choice_(run.options_) {}

        void Take(Item& item) override {
            if (item.kind == kItemRecord && !item.fault) {
                sound_.push_back({item.bytes, choice_.Takes(item)});
            } else {
                TakeOther(item);
            }
        }
        void EndBatch() override {
            if (sound_.empty()) return;
            steps_.emplace_back([&run = run_, sound = std::exchange(sound_, {})] {
                for (const auto& [bytes, isPicked] : sound) {
                    run.copier_.PassRecord();
                    if (isPicked) run.Pick(bytes);
                }
            });
        }

    private:
        struct Sound {
            std::string_view bytes;
            bool isPicked;
        };

        void TakeOther(const Item& item) {
            EndBatch();
            const bool isDamaged = item.kind != kItemFrame && DamageKeeper::Say(item, own_);
            const bool isPicked = item.kind == kItemRecord && choice_.Takes(item);
            steps_.emplace_back([&run = run_, &item, isDamaged, isPicked] {
                run.copier_.Pass(item);
                if (isDamaged) run.damage_.Keep(item);
                if (isPicked) run.Pick(item.bytes);
            });
        }

        PickRun& run_;
        Reporter& own_;
        Steps& steps_;
        Choice choice_;
        std::vector<Sound> sound_;
    };

    void BeginFile(const Form& form) {
        copier_.EndFile();
        copier_.BeginFile(form, reporter_.File());
    }

    bool IsFull() const { return options_.first && picked_ >= *options_.first; }

    bool Take(const Item& item) {
        copier_.Pass(item);
        choice_.Pass(item);
        if (item.kind != kItemFrame && !IsFull()) damage_.Take(item);
        if (item.kind == kItemRecord && !IsFull() && choice_.Takes(item)) Pick(item.bytes);
        const bool isOver = IsFull() || choice_.IsOver(item.number + 1);
        return !isOver || copier_.NeedsEnd();
    }

    void Pick(std::string_view bytes) {
        ++picked_;
        const RecordCopier::Copy copy = copier_.CopyOf(bytes);
        if (sample_) {
            sample_->Take(copy);
        } else {
            copier_.Write(copy);
        }
    }

    void Finish() {
        if (sample_) sample_->WriteTo(copier_);
        copier_.Finish();
        output_.Complete();
        damage_.Finish();
        output_.Finish();
    }

    const PickOptions& options_;
    Reporter& reporter_;
    Choice choice_;
    DamageKeeper damage_;
    Output output_;
    RecordCopier copier_;
    std::optional<Sample> sample_;
    std::uint64_t picked_ = 0;
};

}  // namespace

Status PickRecords(const PickOptions& options, Reporter& reporter) {
    std::vector<std::string> inputs = options.input.files;
    inputs.push_back(options.ids);
    CheckNotAnInput(inputs, options.output);
    CheckNotAnInput(inputs, options.rejects);
    CheckNotTheSame(options.rejects, options.output, "the records and the rejects");
    return PickRun(options, reporter).Run();
}

}  // namespace quillory
