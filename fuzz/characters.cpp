#include <zorby/charset/Compare.h>
#include <zorby/charset/Convert.h>
#include <zorby/charset/KeyTable.h>
#include <zorby/charset/QmCode.h>

#include <algorithm>
#include <cstring>
#include <fuzz/Expect.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace zorby {
namespace {

using fuzz::Expect;

constexpr unsigned char kBlankForDiacritic = 0x1F;

unsigned char Byte(char c) {
    return static_cast<unsigned char>(c);
}

bool IsPrintable(char c) {
    return c >= 0x20 && c < 0x7F;
}

std::string ToQm(std::string text) {
    CSMARCToZorby(text);
    return text;
}

std::string ToMarc(std::string text) {
    CSZorbyToMARC(text);
    return text;
}

std::string KeyOf(std::string text) {
    CSpConvertForCompare(&text);
    return text;
}

// A conversion that needs the caller's buffer, run with one of exactly the size that is asked for.
template <class Convert>
std::string InBuffer(const std::string& text, Convert convert) {
    const std::unique_ptr<char[]> target(new char[text.size() + 1]);
    convert(text.c_str(), target.get());
    Expect(target[text.size()] == 0, "a converted text has its terminator");
    return {target.get(), text.size()};
}

// Characters of the basic alphabet with at most one diacritic each.
bool IsSimple(const std::string& text) {
    bool afterDiacritic = true;
    for (const char c : text) {
        const KeyRecord& row = KeyRecordOf(Byte(c));
        const bool isDiacritic = CSIsDiacritic(Byte(c)) != 0;
        const bool isControl = row.marc1 == 0xFF;
        if (row.alphabet != kAlphabetBasic || isControl || (isDiacritic && afterDiacritic)) {
            return false;
        }
        afterDiacritic = isDiacritic || row.marc2 != 0;
    }
    return true;
}

void CheckMarc(const std::string& text) {
    const std::string marc = ToMarc(text);
    Expect(static_cast<int>(marc.size()) <= CSQmGetWorstCaseSenarioMARCSize(text.c_str()),
           "the worst size is an upper bound");
    if (!IsSimple(text)) return;
    const std::string back = ToQm(marc);
    Expect(ToMarc(back) == marc, "MARC-8 of simple text comes back");
    Expect(KeyOf(back) == KeyOf(text), "simple text sorts the same when it comes back");
}

// The plain way to decode, by a walk of the whole table for each character.
class TableWalk {
public:
    std::string ToQm(const std::string& marc) {
        std::string qm;
        bool pending = false;
        for (std::size_t at = 0; at < marc.size();) {
            unsigned char code = 0;
            std::size_t consumed = 1;
            if (!Decode(std::string_view(marc).substr(at), code, consumed)) {
                ++at;
                continue;
            }
            qm += static_cast<char>(code);
            const bool isDiacritic = CSIsDiacritic(code) != 0;
            if (pending && !isDiacritic && qm.size() > 1) std::swap(qm.end()[-1], qm.end()[-2]);
            pending = isDiacritic;
            at += consumed;
        }
        return qm.substr(0, qm.find('\0'));
    }

private:
    bool Decode(std::string_view rest, unsigned char& code, std::size_t& consumed) {
        bool known = true;
        code = 0;
        if (rest.front() == kEscape) {
            const std::size_t letter = rest.size() > 1 ? kEscapeLetters.find(rest[1]) : rest.npos;
            known = letter != rest.npos;
            alphabet_ = kAlphabetBasic;
            if (known) alphabet_ = static_cast<unsigned char>(letter);
            if (rest.size() < 2) return false;
            rest.remove_prefix(2);
            consumed = rest.empty() || rest[0] == 0x1E || rest[0] == 0x1F ? 2 : 3;
            if (consumed == 2) return true;
        }
        return Find(rest, code, consumed) && known;
    }

    bool Find(std::string_view rest, unsigned char& code, std::size_t& consumed) const {
        bool found = false;
        for (unsigned row = 0; row < 256; ++row) {
            const KeyRecord& record = KeyRecordOf(static_cast<unsigned char>(row));
            if (record.alphabet != alphabet_) continue;
            if (rest.size() > 1 && record.marc2 == Byte(rest[0]) && record.marc1 == Byte(rest[1])) {
                code = static_cast<unsigned char>(row);
                ++consumed;
                return true;
            }
            if (!found && record.marc2 == 0 && record.marc1 == Byte(rest[0])) {
                code = static_cast<unsigned char>(row);
                found = true;
            }
        }
        return found;
    }

