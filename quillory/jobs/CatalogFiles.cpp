#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/CatalogFiles.h>
#include <quillory/jobs/KeptDescriptions.h>
#include <quillory/jobs/NewRecordRemarks.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/Progress.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <optional>

namespace quillory {
namespace {

// The offset in the file at which a description has its error.
std::uint64_t ErrorOffset(std::string_view toml, const Description& description) {
    std::size_t at = description.offset;
    const LineColumn& error = description.where;
    for (std::uint64_t line = description.line; line < error.line && at < toml.size(); ++line) {
        at = std::min(toml.find('\n', at), toml.size() - 1) + 1;
    }
    for (std::uint64_t column = 1; column < error.column && at < toml.size(); ++column) {
        at += DecodeUtf8(toml.substr(at)).size;
    }
    return at;
}

// Turns a description into an item: the record that it describes, or why there is none.
class DescriptionItems {
public:
    DescriptionItems(const CatalogOptions& options, RecordMaker& maker)
        : options_(options), maker_(maker) {}

    void BeginFile(const DescriptionReader& reader) { kept_.BeginFile(reader.Head()); }

    // The views of the item hold until the next one.
    void Make(std::string_view toml, Description& description, Item& item) {
        const std::uint64_t number = item.number + 1;
        item = {};
        item.number = number;
        item.offset = description.offset;
        item.bytes = toml.substr(description.offset, description.size);
        if (!description.error) Fill(description, item);
        if (!description.error) return;
        item.kind = kItemDamaged;
        item.bytes = kept_.Keep(item.bytes);
        item.fault =
            ItemFault{description.error, ErrorOffset(toml, description), description.where};
    }

private:
    void Fill(Description& description, Item& item) {
        description.where = {description.line, 1};
        AddEntries(options_.record.entries, description);
        if (description.workform.empty()) description.workform = options_.record.workform;
        if (description.workform.empty()) {
            description.error = {FaultCode::kNoWorkformNamed};
            return;
        }
        try {
            draft_.emplace(maker_.Begin(description));
            item.record = maker_.Finish(*draft_, description);
        } catch (const EntryError& error) {
            description.error = error.What();
            description.where = error.Where().value_or(description.where);
        }
    }

    const CatalogOptions& options_;
    RecordMaker& maker_;
    std::optional<Draft> draft_;
    KeptDescriptions kept_;
};

Status MakeRecords(const CatalogOptions& options, Reporter& reporter,
                   const std::function<bool(Item& item)>& take) {
    NewRecords newRecords(options.record, reporter);
    NewRecordRemarks remarks(reporter);
    DescriptionItems items(options, newRecords.Maker());
    Progress progress(reporter);
    for (const std::string& file : options.files) {
        const std::string toml = ReadDescriptionFile(file, options.memory);
        reporter.BeginFile(file);
        Item item;
        DescriptionReader reader(toml);
        items.BeginFile(reader);
        Description description;
        while (reader.Next(description)) {
            items.Make(toml, description, item);
            if (item.kind == kItemRecord) remarks.Say(item);
            if (!take(item)) return kStatusWell;
            progress.Step(description.offset, toml.size());
        }
        reporter.EndFile();
    }
    return kStatusWell;
}

}  // namespace

Status CatalogFiles(const CatalogOptions& options, Reporter& reporter) {
    CheckNotAnInput(options.files, options.output.output);
    CheckNotAnInput(options.files, options.output.rejects);
    const ItemSource records = [&](const auto& take) {
        return MakeRecords(options, reporter, take);
    };
    return WriteItems(records, kCharsetUtf8, options.output, reporter);
}

}  // namespace quillory
