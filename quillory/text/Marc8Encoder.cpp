#include <quillory/text/CharacterReference.h>
#include <quillory/text/Letters.h>
#include <quillory/text/Marc8Escape.h>
#include <quillory/text/Marc8Unicode.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kHalfMarkLead = "\xEF\xB8";  // of U+FE20 to U+FE2F in UTF-8

// A double diacritic over two letters: as one mark after the first, and as a half after each.
struct DoubleMark {
    std::string_view whole, left, right;
};
constexpr DoubleMark kDoubleMarks[] = {{"\u0361", "\uFE20", "\uFE21"},
                                       {"\u0360", "\uFE22", "\uFE23"}};

// Two halves over letters side by side are one mark, which MARC-8 has.
std::string WithDoubleMarks(std::string_view utf8) {
    std::string out;
    std::string letter;  // that may take a right half next
    const DoubleMark* open = nullptr;
    while (!utf8.empty()) {
        std::string next(utf8.substr(0, LetterSize(utf8)));
        utf8.remove_prefix(next.size());
        const std::size_t right = open == nullptr ? next.npos : next.find(open->right);
        if (right != next.npos) {
            next.erase(right, open->right.size());
            letter.replace(letter.find(open->left), open->left.size(), open->whole);
        }
        out += std::exchange(letter, std::move(next));
        const auto* begun = std::ranges::find_if(kDoubleMarks, [&letter](const DoubleMark& mark) {
            return letter.find(mark.left) != letter.npos;
        });
        open = begun == std::end(kDoubleMarks) ? nullptr : begun;
    }
    return out + letter;
}

// Brings the basic set back. The sets of subscripts, superscripts and the three Greek symbols have
// an escape of their own for that.
std::string_view EscapeFrom(std::string_view set) {
    return set.size() == 2 ? "\x1Bs" : "\x1B(B";
}

}  // namespace

// Writes letters in MARC-8, with an escape only where the set changes.
class Marc8Unicode::Encoder {
public:
    Encoder(Marc8Unicode& owner, std::string& out, Losses& losses)
        : owner_(owner), out_(out), losses_(losses) {}

    void Run(std::string_view utf8) {
        while (!utf8.empty()) {
            utf8.remove_prefix(TakePlainRun(utf8));
            utf8.remove_prefix(Take(utf8));
        }
        Designate({});
    }

private:
    std::size_t TakePlainRun(std::string_view utf8);
    std::size_t Take(std::string_view utf8);
    void Designate(std::string_view set);
    void Put(const Encoded& letter);
    void WriteOut(char32_t codePoint);
    void TakeControl(char c);

    Marc8Unicode& owner_;
    std::string& out_;
    Losses& losses_;
    std::string set_;  // escape of the set in force, empty for the default
};

void Marc8Unicode::Encoder::Designate(std::string_view set) {
    if (set == set_) return;
    // A set of the short escapes is left by its own escape before another begins.
    if (set.empty() || set_.size() == 2) out_ += EscapeFrom(set_);
    out_ += set;
    set_ = set;
}

void Marc8Unicode::Encoder::WriteOut(char32_t codePoint) {
    Designate({});
    losses_.Add(kLossReference, codePoint);
    AppendReference(codePoint, out_);
}

void Marc8Unicode::Encoder::TakeControl(char c) {
    Designate({});
    if (c == kEscape) {
        losses_.Add(kLossEscape, static_cast<unsigned char>(c));
        AppendReference(static_cast<unsigned char>(c), out_);
    } else {
        out_ += c;
    }
}

void Marc8Unicode::Encoder::Put(const Encoded& letter) {
    if (!letter.bytes.empty()) {
        Designate(letter.set);
        out_ += letter.bytes;
    }
    for (const char32_t codePoint : letter.writtenOut) WriteOut(codePoint);
}

// All but the last character of the run, which a diacritic may follow. Result: bytes taken.
std::size_t Marc8Unicode::Encoder::TakePlainRun(std::string_view utf8) {
    if (!set_.empty()) return 0;
    const std::size_t run = zorby::PlainRunLength(utf8.data(), utf8.data() + utf8.size());
    const std::size_t taken = run - std::min<std::size_t>(run, 1);
    out_ += utf8.substr(0, taken);
    return taken;
}

// A letter with the combining characters that follow it. Result: bytes taken.
std::size_t Marc8Unicode::Encoder::Take(std::string_view utf8) {
    const Utf8Char first = DecodeUtf8(utf8);
    if (!first.valid) {
        losses_.Add(kLossReplaced, static_cast<unsigned char>(utf8.front()));
        Designate({});
        AppendReference(kReplacementCharacter, out_);
        return 1;
    }
    if (first.codePoint < ' ' || first.codePoint == kDelete) {
        TakeControl(utf8.front());
        return 1;
    }
    const std::size_t size = LetterSize(utf8);
    if (size > 1) {
        Put(owner_.Encode(utf8.substr(0, size)));
        return size;
    }
    // A blank is a blank in every set of one byte a character.
    if (utf8.front() != ' ' || set_.starts_with("\x1B$")) Designate({});
    out_ += utf8.front();
    return 1;
}

// False if the bytes are of more than one set.
bool Marc8Unicode::SplitSet(std::string_view marc8, Encoded& encoded) {
    encoded = {};
    std::string set;
    while (!marc8.empty()) {
        if (marc8.front() != kEscape) {
            const bool isHigh = static_cast<unsigned char>(marc8.front()) >= 0x80;
            if (!isHigh && set != encoded.set) {
                if (!encoded.set.empty() || set.empty()) return false;
                encoded.set = set;
            }
            encoded.bytes += marc8.front();
            marc8.remove_prefix(1);
            continue;
        }
        const Marc8Escape escape = ReadMarc8Escape(marc8);
        if (escape.size == 0 || escape.isG1) return false;
        set = escape.bytes;
        marc8.remove_prefix(escape.size);
    }
    return true;
}

void Marc8Unicode::AppendMarc8(std::string_view utf8, std::string& marc8, Losses& losses) {
    const bool hasHalves = utf8.find(kHalfMarkLead) != utf8.npos;
    Encoder(*this, marc8, losses).Run(hasHalves ? WithDoubleMarks(utf8) : std::string(utf8));
}

}  // namespace quillory
