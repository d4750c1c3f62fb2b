#include <quillory/rules/MediaTypes.h>

#include <algorithm>
#include <array>
#include <cstddef>
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

template <std::size_t kSize>
constexpr std::array<MediaTerm, kSize> ByCode(const MediaTerm (&terms)[kSize]) {
    auto sorted = std::to_array(terms);
    std::ranges::sort(sorted, {}, &MediaTerm::code);
    return sorted;
}

constexpr auto kContentByCode = ByCode(kContent);
constexpr auto kMediaByCode = ByCode(kMedia);
constexpr auto kCarrierByCode = ByCode(kCarrier);

std::span<const MediaTerm> TermsByCode(unsigned tag) {
    if (tag == 336) return kContentByCode;
    if (tag == 337) return kMediaByCode;
    return kCarrierByCode;
}

}  // namespace

std::string_view MediaTermOf(unsigned tag, std::string_view code) {
    const auto terms = TermsByCode(tag);
    const auto found = std::ranges::lower_bound(terms, code, {}, &MediaTerm::code);
    return found == terms.end() || found->code != code ? std::string_view() : found->term;
}

std::string_view MediaListOf(unsigned tag) {
    if (tag == 336) return "rdacontent";
    return tag == 337 ? "rdamedia" : "rdacarrier";
}

}  // namespace quillory
