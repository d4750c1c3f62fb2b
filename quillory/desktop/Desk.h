#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/coded/Decoder.h>
#include <quillory/desktop/DeskHints.h>
#include <quillory/desktop/DeskRules.h>
#include <quillory/repair/RecordRepairer.h>
#include <zorby/format/DisplayOptions.h>

#include <memory>
#include <string>
#include <vector>

namespace quillory {

// What all windows work with: the settings, dictionaries, code lists and rules in force.
class Desk {
public:
    // Throws FileError if a data file can't be read.
    Desk();

    const CodeLists& Lists() const { return lists_; }
    const Decoder& GetDecoder() const { return decoder_; }

    const DeskRules& Rules() const { return *rules_; }
    // Holds records from now on against the rules as the file of settings beside a file of records
    // has them, or else the one in the folder of the settings. An empty path stands for no file.
    // Throws FaultError for one that has a fault, and goes on without it.
    void FollowRulesFor(const std::string& path);
    // The same for another holdings system that has come in force, with its fields.
    void FollowHoldings();
    // What the rules say of a record, from the heaviest down.
    std::vector<Remark> Check(const Record& record) { return rules_->Check(record); }
    // The repairs of a record, which takes them; as RecordRepairer::PutRight.
    const std::vector<Repair>& PutRight(Record& record) { return repairer_.PutRight(record); }

    // How fields are named, as the settings have it.
    zorby::EDISPLAYOPTIONS Display() const;
    // Throws FileError if the settings can't be written.
    void SetDisplay(zorby::EDISPLAYOPTIONS display);

private:
    DeskHints hints_;
    HintsInForce hintsInForce_{hints_};
    CodeLists lists_;
    Decoder decoder_{lists_};
    std::unique_ptr<DeskRules> rules_;
    RecordRepairer repairer_{lists_, {}};
};

}  // namespace quillory
