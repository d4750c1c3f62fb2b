#include <quillory/checks/TitleCase.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/text/QmText.h>

#include <algorithm>
#include <string>

namespace quillory {
namespace {

bool IsASCII(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return ' ' <= c && c <= '~'; });
}

bool HasSmallASCII(std::string_view text) {
    return std::ranges::any_of(text, [](char c) { return 'a' <= c && c <= 'z'; });
}

}  // namespace

bool TitleCase::ToQm(std::string_view text, Charset charset) {
    auto& converter = converters_[static_cast<std::size_t>(charset)];
    if (!converter) {
        converter = std::make_unique<TextConverter>(charset, kCharsetUtf8, kNormalFormC);
    }
    utf8_.clear();
    Losses losses;
    converter->Append(text, utf8_, losses);
    return Utf8ToQm(utf8_, qm_);
}

// The first small letter decides about most texts. The letters of an escape sequence don't count:
// they are not part of the text.
Capitals TitleCase::CapitalsOf(const Record& record, std::string_view text, Charset charset) {
    constexpr Capitals kSmallOnly{0, 0, true};
    const bool hasEscapes = text.find('\033') != text.npos;
    if (!hasEscapes && HasSmallASCII(text)) return kSmallOnly;
    if (IsASCII(text)) return CapitalsOfQm(text);
    if (charset == kCharsetAuto) charset = ActualCharset(record);
    return ToQm(text, charset) ? CapitalsOfQm(qm_) : kSmallOnly;
}

bool TitleCase::IsUpperCase(const Record& record, std::string_view content, Charset charset) {
    constexpr std::string_view kRestOfTitle = "bcnp";
    std::string_view title;
    bool restHasSmall = false;
    ForEachSubfield(content, [&](char code, std::string_view text) {
        if (code == 'a' && title.empty()) title = text;
        const bool isRest = kRestOfTitle.find(code) != kRestOfTitle.npos;
        restHasSmall = restHasSmall || (isRest && HasSmallASCII(text));
    });
    const Capitals capitals = CapitalsOf(record, title, charset);
    if (!AreInCapitals(capitals)) return false;
    return capitals.words > 1 || !restHasSmall;
}

}  // namespace quillory
