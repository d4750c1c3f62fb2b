#include <quillory/places/Tag.h>
#include <quillory/rules/Unimarc.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr unsigned kProcessingData = 100;     // in MARC 21 a name
constexpr unsigned kTitle = 200;              // in MARC 21 undefined
constexpr unsigned kMarc21Title = 245;        // in UNIMARC undefined
constexpr unsigned kOriginatingSource = 801;  // in MARC 21 undefined

// "20010115d1998    m  y0frey50      ba": coded data that begin with the day of entry.
bool IsProcessingData(const RecordInHand& record, const CheckedField& field) {
    constexpr std::size_t kDaySize = 8;
    constexpr std::size_t kLeastSize = 13;  // in records of authority data
    const std::string_view text = record.TextOf(field, 'a');
    return field.Indicator(1) == ' ' && field.Indicator(2) == ' ' && text.size() >= kLeastSize &&
           std::ranges::all_of(text.substr(0, kDaySize),
                               [](char c) { return '0' <= c && c <= '9'; });
}

bool HasTitleAndSource(const RecordInHand& record) {
    const CheckedField* title = record.First(kTitle);
    return title != nullptr && !record.TextOf(*title, 'a').empty() &&
           record.Has(kOriginatingSource) && !record.Has(kTag008) && !record.Has(kMarc21Title);
}

}  // namespace

bool IsUnimarc(const RecordInHand& record) {
    const CheckedField* data = record.First(kProcessingData);
    return (data != nullptr && IsProcessingData(record, *data)) || HasTitleAndSource(record);
}

}  // namespace quillory
