#pragma once

#include <quillory/sets/PlaceText.h>
#include <quillory/store/Summary.h>

#include <string>

namespace quillory {

// What a list of records shows of one, in UTF-8. A text is empty where the record says nothing.
struct ListRow {
    std::string title;
    std::string author;  // of the main entry, or else of the first added one
    std::string date;    // of publication, as 008 has it, or else 264 or 260
    std::string material;
    std::string controlNumber;
};

class ListRows {
public:
    ListRow RowOf(const Record& record);

private:
    Summarizer summarizer_;
    PlaceTexts texts_{kCharsetAuto};
};

}  // namespace quillory
