#include <zorby/text/General.h>
#include <zorby/text/WildPattern.h>

#include <algorithm>
#include <fuzz/Expect.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <string_view>

namespace zorby {
namespace {

using fuzz::Expect;

// A text that may be long enough for a search in the square of its length to show.
std::string TakeText(FuzzedDataProvider& data) {
    const std::string piece = data.ConsumeRandomLengthString(40);
    const int times = data.ConsumeBool() ? 1 : data.ConsumeIntegralInRange(0, 500);
    std::string text;
    for (int i = 0; i < times; ++i) text += piece;
    return text + data.ConsumeRandomLengthString(40);
}

void ExpectInside(const WildMatch& match, std::string_view text) {
    const auto size = static_cast<std::ptrdiff_t>(text.size());
    Expect(0 <= match.start && match.start <= match.end && match.end <= size,
           "a match is in the text");
    Expect(0 <= match.position && match.position <= size, "the next search starts in the text");
}

void CheckAllMatches(std::string_view text, const WildPattern& pattern, bool wholeWords) {
    WildMatch match;
    for (int matches = 0; matches < 20; ++matches) {
        const std::ptrdiff_t before = match.position;
        if (!pattern.Find(text, wholeWords, match)) return;
        ExpectInside(match, text);
        Expect(match.position >= before, "a search goes forward");
        Expect(!wholeWords || match.end < static_cast<std::ptrdiff_t>(text.size()),
               "a word ends at a byte of the text");
        match.position = std::max(match.position, before + 1);
    }
}

void CheckLiteral(const std::string& text, const std::string& literal, int from) {
    int position = from;
    int start = -1;
    int end = -1;
    const int found = CGeneral::FindWild(text, literal, 0, position, start, end, 0);
    const std::size_t expected = static_cast<std::size_t>(from) < text.size() && !literal.empty()
                                     ? text.find(literal, static_cast<std::size_t>(from))
                                     : std::string::npos;
    Expect((found != 0) == (expected != std::string::npos), "a literal is found where it is");
    if (found == 0) return;
    Expect(static_cast<std::size_t>(start) == expected, "a literal is found where it begins");
    Expect(position == end + 1 && position == start + static_cast<int>(literal.size()),
           "a match is as long as the literal");
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace zorby;
    FuzzedDataProvider data(bytes, size);
    const std::string text = TakeText(data);
    const std::string pattern = TakeText(data);
    CheckLiteral(text, pattern, data.ConsumeIntegralInRange(0, 50));
    const WildPattern wild(pattern, true);
    for (const bool wholeWords : {false, true}) CheckAllMatches(text, wild, wholeWords);
    return 0;
}
