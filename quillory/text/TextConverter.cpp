#include <quillory/text/Ascii.h>
#include <quillory/text/CharacterReference.h>
#include <quillory/text/PlainBytes.h>
#include <quillory/text/QmUnicode.h>
#include <quillory/text/TextConverter.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/Compare.h>
#include <zorby/charset/Convert.h>
#include <zorby/charset/KeyTable.h>
#include <zorby/charset/PlainRun.h>
#include <zorby/record/CommFormat.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kEscapeToBasic = "\x1Bs";

// Such a diacritic has no letter: in MARC-8 the letter comes after it.
bool EndsWithDiacritic(std::string_view marc8) {
    constexpr unsigned char kFirstDiacritic = 0xE0;
    return !marc8.empty() && static_cast<unsigned char>(marc8.back()) >= kFirstDiacritic;
}

bool HasCombining(std::string_view utf8) {
    const char* p = utf8.data();
    const char* const end = p + utf8.size();
    while ((p += zorby::PlainRunLength(p, end)) != end) {
        const Utf8Char c = DecodeUtf8({p, static_cast<std::size_t>(end - p)});
        if (c.valid && IsCombining(c.codePoint)) return true;
        p += c.size;
    }
    return false;
}

// Latin-1 bytes are the first 256 code points.
void AppendLatin1AsUtf8(std::string_view latin1, std::string& utf8) {
    std::string written;
    for (const char c : latin1) AppendUtf8(static_cast<unsigned char>(c), written);
    utf8 += WithoutReferences(written);
}

void AppendUtf8AsLatin1(std::string_view utf8, std::string& latin1, Losses& losses) {
    const std::string composed = Normalized(utf8, kNormalFormC);
    std::string_view rest = composed;
    while (!rest.empty()) {
        const Utf8Char c = DecodeUtf8(rest);
        if (!c.valid) {
            losses.Add(kLossReplaced, static_cast<unsigned char>(rest.front()));
            AppendReference(kReplacementCharacter, latin1);
        } else if (c.codePoint <= 0xFF) {
            latin1 += static_cast<char>(c.codePoint);
        } else {
            losses.Add(kLossReference, c.codePoint);
            AppendReference(c.codePoint, latin1);
        }
        rest.remove_prefix(c.size);
    }
}

void AppendValidUtf8(std::string_view text, std::string& utf8, Losses& losses) {
    while (!text.empty()) {
        const Utf8Char c = DecodeUtf8(text);
        if (c.valid) {
            utf8.append(text.substr(0, c.size));
        } else {
            losses.Add(kLossReplaced, static_cast<unsigned char>(text.front()));
            AppendUtf8(kReplacementCharacter, utf8);
        }
        text.remove_prefix(c.size);
    }
}

}  // namespace

TextConverter::TextConverter(Charset from, Charset to, NormalForm form)
    : from_(from), to_(to), form_(form) {}

bool TextConverter::IsUntouched(std::string_view text) {
    return IsAsciiWithout<zorby::kDelimiter, kDelete>(text) && !MayHoldReference(text);
}

bool TextConverter::AreUntouched(std::string_view fields) {
    return IsAsciiWithout<zorby::kFieldEnd, kDelete>(fields) && !MayHoldReference(fields);
}

Marc8Unicode& TextConverter::SlowRoad() {
    if (!slowRoad_) slowRoad_ = std::make_unique<Marc8Unicode>(form_);
    return *slowRoad_;
}

IconvConverter& TextConverter::Other(Charset charset) {
    auto& other = charset == from_ ? otherFrom_ : otherTo_;
    if (!other) other = std::make_unique<IconvConverter>(std::string(CharsetName(charset)));
    return *other;
}

// The engine writes in one way what can be written in several: it holds a text only if it gives the
// same back. An escape to the basic set ends what would leave another one in force.
bool TextConverter::EngineToMarc8(std::string_view utf8, std::string& out) {
    codes_.clear();
    if (!QmUnicode::Of(form_).AppendQm(utf8, codes_) || codes_.empty()) return false;
    const auto last = static_cast<unsigned char>(codes_.back());
    std::string& marc8 = check_;
    marc8 = codes_;
    zorby::CSZorbyToMARC(marc8);
    const std::size_t start = out.size();
    out += marc8;
    const bool endsWithDiacritic = EndsWithDiacritic(marc8);
    const bool endsBasic =
        zorby::KeyRecordOf(last).alphabet == zorby::kAlphabetBasic || zorby::CSIsDiacritic(last);
    zorby::CSMARCToZorby(marc8);
    if (marc8 != codes_ || endsWithDiacritic) {
        out.resize(start);
        return false;
    }
    if (!endsBasic) out += kEscapeToBasic;
    return true;
}

void TextConverter::AppendMarc8AsUtf8(std::string_view text, std::string& out, Losses& losses) {
    const std::size_t start = out.size();
    SlowRoad().AppendUtf8(text, out, losses);
    const std::string_view written = std::string_view(out).substr(start);
    if (!MayHoldReference(written)) return;
    std::string plain = WithoutReferences(written);
    if (form_ == kNormalFormD || HasCombining(plain)) plain = Normalized(plain, form_);
    out.replace(start, out.size() - start, plain);
}

void TextConverter::AppendUtf8AsMarc8(std::string_view text, std::string& out, Losses& losses) {
    std::string kept;
    if (MayHoldReference(text)) {
        kept = WithReferencesKept(text);
        text = kept;
    }
    if (EngineToMarc8(text, out)) return;
    SlowRoad().AppendMarc8(text, out, losses);
}

void TextConverter::AppendUtf8(std::string_view text, std::string& out, Losses& losses) {
    switch (from_) {
        case kCharsetMarc8:
            AppendMarc8AsUtf8(text, out, losses);
            break;
        case kCharsetLatin1:
            AppendLatin1AsUtf8(text, out);
            break;
        case kCharsetUtf8:
            AppendValidUtf8(text, out, losses);
            break;
        default: {
            std::string written;
            Other(from_).AppendUtf8(text, written, losses);
            out += WithoutReferences(written);
        }
    }
}

void TextConverter::AppendFromUtf8(std::string_view utf8, std::string& out, Losses& losses) {
    if (to_ == kCharsetMarc8) {
        AppendUtf8AsMarc8(utf8, out, losses);
    } else if (to_ == kCharsetLatin1) {
        AppendUtf8AsLatin1(WithReferencesKept(utf8), out, losses);
    } else if (to_ == kCharsetUtf8) {
        out += Normalized(utf8, form_);
    } else {
        const std::string composed = Normalized(WithReferencesKept(utf8), kNormalFormC);
        Other(to_).AppendFromUtf8(composed, out, losses);
    }
}

void TextConverter::Append(std::string_view text, std::string& out, Losses& losses) {
    if (IsUntouched(text)) {
        out += text;
    } else if (from_ == kCharsetUtf8 && to_ != kCharsetUtf8) {
        AppendFromUtf8(text, out, losses);
    } else if (from_ == kCharsetMarc8 && to_ == kCharsetUtf8) {
        AppendMarc8AsUtf8(text, out, losses);
    } else {
        utf8_.clear();
        AppendUtf8(text, utf8_, losses);
        AppendFromUtf8(utf8_, out, losses);
    }
}

}  // namespace quillory
