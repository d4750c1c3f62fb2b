#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/jobs/EditReport.h>
#include <quillory/jobs/Reporter.h>

#include <memory>
#include <string>

namespace quillory {

struct EditMessagesOptions {
    std::string report;      // file for a line of JSON for each change; empty for none
    bool showsDiff = false;  // on standard output: the lines of each record that change
    bool colour = false;     // of these
};

// Says what edits did: in short, as lines that are gone and lines that are new, and as a file.
class EditMessages : public EditReport {
public:
    // Keeps the reference. Throws FileError.
    EditMessages(const EditMessagesOptions& options, Reporter& reporter);

    bool WantsLines() const override { return screen_ != nullptr; }
    void TakeRecord(const Item& item, const Edit& edit) override;
    void Complete() override;
    // Says the totals. The file has its name only after this.
    void Finish(const EditTotals& totals, bool isDryRun) override;

private:
    void WriteChange(const Item& item, std::string_view controlNumber, const Change& change);
    void ShowDiff(const Item& item, const Edit& edit);

    Reporter& reporter_;
    std::unique_ptr<Output> file_;
    std::unique_ptr<Output> screen_;
    bool colour_;
};

// The lines of a diff as a person reads them, each with its end.
std::string DiffText(const std::vector<std::string>& before, const std::vector<std::string>& after,
                     bool colour);

}  // namespace quillory
