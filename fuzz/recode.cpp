#include <quillory/exchange/Recoder.h>
#include <quillory/text/Charset.h>
#include <quillory/text/TextConverter.h>
#include <quillory/text/Utf8.h>

#include <array>
#include <fuzz/Expect.h>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace quillory {
namespace {

using zorby::fuzz::Expect;

constexpr std::array<Charset, 3> kCharsets{kCharsetMarc8, kCharsetUtf8, kCharsetLatin1};

// Converters are costly to make, and kept.
std::string Converted(std::string_view content, Charset from, Charset to, NormalForm form,
                      Losses& losses) {
    static std::map<std::tuple<Charset, Charset, NormalForm>, TextConverter> converters;
    const auto found = converters.try_emplace({from, to, form}, from, to, form).first;
    std::string out;
    AppendConverted(content, found->second, out, losses);
    return out;
}

// The halves of a double diacritic come back as the one character that replaced them in Unicode.
bool HasHalfMark(std::string_view utf8) {
    for (const char* mark : {"\uFE20", "\uFE21", "\uFE22", "\uFE23"}) {
        if (utf8.find(mark) != utf8.npos) return true;
    }
    return false;
}

// A subfield code is one byte in every character set.
bool HasPlainCodes(std::string_view content) {
    for (std::size_t at = content.find('\x1F'); at != content.npos;
         at = content.find('\x1F', at + 1)) {
        if (at + 1 < content.size() && static_cast<unsigned char>(content[at + 1]) >= 0x80)
            return false;
    }
    return true;
}

// Through another character set and back, UTF-8 is the same in its normal form.
void CheckRoundTrip(std::string_view utf8, Charset through, NormalForm form) {
    Losses losses;
    const std::string there = Converted(utf8, kCharsetUtf8, through, form, losses);
    const std::string back = Converted(there, through, kCharsetUtf8, form, losses);
    Expect(IsValidUtf8(back), "what comes out in UTF-8 is valid");
    if (losses.Real()) return;
    Expect(Normalized(back, form) == Normalized(utf8, form), "text comes back without losses");
}

}  // namespace
}  // namespace quillory

// The first byte is options, the rest the content of a field.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    if (size == 0) return 0;
    const std::string_view content(reinterpret_cast<const char*>(data) + 1, size - 1);
    const NormalForm form = (data[0] & 1) != 0 ? kNormalFormD : kNormalFormC;
    Losses losses;
    for (const Charset from : kCharsets) {
        const std::string utf8 = Converted(content, from, kCharsetUtf8, form, losses);
        zorby::fuzz::Expect(IsValidUtf8(utf8) || !IsValidUtf8(content) || from != kCharsetUtf8,
                            "valid UTF-8 stays valid");
        Converted(content, from, kCharsetMarc8, form, losses);
        Converted(content, from, kCharsetLatin1, form, losses);
    }
    if (!IsValidUtf8(content) || HasHalfMark(content) || !HasPlainCodes(content)) return 0;
    CheckRoundTrip(content, kCharsetMarc8, form);
    CheckRoundTrip(content, kCharsetLatin1, form);
    return 0;
}
