#include <zorby/charset/Convert.h>
#include <zorby/charset/PlainRun.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/detail/Engine.h>
#include <zorby/charset/detail/MarcDecoder.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace zorby {
namespace {

const unsigned char* Bytes(const char* p) {
    return reinterpret_cast<const unsigned char*>(p);
}

// Writes MARC-8 for a `Qm` text into a buffer that is large enough.
class MarcWriter {
public:
    explicit MarcWriter(char* target) : out_(target) {}

    char* Write(const char* p, const char* end);

private:
    void Put(unsigned char c) { *out_++ = static_cast<char>(c); }
    bool WriteCharacter(unsigned char code, unsigned char next);

    char* out_;
};

// In a plain run, no byte but the last can be followed by a diacritic, so all others are copied.
char* MarcWriter::Write(const char* p, const char* end) {
    while (p != end) {
        if (currentAlphabet == kAlphabetBasic) {
            const std::size_t run = PlainRunLength(p, end);
            if (run > 1) {
                std::memcpy(out_, p, run - 1);
                out_ += run - 1;
                p += run - 1;
            }
        }
        const unsigned char next = end - p > 1 ? *Bytes(p + 1) : 0;
        const bool tookDiacritic = WriteCharacter(*Bytes(p), next);
        p += tookDiacritic ? 2 : 1;
    }
    return out_;
}

// Returns true if the diacritic `next` was written with the character.
bool MarcWriter::WriteCharacter(unsigned char code, unsigned char next) {
    const KeyRecord& row = kKeyTable[code];
    if (row.alphabet != currentAlphabet) {
        if (row.alphabet != kAlphabetNone) {
            Put(kEscapes[row.alphabet][0]);
            Put(kEscapes[row.alphabet][1]);
        }
        Put(row.marc1);
        currentAlphabet = row.alphabet;
        return false;
    }
    const bool moveDiacritic = row.marc2 == 0 && IsDiacritic(next);
    if (row.marc2 != 0) {
        Put(row.marc2);
    } else if (moveDiacritic) {
        Put(kKeyTable[next].marc1);
    }
    Put(row.marc1);
    return moveDiacritic;
}

}  // namespace

// Each step writes at most as many bytes as it reads, so the output can overwrite the input.
void CSMARCToZorby(std::string& text) {
    CSResetAlphabet();
    char* const begin = text.data();
    const char* const end = begin + std::strlen(begin);
    const char* p = begin;
    char* out = begin;
    bool pendingDiacritic = false;
    bool ended = false;
    while (p != end && !ended) {
        if (!pendingDiacritic && currentAlphabet == kAlphabetBasic && IsPrintableASCII(*Bytes(p))) {
            const std::size_t run = PlainRunLength(p, end);
            if (out != p) std::memmove(out, p, run);
            out += run;
            p += run;
            if (p == end) break;
        }
        const DecodedMarcChar decoded = DecodeMARCChar(Bytes(p), Bytes(end));
        if (!decoded.valid) {
            ++p;
            continue;
        }
        p += decoded.consumed;
        *out++ = static_cast<char>(decoded.code);
        const bool isDiacritic = IsDiacritic(decoded.code);
        if (pendingDiacritic && !isDiacritic && out - begin >= 2) std::swap(out[-1], out[-2]);
        pendingDiacritic = isDiacritic;
        ended = decoded.code == 0;
    }
    const std::string_view written(begin, static_cast<std::size_t>(out - begin));
    text.resize(std::min(written.find('\0'), written.size()));
}

void CSZorbyToMARC(std::string& text) {
    constexpr std::size_t kMostBytesPerCode = 3;  // an escape and one byte
    CSResetAlphabet();
    const std::size_t size = std::strlen(text.c_str());
    if (PlainRunLength(text.data(), text.data() + size) == size) {
        text.resize(size);
        return;
    }
    const std::unique_ptr<char[]> buffer(new char[size * kMostBytesPerCode]);
    const char* const end = MarcWriter(buffer.get()).Write(text.data(), text.data() + size);
    text.assign(buffer.get(), static_cast<std::size_t>(end - buffer.get()));
}

int CSQmGetWorstCaseSenarioMARCSize(const char* text) {
    constexpr int kEscapedBothWays = 5;
    CSResetAlphabet();
    int size = 0;
    for (; *text != 0; ++text) {
        const KeyRecord& row = kKeyTable[*Bytes(text)];
        size += row.alphabet != kAlphabetBasic ? kEscapedBothWays : row.marc2 != 0 ? 2 : 1;
    }
    return size;
}

int CSMARCCharIsValid(const char* position, int* consumed) {
    *consumed = 1;
    const unsigned char first = *Bytes(position);
    if (first == 0 || (first >= 0x1D && first <= 0x1F)) return 1;
    constexpr int kLongestCharacter = 4;  // an escape, a diacritic, a letter
    const char* end = position;
    while (*end != 0 && end - position < kLongestCharacter) ++end;
    const DecodedMarcChar decoded = DecodeMARCChar(Bytes(position), Bytes(end));
    *consumed = decoded.consumed;
    return decoded.valid ? 1 : 0;
}

}  // namespace zorby
