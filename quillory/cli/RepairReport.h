#pragma once

#include <quillory/checks/RecordRepair.h>
#include <quillory/cli/Reporter.h>
#include <quillory/exchange/Output.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// Says what a repair did, on standard error and in a file: a line of JSON for each repair, with
// bytes beyond ASCII as the characters of the same numbers.
class RepairReport {
public:
    // `path` may be empty: no file then. Keeps the references. Throws FileError.
    RepairReport(const std::string& path, const CodeLists& lists, Reporter& reporter);

    void Take(const Item& item, const std::vector<Repair>& repairs);
    // Gives the file its name.
    void Finish();
    void Summarize(bool isDryRun) const;

    bool HasRepairs() const { return repaired_ > 0; }
    bool HasLeft() const { return left_ > 0; }

private:
    void Say(const Item& item, const Repair& repair);
    void Write(const Item& item, const Repair& repair);
    // Of messages.
    const std::string& KindOf(const Repair& repair);
    std::string MessageOf(const Repair& repair) const;
    std::string TextOf(const Repair& repair, const std::string& value) const;
    std::string ValueShown(const Repair& repair, const std::string& value) const;

    const CodeLists& lists_;
    Reporter& reporter_;
    std::unique_ptr<Output> file_;
    std::map<std::pair<const Element*, std::string_view>, std::string> kinds_;
    std::uint64_t records_ = 0;
    std::uint64_t recordsRepaired_ = 0;
    std::uint64_t repaired_ = 0;
    std::uint64_t kept_ = 0;
    std::uint64_t left_ = 0;
};

}  // namespace quillory
