#include <quillory/text/Charset.h>
#include <quillory/text/IconvConverter.h>
#include <quillory/text/Utf8Size.h>
#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <utility>

namespace quillory {
namespace {

constexpr char kUtf8Label = 'a';

// Where the first byte beyond ASCII stands, or `end`.
const char* PastAscii(const char* p, const char* end) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    if constexpr (std::endian::native == std::endian::little) {
        for (std::uint64_t word = 0; end - p >= std::ptrdiff_t{sizeof word}; p += sizeof word) {
            std::memcpy(&word, p, sizeof word);
            word &= kHighBits;
            if (word != 0) return p + std::countr_zero(word) / 8;
        }
    }
    return std::find_if(p, end, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

// Names of sets of the C library that have been asked for, in the order of their numbers.
std::deque<std::string>& OtherNames() {
    static std::deque<std::string> names;
    return names;
}

std::string WithoutHyphens(std::string_view name) {
    std::string plain;
    for (const char c : name) {
        if (c != '-' && c != '_') {
            plain += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
    }
    return plain;
}

}  // namespace

std::string_view CharsetName(Charset charset) {
    switch (charset) {
        case kCharsetMarc8:
            return "MARC-8";
        case kCharsetUtf8:
            return "UTF-8";
        case kCharsetLatin1:
            return "Latin-1";
        case kCharsetAuto:
            return "auto";
        case kCharsetOther:
            break;
    }
    return OtherNames()[static_cast<std::size_t>(charset - kCharsetOther)];
}

std::optional<Charset> CharsetNamed(std::string_view name) {
    constexpr std::pair<std::string_view, Charset> kNames[] = {{"auto", kCharsetAuto},
                                                               {"marc8", kCharsetMarc8},
                                                               {"utf8", kCharsetUtf8},
                                                               {"latin1", kCharsetLatin1},
                                                               {"iso88591", kCharsetLatin1}};
    const std::string plain = WithoutHyphens(name);
    for (const auto& [known, charset] : kNames) {
        if (plain == known) return charset;
    }
    const std::string given(name);
    if (!IconvConverter::HasSet(given)) return std::nullopt;
    auto& others = OtherNames();
    const auto at = std::ranges::find(others, given) - others.begin();
    if (static_cast<std::size_t>(at) == others.size()) others.push_back(given);
    return static_cast<Charset>(kCharsetOther + at);
}

Charset LabelledCharset(std::string_view leader) {
    const bool isUtf8 = leader.size() > zorby::kLeaderCharacterCode &&
                        leader[zorby::kLeaderCharacterCode] == kUtf8Label;
    return isUtf8 ? kCharsetUtf8 : kCharsetMarc8;
}

char LabelFor(Charset charset) {
    return charset == kCharsetUtf8 ? kUtf8Label : ' ';
}

std::size_t FindInvalidUtf8(std::string_view text) {
    const char* p = text.data();
    const char* const end = p + text.size();
    while ((p = PastAscii(p, end)) != end) {
        const std::size_t size = Utf8Size({p, end});
        if (size == 0) return static_cast<std::size_t>(p - text.data());
        p += size;
    }
    return text.npos;
}

void CountUtf8(std::string_view text, Utf8Counts& counts) {
    const char* p = text.data();
    const char* const end = p + text.size();
    while ((p = PastAscii(p, end)) != end) {
        const std::size_t size = Utf8Size({p, end});
        ++(size == 0 ? counts.invalid : counts.valid);
        p += std::max<std::size_t>(size, 1);
    }
}

bool IsValidUtf8(std::string_view text) {
    return FindInvalidUtf8(text) == text.npos;
}

}  // namespace quillory
