#include <quillory/coded/Decoder.h>
#include <quillory/exchange/Input.h>

#include <fuzz/Expect.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

using zorby::fuzz::Expect;

// The elements give what a field holds, each byte once at most.
void Check(const DecodedField& field, const std::string& content) {
    std::size_t end = 0;
    for (const DecodedElement& element : field.elements) {
        const auto first = static_cast<std::size_t>(element.place.first);
        Expect(first >= end, "elements stand in order");
        Expect(element.state == ElementState::Missing || !element.value.empty(),
               "only what is missing has no value");
        Expect(content.compare(first, element.value.size(), element.value) == 0,
               "a value is that of its place");
        for (; end < first && end < content.size(); ++end) {
            Expect(content[end] == ' ' || content[end] == kFill, "no byte is passed over");
        }
        end = first + element.value.size();
    }
    for (; end < content.size(); ++end) {
        Expect(content[end] == ' ' || content[end] == kFill, "the end is not passed over");
    }
}

// Rows that are refused leave an error, and those that are not are found again.
void CheckSource(const std::string& text) {
    try {
        CodeStatus status;
        status.Add(text, "source");
        const CodeLists lists(std::move(status));
        const Decoder decoder(lists);
        decoder.Leader("00000cam a2200000 a 4500");
        decoder.Field008(std::string(40, 'a'), "00000cam a2200000 a 4500");
        for (const char letter : std::string_view("acdefghikmoqrstvz")) {
            decoder.Field006(std::string(18, letter));
            decoder.Field007(std::string(23, letter));
        }
    } catch (const FileError&) {
    }
}

}  // namespace
}  // namespace quillory

// The first byte says what the rest is: a source of codes, or a leader and a field.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace quillory;
    static const CodeLists lists{CodeStatus()};
    FuzzedDataProvider data(bytes, size);
    if (data.ConsumeIntegralInRange(0, 3) == 0) {
        CheckSource(data.ConsumeRemainingBytesAsString());
        return 0;
    }
    const Decoder decoder(lists);
    const std::string leader = data.ConsumeRandomLengthString(30);
    const std::string content = data.ConsumeRemainingBytesAsString();
    Check(decoder.Leader(leader), leader);
    Check(decoder.Field006(content), content);
    Check(decoder.Field007(content), content);
    Check(decoder.Field008(content, leader), content);
    return 0;
}
