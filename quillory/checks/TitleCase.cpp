#include <quillory/checks/TitleCase.h>
#include <quillory/exchange/RecordCharset.h>
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

bool TitleCase::IsUpperCase(const Record& record, std::span<const SubfieldInHand> subfields,
                            Charset charset) {
    const auto isTitle = [](const SubfieldInHand& subfield) {
        return subfield.code == 'a' && !subfield.text.empty();
    };
    const auto title = std::ranges::find_if(subfields, isTitle);
    if (title == subfields.end()) return false;
    const Capitals capitals = CapitalsOf(record, title->text, charset);
    if (!AreInCapitals(capitals)) return false;
    const auto isSmallRest = [](const SubfieldInHand& subfield) {
        constexpr std::string_view kRestOfTitle = "bcnp";
        return kRestOfTitle.find(subfield.code) != kRestOfTitle.npos &&
               HasSmallASCII(subfield.text);
    };
    return capitals.words > 1 || std::ranges::none_of(subfields, isSmallRest);
}

}  // namespace quillory
