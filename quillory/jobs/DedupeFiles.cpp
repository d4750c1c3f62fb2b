#include <quillory/jobs/ByteSize.h>
#include <quillory/jobs/DedupeFiles.h>
#include <quillory/jobs/KeptRecords.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/Progress.h>
#include <quillory/sets/MatchKey.h>
#include <quillory/sets/PackedRecords.h>

#include <algorithm>
#include <memory>

namespace quillory {
namespace {

// How much a record holds: of two, the one with more subfields, or else the one with more text.
std::uint64_t FullnessOf(const Record& record) {
    constexpr unsigned kSubfieldShift = 32;
    std::uint64_t parts = 0;
    std::uint64_t bytes = 0;
    for (const zorby::CommFormatField& field : record.fields) {
        ForEachPart(field.content, [&parts](std::string_view) { ++parts; });
        bytes += field.content.size();
    }
    return parts << kSubfieldShift | std::min(bytes, (std::uint64_t{1} << kSubfieldShift) - 1);
}

// Records that are kept and those that go, each in a file.
class TwoFiles : public RecordWriter {
public:
    explicit TwoFiles(const DedupeOptions& options)
        : kept_(options.output.output, options.output, OutputRole::kMain) {
        if (options.removed.empty()) return;
        OutputOptions output = options.output;
        output.form = FormOfFileName(options.removed);
        if (output.form == nullptr) output.form = &FormOfOutput(options.output);
        if (CharsetOfOutput(output) != CharsetOfOutput(options.output)) {
            throw UsageError(options.removed +
                             ": is always in UTF-8; --to-charset utf8 writes the "
                             "others so, too");
        }
        removed_ = std::make_unique<File>(options.removed, output, OutputRole::kBeside);
    }

    bool HasFileForRemoved() const { return removed_ != nullptr; }
    void Choose(bool isRemoved) { isRemoved_ = isRemoved; }
    WriteResult Write(const Record& record, Losses& losses) override {
        WriteResult result = (isRemoved_ ? *removed_ : kept_).writer->Write(record, losses);
        result.isApart = isRemoved_;
        return result;
    }
    void Complete() {
        kept_.Complete();
        if (removed_) removed_->Complete();
    }
    void Finish() override {
        if (removed_) removed_->output.Finish();
        kept_.output.Finish();
    }

private:
    struct File {
        File(const std::string& path, const OutputOptions& options, OutputRole role)
            : output(path, role, options.force),
              writer(FormOfOutput(options).makeWriter(output, options.writing)) {}

        void Complete() {
            writer->Finish();
            output.Complete();
        }

        Output output;
        std::unique_ptr<RecordWriter> writer;
    };

    File kept_;
    std::unique_ptr<File> removed_;
    bool isRemoved_ = false;
};

// The whole work: first all records are read, then they are written.
class Work {
public:
    Work(const DedupeOptions& options, DedupeReport& report, Reporter& reporter)
        : options_(options),
          report_(report),
          reporter_(reporter),
          keys_(options.by, options.input.charset),
          duplicates_(options.keep, ParseByteSize("--memory", options.memory)),
          names_(options.input.charset),
          kept_(reporter) {}

    Status Run() {
        TwoFiles files(options_);
        const ItemSource source = [&](const auto& take) {
            const Status read = Read(take);
            Write(files, take);
            return read;
        };
        OutputOptions output = options_.output;
        output.completeBeside = [this] { report_.Complete(); };
        const Status status =
            CarryItems(source, options_.input.charset, output, files,
                       {[&files] { files.Complete(); }, [&files] { files.Finish(); }}, reporter_);
        report_.Finish(totals_);
        return status;
    }

private:
    using Take = std::function<bool(Item& item)>;

    Status Read(const Take& take) {
        std::vector<std::string> keys;
        return kept_.Read(options_.input, take, [&](const Item& item, std::string_view packed) {
            keys_.Of(item.record, keys);
            duplicates_.Add(keys, FullnessOf(item.record));
            records_.Add(packed);
            ++totals_.records;
            if (keys.empty()) ++totals_.keyless;
        });
    }

    void Write(TwoFiles& files, const Take& take) {
        const auto matches = duplicates_.Find();
        totals_.removed = matches.size();
        auto match = matches.begin();
        Progress progress(reporter_);
        std::string packed;
        Item item;
        for (PackedRecords::Index i = 0; i < records_.Count(); ++i) {
            records_.Read(i, packed);
            const std::string& file = kept_.Unpack(packed, item);
            const bool isRemoved = match != matches.end() && match->record == i;
            if (isRemoved) report_.Take(item, [&] { return Named(file, item, *match); });
            if (isRemoved) ++match;
            files.Choose(isRemoved);
            if (!isRemoved || files.HasFileForRemoved()) take(item);
            progress.Step(i, records_.Count());
        }
        kept_.Finish();
    }

    Duplicate Named(const std::string& file, const Item& item, const Duplicates::Match& match) {
        Duplicate duplicate{names_.NameOf(file, item), {}, duplicates_.KeyOf(match)};
        std::string packed;
        Item other;
        records_.Read(match.kept, packed);
        duplicate.kept = names_.NameOf(kept_.Peek(packed, other), other);
        return duplicate;
    }

    const DedupeOptions& options_;
    DedupeReport& report_;
    Reporter& reporter_;
    MatchKeys keys_;
    Duplicates duplicates_;
    RecordNamer names_;
    KeptRecords kept_;
    PackedRecords records_;
    DedupeTotals totals_;
};

}  // namespace

Status DedupeFiles(const DedupeOptions& options, DedupeReport& report, Reporter& reporter) {
    for (const auto& path : {options.output.output, options.output.rejects, options.removed}) {
        CheckNotAnInput(options.input.files, path);
    }
    CheckNotTheSame(options.output.rejects, options.output.output, "the records and the rejects");
    CheckNotTheSame(options.removed, options.output.output, "what is kept and what goes");
    CheckNotTheSame(options.removed, options.output.rejects, "what goes and the rejects");
    return Work(options, report, reporter).Run();
}

}  // namespace quillory
