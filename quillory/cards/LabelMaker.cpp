#include <quillory/cards/Headings.h>
#include <quillory/cards/LabelMaker.h>

#include <algorithm>

namespace quillory {

PrintItem LabelMaker::Label(const CardRecord& texts, const std::string& callNumber) const {
    PrintItem label{kUseLabel, texts.ControlNumber(), {}};
    for (const std::string& line : CallNumberLines(callNumber)) {
        label.blocks.push_back({kBlockCallNumber, line});
    }
    for (const PlacePattern& pattern : options_.additionalSubfields.patterns) {
        for (const std::string& text : texts.TextsAt(pattern)) {
            label.blocks.push_back({kBlockLabelLine, text});
        }
    }
    const std::vector<std::string> headings = MainHeading(texts);
    if (!headings.empty()) label.blocks.push_back({kBlockPocket, headings.front()});
    if (const CardField* title = texts.Find("245"); title != nullptr) {
        label.blocks.push_back({kBlockPocket, ProperTitle(*title, texts.HasPunctuation())});
    }
    return label;
}

std::vector<PrintItem> LabelMaker::LabelsOf(const Record& record) {
    const CardRecord texts(record, reader_);
    std::vector<std::string> callNumbers;
    for (const ShelvedCopy& copy : callNumbers_.Of(record, texts, reader_)) {
        const bool isThere = std::ranges::find(callNumbers, copy.callNumber) != callNumbers.end();
        if (copy.callNumber.empty() || (options_.sets > 0 && isThere)) continue;
        callNumbers.push_back(copy.callNumber);
    }
    std::vector<PrintItem> labels;
    for (const std::string& callNumber : callNumbers) {
        const auto count = static_cast<std::size_t>(std::max(options_.sets, 1));
        labels.insert(labels.end(), count, Label(texts, callNumber));
    }
    return labels;
}

}  // namespace quillory
