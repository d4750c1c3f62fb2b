#include <zorby/charset/Convert.h>

#include <array>
#include <benchmarks/CatalogueText.h>
#include <random>

namespace zorby::bench {
namespace {

using Random = std::mt19937;

constexpr Random::result_type kSeed = 1450;
constexpr char kEscape = 0x1B;

std::size_t Below(Random& random, std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

constexpr std::array<std::string_view, 40> kPlainWords{
    "a",        "the",     "of",      "and",  "letters",  "from",       "Vienna",   "collected",
    "edition,", "with",    "notes",   "by",   "various",  "hands",      "harbour",  "pilots",
    "in",       "winter;", "studies", "on",   "river",    "navigation", "under",    "two",
    "crowns",   "1848-",   "1871.",   "maps", "(folded)", "and",        "plates",   "including",
    "index",    "[Second", "series]", "/",    ":",        "guild",      "accounts", "for",
};

// In MARC-8 a diacritic stands before its letter.
constexpr std::array<std::string_view, 16> kMarkedWords{
    // clang-format off
    "\xE2" "etudes",
    "Dvo\xE9r\xE2" "ak",
    "Universit\xE8" "at",
    "fran\xF0" "caise",
    "f\xE8ur",
    "p\xE1" "agina",
    "m\xE2usica",
    "Espa\xE4na",
    "\xEA" "Angstrom",
    "Krak\xE2ow",
    "so\xE9kol",
    "for\xE3" "et",
    "k\xE8onnen",
    "r\xE5" "aga",
    "Ha\xF2" "ydn",
    "t\xE8urk\xF0" "ce",
    // clang-format on
};

// Of a plain word and a marked one, how often the marked one comes: 2 diacritics in 100 letters.
constexpr double kMarkedShare = 0.115;

template <class AppendItem>
std::string Repeated(std::size_t size, AppendItem appendItem) {
    Random random(kSeed);
    std::string text;
    while (text.size() < size) appendItem(random, text);
    text.resize(size);
    return text;
}

std::string DiacriticsMarc8(std::size_t size) {
    constexpr std::string_view kLetters = "bcdfghjklmpqrstvwxz";
    return Repeated(size, [&](Random& random, std::string& text) {
        constexpr std::array<char, 4> kMarks{'\xE9', '\xF2', '\xE7', '\xE5'};
        text += kMarks[Below(random, kMarks.size())];
        text += kLetters[Below(random, kLetters.size())];
    });
}

std::string PrecomposedMarc8(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        constexpr std::array<std::string_view, 6> kLetters{"\xE2\x61", "\xE1\x65", "\xF0\x63",
                                                           "\xE8\x69", "\xE4\x6E", "\xE3\x6F"};
        text += kLetters[Below(random, kLetters.size())];
    });
}

// Alphabets change with each character.
std::string ScriptsMarc8(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        const char digit = static_cast<char>('0' + Below(random, 10));
        text.append({kEscape, 'b', digit, kEscape, 'p', digit, kEscape, 's', 'x'});
    });
}

std::string UndecodableMarc8(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        text += static_cast<char>(0x80 + Below(random, 0x20));
    });
}

// Codes that are no characters.
std::string UndecodableQm(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        text += static_cast<char>(1 + Below(random, 0x1E));
    });
}

std::string Blanks(std::size_t size) {
    return std::string(size, ' ');
}

std::string Digits(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        text += static_cast<char>('0' + Below(random, 10));
    });
}

// Of MARC-8 without 0xFF, which decodes to the end of a text, and the ends of fields.
std::string RandomMarc8(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        const std::size_t byte = 1 + Below(random, 0xFE);
        if (byte < 0x1D || byte > 0x1F) text += static_cast<char>(byte);
    });
}

std::string RandomQm(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        text += static_cast<char>(1 + Below(random, 0xFF));
    });
}

// As long as asked for, though the `Qm` code of a text is shorter than its MARC-8.
template <std::string (*Marc8)(std::size_t)>
std::string QmOf(std::size_t size) {
    constexpr std::size_t kMostBytesPerCode = 3;
    std::string text = Marc8(size * kMostBytesPerCode);
    CSMARCToZorby(text);
    text.resize(size);
    return text;
}

}  // namespace

std::string LatinMarc8(std::size_t size) {
    return Repeated(size, [](Random& random, std::string& text) {
        const bool marked = std::bernoulli_distribution(kMarkedShare)(random);
        text += marked ? kMarkedWords[Below(random, kMarkedWords.size())]
                       : kPlainWords[Below(random, kPlainWords.size())];
        text += ' ';
    });
}

const std::vector<TextKind>& TextKinds() {
    static const std::vector<TextKind> kinds{
        {kLatin.data(), LatinMarc8, QmOf<LatinMarc8>},
        {"diacritics", DiacriticsMarc8, QmOf<DiacriticsMarc8>},
        {"precomposed", PrecomposedMarc8, QmOf<PrecomposedMarc8>},
        {"scripts", ScriptsMarc8, QmOf<ScriptsMarc8>},
        {"undecodable", UndecodableMarc8, UndecodableQm},
        {"blanks", Blanks, Blanks},
        {"digits", Digits, Digits},
        {"random", RandomMarc8, RandomQm},
    };
    return kinds;
}

std::vector<std::string> Pieces(const std::string& text, std::size_t size) {
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at + size <= text.size(); at += size) {
        pieces.push_back(text.substr(at, size));
    }
    return pieces;
}

}  // namespace zorby::bench
