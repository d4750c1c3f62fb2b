#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/RepairReport.h>
#include <quillory/jobs/Reporter.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace quillory {

// Says what a repair did as messages and in a file: a line of JSON for each repair, with bytes
// beyond ASCII as the characters of the same numbers.
class RepairMessages : public RepairReport {
public:
    // `path` may be empty: no file then. Keeps the references. Throws FileError.
    RepairMessages(const std::string& path, const CodeLists& lists, Reporter& reporter);

    void TakeRecord(const Item& item, const std::vector<Repair>& repairs) override;
    // Gives the file its name.
    void Finish(const RepairTotals& totals, bool isDryRun) override;

private:
    void Say(const Item& item, const Repair& repair);
    void Write(const Item& item, const Repair& repair);
    void Summarize(const RepairTotals& totals, bool isDryRun) const;
    // Of messages.
    const std::string& KindOf(const Repair& repair);
    std::string MessageOf(const Repair& repair) const;
    std::string TextOf(const Repair& repair, const std::string& value) const;
    std::string ValueShown(const Repair& repair, const std::string& value) const;

    const CodeLists& lists_;
    Reporter& reporter_;
    std::unique_ptr<Output> file_;
    std::map<std::pair<const Element*, std::string_view>, std::string> kinds_;
};

}  // namespace quillory
