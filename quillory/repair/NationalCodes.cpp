#include <quillory/repair/NationalCodes.h>

#include <algorithm>
#include <iterator>

namespace quillory {
namespace {

// ISO 639-2 has two codes for these languages; the second one is that of the MARC Code List for
// Languages.
struct Language {
    std::string_view terminology;
    std::string_view bibliographic;
};

// clang-format off
constexpr Language kLanguages[] = {
    {"bod", "tib"}, {"ces", "cze"}, {"cym", "wel"}, {"deu", "ger"}, {"ell", "gre"},
    {"eus", "baq"}, {"fas", "per"}, {"fra", "fre"}, {"hye", "arm"}, {"isl", "ice"},
    {"kat", "geo"}, {"mkd", "mac"}, {"mri", "mao"}, {"msa", "may"}, {"mya", "bur"},
    {"nld", "dut"}, {"ron", "rum"}, {"slk", "slo"}, {"sqi", "alb"}, {"zho", "chi"},
};
// clang-format on

// ISO 3166-1 beside the MARC Code List for Countries, for each country that both have as one.
// Sorted by the code of two letters.
struct Country {
    std::string_view two;
    std::string_view three;
    std::string_view marc;
};

// clang-format off
constexpr Country kCountries[] = {
    {"ad", "and", "an "}, {"ae", "are", "ts "}, {"af", "afg", "af "}, {"ag", "atg", "aq "},
    {"ai", "aia", "am "}, {"al", "alb", "aa "}, {"am", "arm", "ai "}, {"ao", "ago", "ao "},
    {"aq", "ata", "ay "}, {"ar", "arg", "ag "}, {"as", "asm", "as "}, {"at", "aut", "au "},
    {"au", "aus", "at "}, {"aw", "abw", "aw "}, {"az", "aze", "aj "}, {"ba", "bih", "bn "},
    {"bb", "brb", "bb "}, {"bd", "bgd", "bg "}, {"be", "bel", "be "}, {"bf", "bfa", "uv "},
    {"bg", "bgr", "bu "}, {"bh", "bhr", "ba "}, {"bi", "bdi", "bd "}, {"bj", "ben", "dm "},
    {"bl", "blm", "sc "}, {"bm", "bmu", "bm "}, {"bn", "brn", "bx "}, {"bo", "bol", "bo "},
    {"bq", "bes", "ca "}, {"br", "bra", "bl "}, {"bs", "bhs", "bf "}, {"bt", "btn", "bt "},
    {"bv", "bvt", "bv "}, {"bw", "bwa", "bs "}, {"by", "blr", "bw "}, {"bz", "blz", "bh "},
    {"ca", "can", "xxc"}, {"cc", "cck", "xb "}, {"cd", "cod", "cg "}, {"cf", "caf", "cx "},
    {"cg", "cog", "cf "}, {"ch", "che", "sz "}, {"ci", "civ", "iv "}, {"ck", "cok", "cw "},
    {"cl", "chl", "cl "}, {"cm", "cmr", "cm "}, {"cn", "chn", "cc "}, {"co", "col", "ck "},
    {"cr", "cri", "cr "}, {"cu", "cub", "cu "}, {"cv", "cpv", "cv "}, {"cw", "cuw", "co "},
    {"cx", "cxr", "xa "}, {"cy", "cyp", "cy "}, {"cz", "cze", "xr "}, {"de", "deu", "gw "},
    {"dj", "dji", "ft "}, {"dk", "dnk", "dk "}, {"dm", "dma", "dq "}, {"do", "dom", "dr "},
    {"dz", "dza", "ae "}, {"ec", "ecu", "ec "}, {"ee", "est", "er "}, {"eg", "egy", "ua "},
    {"eh", "esh", "ss "}, {"er", "eri", "ea "}, {"es", "esp", "sp "}, {"et", "eth", "et "},
    {"fi", "fin", "fi "}, {"fj", "fji", "fj "}, {"fk", "flk", "fk "}, {"fm", "fsm", "fm "},
    {"fo", "fro", "fa "}, {"fr", "fra", "fr "}, {"ga", "gab", "go "}, {"gb", "gbr", "xxk"},
    {"gd", "grd", "gd "}, {"ge", "geo", "gs "}, {"gf", "guf", "fg "}, {"gh", "gha", "gh "},
    {"gi", "gib", "gi "}, {"gl", "grl", "gl "}, {"gm", "gmb", "gm "}, {"gn", "gin", "gv "},
    {"gp", "glp", "gp "}, {"gq", "gnq", "eg "}, {"gr", "grc", "gr "}, {"gs", "sgs", "xs "},
    {"gt", "gtm", "gt "}, {"gu", "gum", "gu "}, {"gw", "gnb", "pg "}, {"gy", "guy", "gy "},
    {"hm", "hmd", "hm "}, {"hn", "hnd", "ho "}, {"hr", "hrv", "ci "}, {"ht", "hti", "ht "},
    {"hu", "hun", "hu "}, {"id", "idn", "io "}, {"ie", "irl", "ie "}, {"il", "isr", "is "},
    {"in", "ind", "ii "}, {"io", "iot", "bi "}, {"iq", "irq", "iq "}, {"ir", "irn", "ir "},
    {"is", "isl", "ic "}, {"it", "ita", "it "}, {"jm", "jam", "jm "}, {"jo", "jor", "jo "},
    {"jp", "jpn", "ja "}, {"ke", "ken", "ke "}, {"kg", "kgz", "kg "}, {"kh", "khm", "cb "},
    {"ki", "kir", "gb "}, {"km", "com", "cq "}, {"kn", "kna", "xd "}, {"kp", "prk", "kn "},
    {"kr", "kor", "ko "}, {"kw", "kwt", "ku "}, {"ky", "cym", "cj "}, {"kz", "kaz", "kz "},
    {"la", "lao", "ls "}, {"lb", "lbn", "le "}, {"lc", "lca", "xk "}, {"li", "lie", "lh "},
    {"lk", "lka", "ce "}, {"lr", "lbr", "lb "}, {"ls", "lso", "lo "}, {"lt", "ltu", "li "},
    {"lu", "lux", "lu "}, {"lv", "lva", "lv "}, {"ly", "lby", "ly "}, {"ma", "mar", "mr "},
    {"mc", "mco", "mc "}, {"md", "mda", "mv "}, {"me", "mne", "mo "}, {"mf", "maf", "st "},
    {"mg", "mdg", "mg "}, {"mh", "mhl", "xe "}, {"mk", "mkd", "xn "}, {"ml", "mli", "ml "},
    {"mm", "mmr", "br "}, {"mn", "mng", "mp "}, {"mp", "mnp", "nw "}, {"mq", "mtq", "mq "},
    {"mr", "mrt", "mu "}, {"ms", "msr", "mj "}, {"mt", "mlt", "mm "}, {"mu", "mus", "mf "},
    {"mv", "mdv", "xc "}, {"mw", "mwi", "mw "}, {"mx", "mex", "mx "}, {"my", "mys", "my "},
    {"mz", "moz", "mz "}, {"na", "nam", "sx "}, {"nc", "ncl", "nl "}, {"ne", "ner", "ng "},
    {"nf", "nfk", "nx "}, {"ng", "nga", "nr "}, {"ni", "nic", "nq "}, {"nl", "nld", "ne "},
    {"no", "nor", "no "}, {"np", "npl", "np "}, {"nr", "nru", "nu "}, {"nu", "niu", "xh "},
    {"nz", "nzl", "nz "}, {"om", "omn", "mk "}, {"pa", "pan", "pn "}, {"pe", "per", "pe "},
    {"pf", "pyf", "fp "}, {"pg", "png", "pp "}, {"ph", "phl", "ph "}, {"pk", "pak", "pk "},
    {"pl", "pol", "pl "}, {"pm", "spm", "xl "}, {"pn", "pcn", "pc "}, {"pr", "pri", "pr "},
    {"pt", "prt", "po "}, {"pw", "plw", "pw "}, {"py", "pry", "py "}, {"qa", "qat", "qa "},
    {"re", "reu", "re "}, {"ro", "rou", "rm "}, {"rs", "srb", "rb "}, {"ru", "rus", "ru "},
    {"rw", "rwa", "rw "}, {"sa", "sau", "su "}, {"sb", "slb", "bp "}, {"sc", "syc", "se "},
    {"sd", "sdn", "sj "}, {"se", "swe", "sw "}, {"sg", "sgp", "si "}, {"sh", "shn", "xj "},
    {"si", "svn", "xv "}, {"sk", "svk", "xo "}, {"sl", "sle", "sl "}, {"sm", "smr", "sm "},
    {"sn", "sen", "sg "}, {"so", "som", "so "}, {"sr", "sur", "sr "}, {"ss", "ssd", "sd "},
    {"st", "stp", "sf "}, {"sv", "slv", "es "}, {"sx", "sxm", "sn "}, {"sy", "syr", "sy "},
    {"sz", "swz", "sq "}, {"tc", "tca", "tc "}, {"td", "tcd", "cd "}, {"tf", "atf", "fs "},
    {"tg", "tgo", "tg "}, {"th", "tha", "th "}, {"tj", "tjk", "ta "}, {"tk", "tkl", "tl "},
    {"tl", "tls", "em "}, {"tm", "tkm", "tk "}, {"tn", "tun", "ti "}, {"to", "ton", "to "},
    {"tr", "tur", "tu "}, {"tt", "tto", "tr "}, {"tv", "tuv", "tv "}, {"tw", "twn", "ch "},
    {"tz", "tza", "tz "}, {"ua", "ukr", "un "}, {"ug", "uga", "ug "}, {"us", "usa", "xxu"},
    {"uy", "ury", "uy "}, {"uz", "uzb", "uz "}, {"va", "vat", "vc "}, {"vc", "vct", "xm "},
    {"ve", "ven", "ve "}, {"vg", "vgb", "vb "}, {"vi", "vir", "vi "}, {"vn", "vnm", "vm "},
    {"vu", "vut", "nn "}, {"wf", "wlf", "wf "}, {"ws", "wsm", "ws "}, {"ye", "yem", "ye "},
    {"yt", "myt", "ot "}, {"za", "zaf", "sa "}, {"zm", "zmb", "za "}, {"zw", "zwe", "rh "},
};
// clang-format on

}  // namespace

std::string_view MarcLanguageOf(std::string_view terminology) {
    const auto* row = std::ranges::find(kLanguages, terminology, &Language::terminology);
    return row == std::end(kLanguages) ? "" : row->bibliographic;
}

std::string_view MarcCountryOf(std::string_view iso) {
    if (iso.empty()) return {};
    const auto* row = iso.size() == 2 ? std::ranges::find(kCountries, iso, &Country::two)
                                      : std::ranges::find(kCountries, iso, &Country::three);
    return row == std::end(kCountries) ? "" : row->marc;
}

}  // namespace quillory
