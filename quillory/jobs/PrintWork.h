#pragma once

#include <quillory/cards/Panel.h>
#include <quillory/cards/PrintItem.h>
#include <quillory/cards/PrintQueue.h>
#include <quillory/cards/Sheet.h>
#include <quillory/cards/Typesetter.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Charset.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillory {

struct Record;

// What is made of records, in the place of what the profile says.
struct PrintChoice {
    PrintQueue::Kind kind = PrintQueue::kCards;
    std::string callNumbers = {};           // places; empty: as CallNumbers looks for them
    std::vector<ItemUse> uses = {};         // cards of a set; none: those of the profile
    std::optional<int> cardsPerSheet = {};  // 1 to 4
    Paper paper = kPaperLetter;             // of cards
    std::string stock = {};                 // of labels, by its name; empty: that of the profile
};

// How cards or labels are made of records and laid out: what differs between the two.
class PrintWork {
public:
    virtual ~PrintWork() = default;

    // What a record comes to. None where it lacks what it would have to have.
    virtual std::vector<PrintItem> Make(const Record& record) = 0;
    virtual FaultCode ReasonForNone() const = 0;
    virtual std::vector<Panel> LayOut(const PrintItem& item, Typesetter& typesetter) const = 0;
    virtual Sheet SheetOf() const = 0;
};

// Puts settings and dictionaries in force, and reads the options of the profile. Throws UsageError
// and FileError. `charset` is that of the records.
std::unique_ptr<PrintWork> MakePrintWork(const PrintChoice& choice, Charset charset);

// "card" or "label".
std::string NounOf(PrintQueue::Kind kind);

}  // namespace quillory
