#include <quillory/exchange/CharacterReference.h>
#include <quillory/exchange/Marc8Unicode.h>

#include <yaz/yaz-iconv.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace quillory {
namespace {

constexpr char kEscape = '\x1B';

bool IsControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

bool IsHigh(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

void AppendWrittenOut(std::string_view utf8, std::string& marc8, Losses& losses) {
    while (!utf8.empty()) {
        const Utf8Char c = DecodeUtf8(utf8);
        if (c.codePoint < 0x80) {
            marc8 += utf8.front();
        } else {
            losses.Add(kLossReference, c.codePoint);
            AppendReference(c.codePoint, marc8);
        }
        utf8.remove_prefix(c.size);
    }
}

}  // namespace

// One direction of libyaz; each call starts afresh.
class Marc8Unicode::Converter {
public:
    enum Outcome { kDone, kIncomplete, kFailed };

    Converter(const char* to, const char* from) : handle_(yaz_iconv_open(to, from)) {
        if (handle_ == nullptr) throw std::runtime_error("libyaz has no converter for MARC-8");
    }
    ~Converter() { yaz_iconv_close(handle_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // The result replaces `out`.
    Outcome Convert(std::string in, std::string& out) {
        constexpr std::size_t kGrowth = 8;  // bytes for one byte, escapes included
        out.resize(in.size() * kGrowth + 64);
        char* source = in.data();
        std::size_t sourceLeft = in.size();
        char* target = out.data();
        std::size_t targetLeft = out.size();
        yaz_iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        const std::size_t result = yaz_iconv(handle_, &source, &sourceLeft, &target, &targetLeft);
        const int error = yaz_iconv_error(handle_);
        yaz_iconv(handle_, nullptr, nullptr, &target, &targetLeft);
        out.resize(out.size() - targetLeft);
        if (result != static_cast<std::size_t>(-1)) return kDone;
        return error == YAZ_ICONV_EINVAL ? kIncomplete : kFailed;
    }

private:
    yaz_iconv_t handle_;
};

// Reads MARC-8 in units of diacritics and a letter, under the sets that escapes have designated.
class Marc8Unicode::Decoder {
public:
    Decoder(std::string_view text, Marc8Unicode& owner, std::string& out, Losses& losses)
        : text_(text), owner_(owner), out_(out), losses_(losses) {}

    void Run() {
        while (at_ < text_.size()) {
            if (text_[at_] == kEscape) {
                const std::size_t size = ReadEscape();
                if (size == 0) Lose(text_.substr(at_, 1));
                at_ += std::max<std::size_t>(size, 1);
            } else if (IsControl(text_[at_])) {
                out_ += text_[at_++];
            } else {
                TakeUnit();
            }
        }
    }

private:
    struct Set {
        std::string escape;     // that designates it; empty for the default
        std::size_t width = 1;  // bytes of a character
    };

    char Byte(std::size_t at) const { return at < text_.size() ? text_[at] : '\0'; }
    std::size_t ReadEscape();
    void TakeUnit();
    bool TakeSecondHalf();
    void TakeCharacter(std::string& unit);
    void TakeLoneDiacritic(const std::string& sets, const std::string& unit);
    void Lose(std::string_view bytes);

    std::string_view text_;
    Marc8Unicode& owner_;
    std::string& out_;
    Losses& losses_;
    std::size_t at_ = 0;
    Set g0_;
    Set g1_;
    bool doubleMarkOpen_ = false;
};

// A final byte behind intermediates: "(" and "," designate G0, ")" and "-" G1, "$" a set of three
// bytes a character; "!" is part of the final. One letter alone is a set of technique 1. Result:
// bytes of the escape, 0 if it is none.
std::size_t Marc8Unicode::Decoder::ReadEscape() {
    std::size_t at = at_ + 1;
    Set set;
    bool isG1 = false;
    const char first = Byte(at);
    if (first == 's' || first == 'g' || first == 'b' || first == 'p') {
        if (first != 's') set.escape = text_.substr(at_, 2);
        g0_ = set;
        return 2;
    }
    if (first == '$') {
        set.width = 3;
        ++at;
    }
    if (std::string_view("(,)-").find(Byte(at)) != std::string_view::npos) {
        isG1 = Byte(at) == ')' || Byte(at) == '-';
        ++at;
    } else if (set.width == 1) {
        return 0;
    }
    if (Byte(at) == '!') ++at;
    if (at >= text_.size() || Byte(at) <= ' ' || IsHigh(Byte(at))) return 0;
    set.escape = text_.substr(at_, at + 1 - at_);
    (isG1 ? g1_ : g0_) = set;
    return at + 1 - at_;
}

void Marc8Unicode::Decoder::Lose(std::string_view bytes) {
    constexpr char32_t kReplacement = 0xFFFD;
    for (const char c : bytes) losses_.Add(kLossReplaced, static_cast<unsigned char>(c));
    quillory::AppendUtf8(kReplacement, out_);
}

// The first half of a double diacritic stands for both; a second half without it is lost.
bool Marc8Unicode::Decoder::TakeSecondHalf() {
    const char c = Byte(at_);
    if (!g1_.escape.empty() || (c != '\xEC' && c != '\xFB')) return false;
    if (!std::exchange(doubleMarkOpen_, false)) Lose(text_.substr(at_, 1));
    ++at_;
    return true;
}

void Marc8Unicode::Decoder::TakeCharacter(std::string& unit) {
    const char c = text_[at_];
    const std::size_t width = c == ' ' ? 1 : IsHigh(c) ? g1_.width : g0_.width;
    const std::size_t size = std::min(width, text_.size() - at_);
    if (g1_.escape.empty() && (c == '\xEB' || c == '\xFA')) doubleMarkOpen_ = true;
    unit += text_.substr(at_, size);
    at_ += size;
}

void Marc8Unicode::Decoder::TakeLoneDiacritic(const std::string& sets, const std::string& unit) {
    std::string converted;
    if (owner_.toUtf8_->Convert(sets + unit + " ", converted) != Converter::kDone ||
        converted.size() < 2) {
        Lose(unit);
        return;
    }
    losses_.Add(kLossNoLetter, DecodeUtf8(std::string_view(converted).substr(1)).codePoint);
    out_ += converted;
}

// An escape may stand between a diacritic and its letter.
void Marc8Unicode::Decoder::TakeUnit() {
    const std::string sets = g0_.escape + g1_.escape;
    std::string unit;
    std::string converted;
    auto outcome = Converter::kIncomplete;
    while (outcome == Converter::kIncomplete && at_ < text_.size()) {
        if (text_[at_] == kEscape) {
            const std::size_t size = ReadEscape();
            if (size == 0) break;
            unit += text_.substr(at_, size);
            at_ += size;
        } else if (IsControl(text_[at_])) {
            break;
        } else if (!TakeSecondHalf()) {
            TakeCharacter(unit);
            outcome = owner_.toUtf8_->Convert(sets + unit, converted);
        }
    }
    if (unit.empty()) return;
    if (outcome == Converter::kIncomplete) {
        TakeLoneDiacritic(sets, unit);
    } else if (outcome == Converter::kDone && !converted.empty()) {
        out_ += Normalized(converted, owner_.form_);
    } else {
        Lose(unit);
    }
}

Marc8Unicode::Marc8Unicode(NormalForm form)
    : form_(form),
      toUtf8_(std::make_unique<Converter>("UTF-8", "MARC-8")),
      toMarc8_(std::make_unique<Converter>("MARC-8", "UTF-8")) {}

Marc8Unicode::~Marc8Unicode() = default;

void Marc8Unicode::AppendUtf8(std::string_view marc8, std::string& utf8, Losses& losses) {
    Decoder(marc8, *this, utf8, losses).Run();
}

// libyaz must give it back, too: it passes over some characters without a word. A blank before it
// carries a combining character.
bool Marc8Unicode::HasCharacter(char32_t codePoint) {
    std::string utf8 = " ";
    quillory::AppendUtf8(codePoint, utf8);
    std::string marc8;
    std::string back;
    return toMarc8_->Convert(utf8, marc8) == Converter::kDone &&
           toUtf8_->Convert(marc8, back) == Converter::kDone && back == utf8;
}

const std::u32string& Marc8Unicode::PlanFor(char32_t codePoint) {
    const auto known = plans_.find(codePoint);
    if (known != plans_.end()) return known->second;
    std::u32string& plan = plans_[codePoint];
    if (HasCharacter(codePoint)) {
        plan = codePoint;
        return plan;
    }
    std::array<utf8proc_int32_t, 8> parts{};
    int boundClass = 0;
    const utf8proc_ssize_t count =
        utf8proc_decompose_char(static_cast<utf8proc_int32_t>(codePoint), parts.data(),
                                parts.size(), UTF8PROC_DECOMPOSE, &boundClass);
    for (utf8proc_ssize_t i = 0; i < std::min<utf8proc_ssize_t>(count, parts.size()); ++i) {
        plan += static_cast<char32_t>(parts[static_cast<std::size_t>(i)]);
    }
    // The horn is no diacritic of MARC-8, but two letters have it.
    constexpr char32_t kHorn = 0x031B;
    if (const std::size_t horn = plan.find(kHorn); horn != plan.npos && horn > 0) {
        constexpr std::u32string_view kPlain = U"oOuU";
        constexpr std::u32string_view kHorned = U"\u01A1\u01A0\u01B0\u01AF";
        const std::size_t letter = kPlain.find(plan[0]);
        plan.erase(horn, 1);
        plan[0] = letter == kPlain.npos ? kHorn : kHorned[letter];
    }
    const bool allThere =
        plan.size() > 1 &&
        std::all_of(plan.begin(), plan.end(), [this](char32_t part) { return HasCharacter(part); });
    if (!allThere) plan.clear();
    return plan;
}

bool Marc8Unicode::ConvertChecked(std::string_view utf8, std::string& marc8) {
    if (toMarc8_->Convert(std::string(utf8), marc8) != Converter::kDone) return false;
    std::string back;
    Losses losses;
    AppendUtf8(marc8, back, losses);
    return losses.Empty() && Normalized(back, kNormalFormC) == Normalized(utf8, kNormalFormC);
}

// libyaz loses an escape where one set follows another directly: what does not come back goes out
// letter by letter, and what does not come back even so is written out.
void Marc8Unicode::AppendPlanned(std::string_view planned, std::string& marc8, Losses& losses) {
    std::string converted;
    if (ConvertChecked(planned, converted)) {
        marc8 += converted;
        return;
    }
    while (!planned.empty()) {
        std::size_t size = DecodeUtf8(planned).size;
        while (size < planned.size() && IsCombining(DecodeUtf8(planned.substr(size)).codePoint)) {
            size += DecodeUtf8(planned.substr(size)).size;
        }
        const std::string_view letter = planned.substr(0, size);
        if (ConvertChecked(letter, converted)) {
            marc8 += converted;
        } else {
            AppendWrittenOut(letter, marc8, losses);
        }
        planned.remove_prefix(size);
    }
}

void Marc8Unicode::AppendMarc8(std::string_view utf8, std::string& marc8, Losses& losses) {
    constexpr char32_t kReplacement = 0xFFFD;
    std::string planned;
    const auto flush = [&] {
        AppendPlanned(planned, marc8, losses);
        planned.clear();
    };
    bool afterReference = false;
    while (!utf8.empty()) {
        const Utf8Char c = DecodeUtf8(utf8);
        // A combining character goes the way of its letter.
        const bool writtenOut = afterReference && c.valid && IsCombining(c.codePoint);
        afterReference = false;
        if (!c.valid) {
            losses.Add(kLossReplaced, static_cast<unsigned char>(utf8.front()));
            AppendReference(kReplacement, planned);
        } else if (c.codePoint < 0x20 || c.codePoint == 0x7F) {
            flush();
            marc8 += utf8.front();
        } else if (const std::u32string& plan = PlanFor(c.codePoint);
                   !plan.empty() && !writtenOut) {
            for (const char32_t part : plan) quillory::AppendUtf8(part, planned);
        } else {
            afterReference = true;
            losses.Add(kLossReference, c.codePoint);
            AppendReference(c.codePoint, planned);
        }
        utf8.remove_prefix(c.size);
    }
    flush();
}

}  // namespace quillory
