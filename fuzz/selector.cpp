#include <zorby/platform/MemoryDialogs.h>
#include <zorby/selection/FandSSelector.h>

#include <algorithm>
#include <fuzz/Expect.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <vector>

namespace zorby {
namespace {

using fuzz::Expect;

// Takes a text apart, and checks that the parts with what divides them are the text.
std::vector<std::string> Parts(const std::string& text) {
    std::vector<std::string> parts;
    std::string part;
    int first = 0;
    int last = -1;
    for (int start = 0; CFandSSelector::GetPart(text, start, part, first, last); start = last + 1) {
        Expect(start <= first && first <= last, "a part comes after the one before it");
        Expect(part == text.substr(static_cast<std::size_t>(first), part.size()),
               "a part is where its limits say");
        Expect(static_cast<int>(part.size()) == last - first, "limits are those of the part");
        Expect(part.find_first_of(" ,") == std::string::npos, "a part has no separator");
        parts.push_back(part);
    }
    Expect(part.empty() && first == -1 && last == -1, "after the last part there is none");
    return parts;
}

bool HasAForm(const std::string& part) {
    const auto isDigit = [](char c) { return '0' <= c && c <= '9'; };
    const auto isDigits = [&](const std::string& text) {
        return text.size() == 3 && std::ranges::all_of(text, isDigit);
    };
    const bool isRange = part.size() == 7 && part[3] == '-' && isDigits(part.substr(4));
    const auto isCode = [&](char c) {
        return isDigit(c) || ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
    };
    return isDigits(part.substr(0, 3)) &&
           (isRange || std::all_of(part.begin() + 3, part.end(), isCode));
}

std::string Trimmed(const std::string& text) {
    constexpr const char* kWhiteSpace = " \t\n\v\f\r";
    const std::size_t start = text.find_first_not_of(kWhiteSpace);
    if (start == std::string::npos) return {};
    return text.substr(start, text.find_last_not_of(kWhiteSpace) - start + 1);
}

void CheckSelection(FuzzedDataProvider& data) {
    CFandSSelectorState state;
    state.allowWholeField = data.ConsumeBool();
    state.allow001And003 = data.ConsumeBool();
    state.allowBelow010 = data.ConsumeBool();
    state.allowSubfields = data.ConsumeBool();
    const int allow245h = data.ConsumeBool();
    const bool checkFormat = data.ConsumeBool();
    state.typedSelection = data.ConsumeRemainingBytesAsString();
    MemoryWindow window;
    CFandSSelector selector;
    selector.InitializeYourself(window, state, {0, 0, 300, 400}, 0);
    int first = 0;
    int last = 0;
    const auto code = selector.SpecificFieldEditIsOK(first, last, allow245h, checkFormat);
    const std::string text = Trimmed(state.typedSelection);
    Expect((code == FSE_EMPTY) == text.empty(), "only an empty text is empty");
    Expect(-1 <= first && first <= last && last <= static_cast<int>(text.size()),
           "the part at fault is in the text");
    Expect(code != FSE_OK || first == -1, "what is valid has no part at fault");
    if (code != FSE_OK) return;
    for (const std::string& part : Parts(text)) {
        Expect(HasAForm(part), "a valid part has one of the forms");
        Expect(part != "006" && part != "007" && part != "008", "coded fields are never valid");
    }
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    zorby::Parts(std::string(bytes, bytes + size));
    zorby::CheckSelection(data);
    return 0;
}
