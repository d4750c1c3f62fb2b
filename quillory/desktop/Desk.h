#pragma once

#include <quillory/checks/Checker.h>
#include <quillory/coded/CodeLists.h>
#include <quillory/coded/Decoder.h>
#include <quillory/desktop/DeskHints.h>
#include <quillory/repair/RecordRepairer.h>
#include <quillory/rules/Inspector.h>
#include <zorby/format/DisplayOptions.h>

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

    // What the rules say of a record, from the heaviest down.
    std::vector<Remark> Check(const Record& record);
    // The repairs of a record, which takes them; as RecordRepairer::PutRight.
    const std::vector<Repair>& PutRight(Record& record) { return repairer_.PutRight(record); }

    // How fields are named, as the settings have it.
    zorby::EDISPLAYOPTIONS Display() const;
    // Throws FileError if the settings can't be written.
    void SetDisplay(zorby::EDISPLAYOPTIONS display);

private:
    DeskHints hints_;
    HintsInForce hintsInForce_{hints_};
    Checker checker_;
    CodeLists lists_;
    Decoder decoder_{lists_};
    Inspector inspector_;
    RecordRepairer repairer_{lists_, {}};
};

}  // namespace quillory
