#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/MakeRecord.h>
#include <quillory/jobs/NewRecordRemarks.h>
#include <quillory/jobs/OutputFiles.h>

namespace quillory {
namespace {

FileError ErrorAt(const LineColumn& where, const std::string& path, const Fault& fault) {
    return {path + ": " + LineColumnText(where), fault};
}

Description SingleDescription(const std::string& path) {
    const std::string text = ReadDescriptionFile(path);
    DescriptionReader reader(text);
    Description description;
    Description further;
    reader.Next(description);
    if (reader.Next(further)) throw UsageError(path, {FaultCode::kSeveralRecords});
    if (description.error) throw ErrorAt(description.where, path, description.error);
    return description;
}

Description DescriptionFor(const MakeRecordOptions& options) {
    Description description;
    if (!options.from.empty()) description = SingleDescription(options.from);
    if (!options.record.workform.empty()) description.workform = options.record.workform;
    AddEntries(options.record.entries, description);
    if (description.workform.empty()) throw UsageError({FaultCode::kNoWorkformNamed});
    return description;
}

Status MakeAndWrite(const MakeRecordOptions& options, const DraftFiller& fill, Reporter& reporter) {
    const Description description = DescriptionFor(options);
    NewRecords newRecords(options.record, reporter);
    NewRecordRemarks remarks(reporter);
    RecordMaker& maker = newRecords.Maker();
    Draft draft = maker.Begin(description);
    maker.Finish(draft, description);
    reporter.BeginFile("new record");
    const ItemSource single = [&](const auto& take) {
        if (fill) fill(maker.PatternFor(description.workform), draft);
        Item item;
        item.number = 1;
        item.record = maker.Finish(draft, description);
        remarks.Say(item);
        take(item);
        return kStatusWell;
    };
    return WriteItems(single, kCharsetUtf8, options.output, reporter);
}

}  // namespace

Status MakeRecord(const MakeRecordOptions& options, const DraftFiller& fill, Reporter& reporter) {
    CheckNotAnInput({options.from}, options.output.output);
    CheckNotAnInput({options.from}, options.output.rejects);
    try {
        return MakeAndWrite(options, fill, reporter);
    } catch (const EntryError& error) {
        if (!error.Where()) throw;
        throw ErrorAt(*error.Where(), options.from, error.What());
    }
}

}  // namespace quillory
