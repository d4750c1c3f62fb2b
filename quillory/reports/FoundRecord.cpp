#include <quillory/reports/FoundRecord.h>
#include <quillory/reports/ScreenText.h>

namespace quillory {
namespace {

constexpr std::size_t kFoundNumberWidth = 7;
constexpr std::size_t kControlNumberWidth = 14;
constexpr std::size_t kPlaceWidth = 9;

std::string MarkedText(const QueryHit& hit, bool colour) {
    const std::string_view text = hit.text;
    std::string marked;
    std::size_t at = 0;
    for (const TextRange& range : hit.ranges) {
        if (!colour || range.begin == range.end) continue;
        marked += Visible(text.substr(at, range.begin - at));
        marked.append(kBold).append(kRed);
        marked += Visible(text.substr(range.begin, range.end - range.begin));
        marked += kPlain;
        at = range.end;
    }
    return marked + Visible(text.substr(at));
}

std::string Heading(const FoundRecord& found) {
    const std::string file = found.file.empty() ? "" : std::string(found.file) + ": ";
    return file + RightAligned(std::to_string(found.number), kFoundNumberWidth) + "  " +
           Padded(Visible(found.controlNumber), kControlNumberWidth) + "  ";
}

void HitToJson(const QueryHit& hit, JsonWriter& json) {
    json.BeginObject();
    json.Member("place", PlaceText(hit.place));
    json.Member("text", hit.text);
    std::vector<std::string> matches;
    for (const TextRange& range : hit.ranges) {
        matches.push_back(hit.text.substr(range.begin, range.end - range.begin));
    }
    json.MemberIfAny("matches", matches);
    json.EndObject();
}

}  // namespace

std::string ToText(const FoundRecord& found, bool colour) {
    const std::string heading = Heading(found);
    const std::string noPlace = Padded("", kPlaceWidth) + "  ";
    if (found.hits.empty()) return heading + noPlace + Visible(found.title) + "\n";
    std::string text;
    for (const QueryHit& hit : found.hits) {
        text += heading + Padded(PlaceText(hit.place), kPlaceWidth) + "  " +
                MarkedText(hit, colour) + "\n";
    }
    return text;
}

void ToJson(const FoundRecord& found, JsonWriter& json) {
    json.BeginObject();
    json.MemberIfAny("file", found.file);
    json.Member("record", found.number);
    json.Member("control_number", found.controlNumber);
    json.Member("title", found.title);
    json.Name("hits");
    json.BeginArray();
    for (const QueryHit& hit : found.hits) HitToJson(hit, json);
    json.EndArray();
    json.EndObject();
}

void FoundRecords::TakeRecord(const Item& item, const std::vector<QueryHit>& hits) {
    const bool namesFile = options_.namesFiles || options_.isJson;
    FoundRecord found{namesFile ? std::string_view(reporter_.File()) : std::string_view(),
                      item.number,
                      item.record.ControlNumber(),
                      {},
                      hits};
    if (options_.isJson || hits.empty()) found.title = summarizer_.Summarize(item.record).title;
    output_.Write(options_.isJson ? JsonLine(found) : ToText(found, options_.colour));
}

void FoundRecords::Finish(std::uint64_t found) {
    if (options_.onlyCount) output_.Write(std::to_string(found) + "\n");
    output_.Finish();
}

}  // namespace quillory
