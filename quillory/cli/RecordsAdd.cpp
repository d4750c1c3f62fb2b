#include <quillory/cli/Carrier.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/RecordsCommands.h>
#include <quillory/cli/StoredItems.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Summary.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

struct AddOptions {
    InputOptions input;
    std::string rejects;
};

// Writes records into the store.
class StoreWriter : public RecordWriter {
public:
    explicit StoreWriter(RecordBatch& batch) : batch_(batch), assembler_(kOversizeRefuse) {}

    WriteResult Write(const Record& record, Losses&) override {
        WriteResult result = assembler_.Assemble(record);
        if (result.written) {
            batch_.Add({summarizer_.Summarize(record), std::string(assembler_.Bytes())});
        }
        return result;
    }

private:
    RecordBatch& batch_;
    MarcAssembler assembler_;
    Summarizer summarizer_;
};

// Records keep their character set, but for Latin-1, which no leader can tell.
RecoderOptions RecoderOptionsFor(Charset from) {
    return {from, from == kCharsetLatin1 ? kCharsetUtf8 : kCharsetAuto, {}};
}

void SaySaved(const RecordBatch& batch, const Reporter& reporter) {
    if (batch.Saved() == 0) return;
    const auto [first, last] = batch.Ids();
    std::string ids = last == first ? "ID " : "IDs ";
    ids += std::to_string(first);
    if (last != first) ids += " to " + std::to_string(last);
    reporter.Say(Counted(batch.Saved(), "record") + " added, " + ids);
}

void AddFiles(const AddOptions& options, Carrier& carrier, RecordBatch& batch, Reporter& reporter) {
    carrier.Raise(ReadFiles(options.input, reporter, [&carrier](Item& item) {
        carrier.Take(item);
        return true;
    }));
    batch.Flush();
    carrier.Finish();
}

Status RunAdd(const AddOptions& options) {
    CheckNotAnInput(options.input.files, options.rejects);
    CheckNotTheStore(options.rejects);
    const Database database = OpenStore();
    RecordStore store(database);
    RecordBatch batch(store);
    StoreWriter writer(batch);
    Reporter reporter(options.input.quiet, options.input.verbose);
    Carrier carrier({RecoderOptionsFor(options.input.charset), false, options.rejects, {}}, writer,
                    reporter);
    try {
        AddFiles(options, carrier, batch, reporter);
    } catch (const FileError&) {
        SaySaved(batch, reporter);
        throw;
    }
    carrier.Summarize();
    if (!reporter.Quiet()) SaySaved(batch, reporter);
    return carrier.Result();
}

}  // namespace

void AddRecordsAdd(CLI::App& records, Run& run) {
    auto options = std::make_shared<AddOptions>();
    CLI::App* command = records.add_subcommand("add", "Add the records of files to the store");
    AddInputOptions(*command, options->input);
    command->add_option("--rejects", options->rejects,
                        "Where the bytes of everything go that is not added");
    command->callback([options, &run] { run = [options] { return RunAdd(*options); }; });
}

}  // namespace quillory
