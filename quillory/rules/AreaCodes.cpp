#include <quillory/rules/AreaCodes.h>

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

namespace quillory {
namespace {

// Without the hyphens at their ends.
constexpr std::string_view kValid =
    "a a-af a-ai a-aj a-ba a-bg a-bn a-br a-bt a-bx a-cb a-cc a-cc-an a-cc-ch a-cc-cq "
    "a-cc-fu a-cc-ha a-cc-he a-cc-hh a-cc-hk a-cc-ho a-cc-hp a-cc-hu a-cc-im a-cc-ka "
    "a-cc-kc a-cc-ki a-cc-kn a-cc-kr a-cc-ku a-cc-kw a-cc-lp a-cc-mh a-cc-nn a-cc-pe "
    "a-cc-sh a-cc-sm a-cc-sp a-cc-ss a-cc-su a-cc-sz a-cc-ti a-cc-tn a-cc-ts a-cc-yu "
    "a-ccg a-cck a-ccp a-ccs a-ccy a-ce a-ch a-cy a-em a-gs a-ii a-io a-iq a-ir a-is "
    "a-ja a-jo a-kg a-kn a-ko a-kr a-ku a-kz a-le a-ls a-mk a-mp a-my a-np a-nw a-ph "
    "a-pk a-pp a-qa a-si a-su a-sy a-ta a-th a-tk a-ts a-tu a-uz a-vt a-ye aa ab ac ae "
    "af ag ah ai ak am an ao aopf aoxp ap ar as at au aw awba awgz ay az b c cc cl d dd "
    "e e-aa e-an e-au e-be e-bn e-bu e-bw e-ci e-cs e-dk e-er e-fi e-fr e-ge e-gi e-gr "
    "e-gw e-gx e-hu e-ic e-ie e-it e-kv e-lh e-li e-lu e-lv e-mc e-mm e-mo e-mv e-ne "
    "e-no e-pl e-po e-rb e-rm e-ru e-sm e-sp e-sw e-sz e-uk e-uk-en e-uk-ni e-uk-st "
    "e-uk-ui e-uk-wl e-un e-ur e-urc e-ure e-urf e-urk e-urn e-urp e-urr e-urs e-uru "
    "e-urw e-vc e-xn e-xo e-xr e-xv e-yu ea eb ec ed ee el en eo ep er es ev ew f f-ae "
    "f-ao f-bd f-bs f-cd f-cf f-cg f-cm f-cx f-dm f-ea f-eg f-et f-ft f-gh f-gm f-go "
    "f-gv f-iv f-ke f-lb f-lo f-ly f-mg f-ml f-mr f-mu f-mw f-mz f-ng f-nr f-pg f-rh "
    "f-rw f-sa f-sd f-sf f-sg f-sh f-sj f-sl f-so f-sq f-ss f-sx f-tg f-ti f-tz f-ua "
    "f-ug f-uv f-za fa fb fc fd fe ff fg fh fi fl fn fq fr fs fu fv fw fz h i i-bi i-cq "
    "i-fs i-hm i-mf i-my i-re i-se i-xa i-xb i-xc i-xo l ln lnaz lnbm lnca lncv lnfa "
    "lnjn lnma lnsb ls lsai lsbv lsfk lstd lsxj lsxs m ma mb me mm mr n n-cn n-cn-ab "
    "n-cn-bc n-cn-mb n-cn-nf n-cn-nk n-cn-ns n-cn-nt n-cn-nu n-cn-on n-cn-pi n-cn-qu "
    "n-cn-sn n-cn-yk n-cnh n-cnm n-cnp n-gl n-mx n-us n-us-ak n-us-al n-us-ar n-us-az "
    "n-us-ca n-us-co n-us-ct n-us-dc n-us-de n-us-fl n-us-ga n-us-hi n-us-ia n-us-id "
    "n-us-il n-us-in n-us-ks n-us-ky n-us-la n-us-ma n-us-md n-us-me n-us-mi n-us-mn "
    "n-us-mo n-us-ms n-us-mt n-us-nb n-us-nc n-us-nd n-us-nh n-us-nj n-us-nm n-us-nv "
    "n-us-ny n-us-oh n-us-ok n-us-or n-us-pa n-us-ri n-us-sc n-us-sd n-us-tn n-us-tx "
    "n-us-ut n-us-va n-us-vt n-us-wa n-us-wi n-us-wv n-us-wy n-usa n-usc n-use n-usl "
    "n-usm n-usn n-uso n-usp n-usr n-uss n-ust n-usu n-xl nc ncbh nccr nccz nces ncgt "
    "ncho ncnq ncpn nl nm np nr nw nwaq nwaw nwbb nwbf nwbn nwcj nwco nwcu nwdq nwdr "
    "nweu nwgd nwgp nwhi nwht nwjm nwla nwli nwmj nwmq nwna nwpr nwsc nwsd nwsn nwst "
    "nwsv nwtc nwtr nwuc nwvb nwvi nwwi nwxa nwxi nwxk nwxm p pn po poas pobp poci pocw "
    "poea pofj pofp pogg pogu poji pokb poki poln pome pomi ponl ponn ponu popc popl "
    "pops posh potl poto pott potv poup powf powk pows poxd poxe poxf poxh ps q r s s-ag "
    "s-bl s-bo s-ck s-cl s-ec s-fg s-gy s-pe s-py s-sr s-uy s-ve sa sn sp t u u-ac u-at "
    "u-at-ac u-at-ne u-at-no u-at-qn u-at-sa u-at-tm u-at-vi u-at-we u-atc u-ate u-atn "
    "u-cs u-nz w x xa xb xc xd zd zju zma zme zmo zne zo zpl zs zsa zsu zur zve";

struct ObsoleteArea {
    std::string_view code;
    std::string_view now;  // empty where the list names no single one
};

constexpr ObsoleteArea kObsolete[] = {
    {"a-hk---", "a-cc-hk"}, {"a-mh---", "a-cc-mh"}, {"a-ok---", ""},        {"a-pt---", ""},
    {"a-sk---", ""},        {"a-vn---", "a-vt---"}, {"a-vs---", "a-vt---"}, {"a-ys---", "a-ye---"},
    {"awiu---", ""},        {"awiw---", ""},        {"awiy---", ""},        {"cm-----", ""},
    {"cr-----", ""},        {"e-ur-ai", "a-ai---"}, {"e-ur-aj", "a-aj---"}, {"e-ur-bw", "e-bw---"},
    {"e-ur-er", "e-er---"}, {"e-ur-gs", "a-gs---"}, {"e-ur-kg", "a-kg---"}, {"e-ur-kz", "a-kz---"},
    {"e-ur-li", "e-li---"}, {"e-ur-lv", "e-lv---"}, {"e-ur-mv", "e-mv---"}, {"e-ur-ru", "e-ru---"},
    {"e-ur-ta", "a-ta---"}, {"e-ur-tk", "a-tk---"}, {"e-ur-un", "e-un---"}, {"e-ur-uz", "a-uz---"},
    {"e-url--", ""},        {"e-uro--", ""},        {"e-urv--", ""},        {"ei-----", ""},
    {"et-----", ""},        {"f-by---", ""},        {"f-if---", ""},        {"n-usw--", ""},
    {"nwbc---", ""},        {"nwga---", ""},        {"nwgs---", ""},        {"nwsb---", ""},
    {"nwvr---", ""},        {"pocp---", ""},        {"pogn---", ""},        {"pory---", ""},
    {"posc---", ""},        {"posn---", ""},        {"t-ay---", "t------"}, {"v------", ""},
};

constexpr std::size_t kSize = 7;

std::unordered_set<std::string> ValidCodes() {
    std::unordered_set<std::string> codes;
    for (std::string_view rest = kValid; !rest.empty();) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        std::string code(rest.substr(0, end));
        code.resize(kSize, '-');
        codes.insert(std::move(code));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return codes;
}

const std::unordered_set<std::string>& AllAreaCodes() {
    static const std::unordered_set<std::string> codes = ValidCodes();
    return codes;
}

// Without the hyphens that fill a code.
std::string_view Stripped(std::string_view code) {
    return code.substr(0, code.find_last_not_of(" -") + 1);
}

// In small letters and with the hyphens that fill a code.
std::string Filled(std::string_view text) {
    std::string code(Stripped(text));
    for (char& c : code) c = 'A' <= c && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    if (code.size() < kSize) code.resize(kSize, '-');
    return code;
}

// Whether a single character was replaced, left out or added.
bool IsOneSlipApart(std::string_view one, std::string_view other) {
    if (one.size() > other.size()) std::swap(one, other);
    const std::size_t added = other.size() - one.size();
    if (added > 1) return false;
    const auto same = static_cast<std::size_t>(std::ranges::mismatch(one, other).in1 - one.begin());
    if (same == one.size()) return added == 1;
    return one.substr(same + 1 - added) == other.substr(same + 1);
}

}  // namespace

bool IsAreaCode(std::string_view code) {
    return AllAreaCodes().contains(std::string(code));
}

std::string AreaCodeNear(std::string_view text) {
    std::string wanted = Filled(text);
    if (IsAreaCode(wanted)) return wanted;
    std::string near;
    for (const std::string& code : AllAreaCodes()) {
        if (!IsOneSlipApart(Stripped(wanted), Stripped(code))) continue;
        if (!near.empty()) return {};
        near = code;
    }
    return near;
}

std::optional<std::string_view> ObsoleteAreaCode(std::string_view code) {
    const auto* found = std::ranges::find(kObsolete, code, &ObsoleteArea::code);
    if (found == std::end(kObsolete)) return std::nullopt;
    return found->now;
}

}  // namespace quillory
