#pragma once

#include <quillory/cards/CallNumbers.h>
#include <quillory/cards/LabelOptions.h>
#include <quillory/cards/PrintItem.h>

#include <vector>

namespace quillory {

// Makes the labels of each record.
class LabelMaker {
public:
    // Both outlive this.
    LabelMaker(const LabelOptions& options, CallNumbers& callNumbers, Charset charset)
        : options_(options), callNumbers_(callNumbers), reader_(charset) {}

    // One for each copy, or so many of each call number as the options say. None of a record
    // without a call number.
    std::vector<PrintItem> LabelsOf(const Record& record);

private:
    PrintItem Label(const CardRecord& texts, const std::string& callNumber) const;

    const LabelOptions& options_;
    CallNumbers& callNumbers_;
    ValueReader reader_;
};

}  // namespace quillory
