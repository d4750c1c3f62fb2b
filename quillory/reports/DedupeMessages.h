#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/jobs/DedupeFiles.h>

#include <memory>
#include <string>

namespace quillory {

class JsonWriter;

// Says what goes with what in messages, and writes it into a file: a line of JSON for each record
// that goes where the file's name ends in .jsonl or .json, or else lines of text.
class DedupeMessages : public DedupeReport {
public:
    // An empty path is no file. Throws FileError.
    DedupeMessages(const std::string& path, const DedupeOptions& options, Reporter& reporter);

    void Take(const Item& item, const std::function<Duplicate()>& find) override;
    void Complete() override;
    void Finish(const DedupeTotals& totals) override;

private:
    Reporter& reporter_;
    std::string removed_;  // where the records go
    std::unique_ptr<Output> file_;
    bool isJson_ = false;
};

void ToJson(const RecordName& name, JsonWriter& json);

}  // namespace quillory