    static constexpr char kEscape = 0x1B;
    static constexpr std::string_view kEscapeLetters = "sgbp";  // in the order of alphabets
    unsigned char alphabet_ = kAlphabetBasic;
};

void CheckDecoding(const std::string& text) {
    const std::string qm = ToQm(text);
    Expect(qm.size() <= text.size(), "decoding never grows");
    Expect(qm == TableWalk().ToQm(text), "decoding is a walk of the table");
}

void CheckValidity(const std::string& text) {
    CSResetAlphabet();
    for (const char* p = text.c_str(); *p != 0;) {
        int consumed = 0;
        CSMARCCharIsValid(p, &consumed);
        Expect(consumed >= 1 && consumed <= text.c_str() + text.size() - p,
               "a character lies in its text");
        p += consumed;
    }
}

void CheckDisplay(const std::string& text, int type, int keepControls) {
    const std::string display = InBuffer(text, [&](const char* source, char* target) {
        CSQmToDisplay(source, target, type, keepControls);
    });
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsPrintable(text[i])) Expect(display[i] == text[i], "printable ASCII shows as it is");
    }
    const std::string letters = InBuffer(text, CSQmToNonDiacritic);
    Expect(std::all_of(letters.begin(), letters.end(), IsPrintable), "plain letters are ASCII");
}

void CheckLatin1(const std::string& text, int keepControls) {
    std::string latin1 = text;
    const int whole = CSQmToISO8859(latin1, keepControls);
    Expect(latin1.size() <= text.size(), "Latin-1 is never longer");
    if (whole == 0) Expect(latin1.size() == text.size(), "a text half converted keeps its length");
    std::string codes = text;
    CSISO8859ToQm(codes);
    Expect(codes.size() <= 2 * text.size(), "a byte of Latin-1 has at most two codes");
}

void CheckCase(const std::string& text) {
    if (text.find(static_cast<char>(kBlankForDiacritic)) != text.npos) return;
    std::string changed = text;
    CSMakeLower(changed);
    Expect(KeyOf(changed) == KeyOf(text), "lower case sorts the same");
    changed = text;
    CSMakeUpper(changed);
    Expect(KeyOf(changed) == KeyOf(text), "upper case sorts the same");
}

int Sign(int number) {
    return (number > 0) - (number < 0);
}

void CheckOrder(const std::string& a, const std::string& b) {
    const int order = CSZorbyCompare(a, b);
    Expect(order == CSZorbyComparePreConv(KeyOf(a), KeyOf(b)), "texts compare as their keys");
    Expect(Sign(order) == -Sign(CSZorbyCompare(b, a)), "order has two sides");
    Expect(CSZorbyCompare(a, a) == 0, "a text equals itself");
    CSZorbyComparePreConv(a, b);
}

void CheckCode(unsigned char code) {
    for (const unsigned type : {0U, 1U, 2U, 3U}) {
        unsigned char found = 0;
        unsigned char display = 0;
        CSKeyInfo(CSGetKeyFromQmCode(code), &found, &display, type);
        CSKeyInfo(code, &found, &display, type);
    }
    for (auto* test :
         {CSIsAlpha, CSIsNumeric, CSIsPunctuation, CSIsABlank, CSIsDiacritic, CSUsedToSort}) {
        Expect(test(code) == 0 || test(code) == 1, "a class is 1 or 0");
    }
}

}  // namespace
}  // namespace zorby

// The first two bytes are options; the rest is one text, and the same cut in two at its first line
// end.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace zorby;
    if (size < 2) return 0;
    const std::string raw(reinterpret_cast<const char*>(data) + 2, size - 2);
    std::string both = raw;
    CSMARCToZorby(both);
    CSZorbyToMARC(both);
    const std::string text = raw.substr(0, raw.find('\0'));
    const int keepControls = data[0] & 1;
    CSSetDisplayType(data[1] % 4);
    CSDotInMiddleOfLine();
    CheckMarc(text);
    CheckDecoding(text);
    CheckValidity(text);
    CheckDisplay(text, data[1] % 4, keepControls);
    CheckLatin1(text, keepControls);
    CheckCase(text);
    CheckCode(data[0]);
    const std::size_t cut = std::min(text.find('\n'), text.size());
    CheckOrder(text.substr(0, cut), text.substr(cut));
    return 0;
}
