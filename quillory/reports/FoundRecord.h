#pragma once

#include <quillory/jobs/FindRecords.h>
#include <quillory/store/Summary.h>
#include <quillory/text/JsonWriter.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A record that was looked for, and what was found in it.
struct FoundRecord {
    std::string_view file;  // empty where it goes without saying
    std::uint64_t number = 0;
    std::string_view controlNumber;
    std::string title;  // as in RecordSummary
    const std::vector<QueryHit>& hits;
};

// A line for each hit: the record's number, 001, the place and the text, with what was found in
// colour. A record that was found for what it lacks has one line with its title.
std::string ToText(const FoundRecord& found, bool colour);
// The parts of a text that were found are its "matches"; all of it, where there are none.
void ToJson(const FoundRecord& found, JsonWriter& json);

struct FoundOptions {
    bool isJson = false;
    bool onlyCount = false;
    bool colour = false;
    bool namesFiles = false;  // before each line of text
};

// Writes found records as they come.
class FoundRecords : public FindReport {
public:
    // Keeps the references.
    FoundRecords(const FoundOptions& options, Output& output, const Reporter& reporter)
        : options_(options), output_(output), reporter_(reporter) {}

    void TakeRecord(const Item& item, const std::vector<QueryHit>& hits) override;
    void Finish(std::uint64_t found) override;

private:
    FoundOptions options_;
    Output& output_;
    const Reporter& reporter_;
    Summarizer summarizer_;
};

}  // namespace quillory
