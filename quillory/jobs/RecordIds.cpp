#include <quillory/exchange/Input.h>
#include <quillory/exchange/LineReader.h>
#include <quillory/jobs/RecordIds.h>
#include <quillory/text/SearchText.h>

namespace quillory {

RecordIdList::RecordIdList(const std::string& path, PlaceSet places, Charset charset)
    : places_(std::move(places)), reader_(charset) {
    Input input(path);
    const std::string text = ReadWhole(input);
    std::string_view rest = text;
    while (!rest.empty()) {
        std::string id = TidyText(TakeLine(rest));
        if (!id.empty() && met_.emplace(id, false).second) ids_.push_back(std::move(id));
    }
}

bool RecordIdList::Meet(std::string_view value) {
    const auto found = met_.find(std::string(value));
    if (found == met_.end()) return false;
    found->second = true;
    return true;
}

bool RecordIdList::Has(const Record& record) {
    bool has = false;
    reader_.ForEach(record, places_, [&](const Place&, std::string_view value) {
        const std::string tidy = TidyText(value);
        if (Meet(tidy) || Meet(std::string_view(tidy).substr(0, tidy.find(' ')))) has = true;
    });
    return has;
}

std::vector<std::string> RecordIdList::NotMet() const {
    std::vector<std::string> ids;
    for (const std::string& id : ids_) {
        if (!met_.at(id)) ids.push_back(id);
    }
    return ids;
}

}  // namespace quillory
