#include <quillory/queries/Query.h>

#include <algorithm>
#include <fuzz/Expect.h>
#include <string_view>

namespace quillory {
namespace {

using zorby::fuzz::Expect;

// The bytes up to a line end are an expression, those after it the content of the fields that it
// looks at.
struct Parts {
    std::string_view expression;
    std::string_view content;
};

Parts Divided(std::string_view bytes) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    return {bytes.substr(0, end), bytes.substr(std::min(end + 1, bytes.size()))};
}

void CheckPlaces(std::string_view text) {
    const PlaceSetReading reading = ParsePlaceSet(text);
    Expect(static_cast<bool>(reading.fault) == reading.places.Empty(), "places or a fault");
    if (reading.fault) return;
    const std::string shown = PlaceSetText(reading.places);
    Expect(PlaceSetText(ParsePlaceSet(shown).places) == shown, "places are read as they are shown");
}

void CheckFault(std::string_view expression, const TextFault& fault) {
    Expect(fault.offset + fault.length <= expression.size(), "a fault is in its expression");
    Expect(!CaretText(expression, fault).empty(), "a fault is shown");
}

void CheckRanges(const QueryHit& hit) {
    std::size_t at = 0;
    for (const TextRange& range : hit.ranges) {
        Expect(at <= range.begin && range.begin <= range.end && range.end <= hit.text.size(),
               "what was found is in its text");
        at = range.end;
    }
}

void CheckQuery(Query& query, std::string_view content) {
    const std::string_view half = content.substr(content.size() / 2);
    const Record record{"00000nam  2200000 a 4500",
                        {{"001", content},
                         {"008", half},
                         {"245", content},
                         {"650", half},
                         {"650", content},
                         {"CAT", content}},
                        {}};
    query.SetValidity([](const Record& one) { return one.fields.size() > 1; });
    const bool matches = query.Matches(record);
    Expect(matches == query.Matches(record), "a query says the same again");
    for (const QueryHit& hit : query.HitsIn(record)) CheckRanges(hit);
}

}  // namespace
}  // namespace quillory

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace quillory;
    const Parts parts = Divided({reinterpret_cast<const char*>(bytes), size});
    CheckPlaces(parts.expression);
    for (const bool exact : {false, true}) {
        QueryReading reading = ParseQuery(parts.expression, {exact});
        if (reading.query) {
            CheckQuery(*reading.query, parts.content);
        } else {
            CheckFault(parts.expression, reading.fault);
        }
    }
    return 0;
}
