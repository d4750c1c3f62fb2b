#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/RepairReport.h>
#include <quillory/jobs/Reporter.h>

#include <memory>
#include <string>
#include <string_view>

namespace quillory {

// Says what a repair did in messages, and writes it into a file: a line of JSON for each repair,
// with bytes beyond ASCII as the characters of the same numbers.
class RepairMessages : public RepairReport {
public:
    // `path` is the file to write; empty for none. Keeps the references. Throws FileError.
    RepairMessages(const std::string& path, const CodeLists& lists, Reporter& reporter);

    void TakeRecord(const Item& item, const std::vector<Repair>& repairs) override;
    // Says the totals. The file has its name only after this.
    void Finish(const RepairTotals& totals, bool isDryRun) override;

private:
    void Say(const Item& item, const Repair& repair);
    void Write(const Item& item, const Repair& repair);
    void SayTotals(const RepairTotals& totals, bool isDryRun) const;
    std::string MessageOf(const Repair& repair) const;
    std::string ValueShown(const Repair& repair, std::string_view value) const;
    std::string MeaningOf(const Repair& repair, std::string_view value) const;

    const CodeLists& lists_;
    Reporter& reporter_;
    std::unique_ptr<Output> file_;
};

}  // namespace quillory
