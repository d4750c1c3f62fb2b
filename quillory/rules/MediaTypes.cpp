#include <quillory/rules/MediaTypes.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quillory {
namespace {

struct MediaTerm {
    std::string_view code;
    std::string_view term;
};

// Term and Code List for RDA Content Types.
constexpr MediaTerm kContent[] = {
    {"crd", "cartographic dataset"},
    {"cri", "cartographic image"},
    {"crm", "cartographic moving image"},
    {"crt", "cartographic tactile image"},
    {"crn", "cartographic tactile three-dimensional form"},
    {"crf", "cartographic three-dimensional form"},
    {"cod", "computer dataset"},
    {"cop", "computer program"},
    {"ntv", "notated movement"},
    {"ntm", "notated music"},
    {"prm", "performed music"},
    {"snd", "sounds"},
    {"spw", "spoken word"},
    {"sti", "still image"},
    {"tci", "tactile image"},
    {"tcm", "tactile notated music"},
    {"tcn", "tactile notated movement"},
    {"tct", "tactile text"},
    {"tcf", "tactile three-dimensional form"},
    {"txt", "text"},
    {"tdf", "three-dimensional form"},
    {"tdm", "three-dimensional moving image"},
    {"tdi", "two-dimensional moving image"},
    {"xxx", "other"},
    {"zzz", "unspecified"},
};

// Term and Code List for RDA Media Types.
constexpr MediaTerm kMedia[] = {
    {"s", "audio"},     {"c", "computer"},      {"h", "microform"},  {"p", "microscopic"},
    {"g", "projected"}, {"e", "stereographic"}, {"n", "unmediated"}, {"v", "video"},
    {"x", "other"},     {"z", "unspecified"},
};

// Term and Code List for RDA Carrier Types.
constexpr MediaTerm kCarrier[] = {
    {"sb", "audio belt"},
    {"sg", "audio cartridge"},
    {"se", "audio cylinder"},
    {"sd", "audio disc"},
    {"sq", "audio roll"},
    {"sw", "audio wire reel"},
    {"ss", "audiocassette"},
    {"st", "audiotape reel"},
    {"si", "sound-track reel"},
    {"sz", "other audio carrier"},
    {"ck", "computer card"},
    {"cb", "computer chip cartridge"},
    {"cd", "computer disc"},
    {"ce", "computer disc cartridge"},
    {"ca", "computer tape cartridge"},
    {"cf", "computer tape cassette"},
    {"ch", "computer tape reel"},
    {"cr", "online resource"},
    {"cz", "other computer carrier"},
    {"ha", "aperture card"},
    {"he", "microfiche"},
    {"hf", "microfiche cassette"},
    {"hb", "microfilm cartridge"},
    {"hc", "microfilm cassette"},
    {"hd", "microfilm reel"},
    {"hj", "microfilm roll"},
    {"hh", "microfilm slip"},
    {"hg", "microopaque"},
    {"hz", "other microform carrier"},
    {"pp", "microscope slide"},
    {"pz", "other microscopic carrier"},
    {"mc", "film cartridge"},
    {"mf", "film cassette"},
    {"mr", "film reel"},
    {"mo", "film roll"},
    {"gd", "filmslip"},
    {"gf", "filmstrip"},
    {"gc", "filmstrip cartridge"},
    {"gt", "overhead transparency"},
    {"gs", "slide"},
    {"mz", "other projected-image carrier"},
    {"eh", "stereograph card"},
    {"es", "stereograph disc"},
    {"ez", "other stereographic carrier"},
    {"no", "card"},
    {"nn", "flipchart"},
    {"nr", "object"},
    {"na", "roll"},
    {"nb", "sheet"},
    {"nc", "volume"},
    {"nz", "other unmediated carrier"},
    {"vc", "video cartridge"},
    {"vf", "videocassette"},
    {"vd", "videodisc"},
    {"vr", "videotape reel"},
    {"vz", "other video carrier"},
    {"zu", "unspecified"},
};

// A code of three letters at most as a number; 0 for a longer text.
constexpr std::uint32_t KeyOf(std::string_view code) {
    constexpr std::size_t kLongest = 3;
    if (code.size() > kLongest) return 0;
    auto key = static_cast<std::uint32_t>(code.size());
    for (const char c : code) key = key << 8 | static_cast<unsigned char>(c);
    return key;
}

struct KeyedTerm {
    std::uint32_t key;
    std::string_view term;
};

template <std::size_t kSize>
constexpr std::array<KeyedTerm, kSize> ByKey(const MediaTerm (&terms)[kSize]) {
    std::array<KeyedTerm, kSize> keyed{};
    std::ranges::transform(terms, keyed.begin(), [](const MediaTerm& term) {
        return KeyedTerm{KeyOf(term.code), term.term};
    });
    std::ranges::sort(keyed, {}, &KeyedTerm::key);
    return keyed;
}

constexpr auto kContentByKey = ByKey(kContent);
constexpr auto kMediaByKey = ByKey(kMedia);
constexpr auto kCarrierByKey = ByKey(kCarrier);

std::span<const KeyedTerm> TermsByKey(unsigned tag) {
    if (tag == 336) return kContentByKey;
    if (tag == 337) return kMediaByKey;
    return kCarrierByKey;
}

}  // namespace

std::string_view MediaTermOf(unsigned tag, std::string_view code) {
    const auto terms = TermsByKey(tag);
    const std::uint32_t key = KeyOf(code);
    const auto found = std::ranges::lower_bound(terms, key, {}, &KeyedTerm::key);
    return found == terms.end() || found->key != key ? std::string_view() : found->term;
}

std::string_view MediaListOf(unsigned tag) {
    if (tag == 336) return "rdacontent";
    return tag == 337 ? "rdamedia" : "rdacarrier";
}

}  // namespace quillory
