#include <quillory/jobs/CompareFiles.h>
#include <quillory/jobs/DamageKeeper.h>
#include <quillory/jobs/KeyedFile.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/Progress.h>

#include <algorithm>

namespace quillory {
namespace {

PlaceSet IgnoredBy(const CompareOptions& options) {
    return options.ignored.empty() ? PlaceSet{} : ParsePlaces("--ignore", options.ignored);
}

class Comparison {
public:
    Comparison(const CompareOptions& options, CompareReport& report, Reporter& reporter)
        : report_(report),
          reporter_(reporter),
          names_(options.input.charset),
          recordBefore_(options.input.charset, IgnoredBy(options)),
          recordAfter_(options.input.charset, IgnoredBy(options)),
          before_(WaysToMatch(options.by), options.input.charset, reporter, WholeText()),
          after_(WaysToMatch(options.by), options.input.charset, reporter, WholeText()) {}

    Status Read(const CompareOptions& options, DamageKeeper& damage) {
        Status status = kStatusWell;
        const auto take = [&damage](const Item& item) {
            damage.Take(item);
            return true;
        };
        for (std::size_t i = 0; i < 2; ++i) {
            InputOptions input = options.input;
            input.files = {options.input.files[i]};
            KeyedFile& file = i == 0 ? before_ : after_;
            status = std::max(status, file.Read(input, take));
            totals_.doubles[i] = file.NameDoubles();
        }
        return status;
    }

    CompareTotals Run() {
        Progress progress(reporter_);
        for (KeyedRecords::Index i = 0; i < before_.Count(); ++i) {
            TakeBefore(before_.At(i));
            progress.Step(i, before_.Count());
        }
        for (KeyedRecords::Index i = 0; i < after_.Count(); ++i) {
            if (!after_.IsTaken(i)) TakeNew(after_.At(i));
        }
        return totals_;
    }

private:
    // Records without a key are the same if they are equal in all that is compared.
    KeyedFile::Substitute WholeText() {
        return [this](const Record& record) {
            recordBefore_.Set(record);
            std::string text;
            for (const ComparableRecord::Field& field : recordBefore_.Fields()) {
                text += field.tag + field.content + zorby::kFieldEnd;
            }
            return text;
        };
    }

    void TakeBefore(const KeyedFile::Found& record) {
        const RecordName name = names_.NameOf(record.file, record.item);
        const auto partner = after_.FindPartner(record.keys);
        if (partner) {
            TakeBoth(record, name, *partner);
        } else if (!record.hasKey) {
            ++totals_.keyless[0];
            report_.Take({CompareOutcome::NoKey, &name, nullptr, {}});
        } else {
            ++totals_.gone;
            report_.Take({CompareOutcome::Gone, &name, nullptr, {}});
        }
    }

    void TakeBoth(const KeyedFile::Found& record, const RecordName& name,
                  KeyedRecords::Index partner) {
        after_.MarkTaken(partner);
        const KeyedFile::Found& other = after_.At(partner);
        recordBefore_.Set(record.item.record);
        recordAfter_.Set(other.item.record);
        if (recordBefore_.Fields() == recordAfter_.Fields()) {
            ++totals_.same;
            return;
        }
        ++totals_.changed;
        const RecordName otherName = names_.NameOf(other.file, other.item);
        report_.Take(
            {CompareOutcome::Changed, &name, &otherName, Differences(recordBefore_, recordAfter_)});
    }

    void TakeNew(const KeyedFile::Found& record) {
        const RecordName name = names_.NameOf(record.file, record.item);
        ++(record.hasKey ? totals_.added : totals_.keyless[1]);
        report_.Take(
            {record.hasKey ? CompareOutcome::New : CompareOutcome::NoKey, nullptr, &name, {}});
    }

    CompareReport& report_;
    Reporter& reporter_;
    RecordNamer names_;
    ComparableRecord recordBefore_;
    ComparableRecord recordAfter_;
    KeyedFile before_;
    KeyedFile after_;
    CompareTotals totals_;
};

}  // namespace

Status CompareFiles(const CompareOptions& options, CompareReport& report, Reporter& reporter) {
    if (options.input.files.size() != 2) {
        throw UsageError("two files are compared: the one before and the one after");
    }
    if (options.input.files[0] == "-" && options.input.files[1] == "-") {
        throw UsageError("standard input can't be both files");
    }
    CheckNotAnInput(options.input.files, options.rejects);
    Comparison comparison(options, report, reporter);
    DamageKeeper damage(options.rejects, reporter);
    const Status read = comparison.Read(options, damage);
    CompareTotals totals;
    try {
        totals = comparison.Run();
        damage.Complete();
        report.Finish(totals);
    } catch (const ClosedPipe&) {  // whoever reads has seen enough: there was something to see
        totals.changed = 1;
    }
    damage.Finish();
    const bool isSame =
        totals.changed + totals.gone + totals.added + totals.keyless[0] + totals.keyless[1] == 0;
    return std::max({read, damage.Result(), isSame ? kStatusWell : kStatusFindings});
}

}  // namespace quillory
