#include <quillory/coded/Decoder.h>
#include <quillory/coded/Material.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

using namespace zorby;

const CodeLists& Lists() {
    static const CodeLists lists{CodeStatus(CODES_FILE)};
    return lists;
}

std::string LeaderOf(const std::string& typeAndLevel) {
    return "00000c" + typeAndLevel + "  2200000 a 4500";
}

DecodedField Decoded(const std::string& tag, const std::string& content,
                     const std::string& typeAndLevel = "am") {
    const Decoder decoder(Lists());
    if (tag == "leader") return decoder.Leader(content);
    if (tag == "006") return decoder.Field006(content);
    if (tag == "007") return decoder.Field007(content);
    return decoder.Field008(content, LeaderOf(typeAndLevel));
}

constexpr const char* kStates[] = {"", "newer ", "obsolete ", "fill ", "unknown "};
constexpr const char* kElementStates[] = {"",           "",         "misfit ", "undefined ",
                                          "undecoded ", "missing ", "excess "};

// What is said of a place: "a Illustrations; b Maps", "newer k Vocal score".
std::string Said(const DecodedField& field, const std::string& place) {
    for (const DecodedElement& element : field.elements) {
        if (PlaceText(element.place) != place) continue;
        std::string said = kElementStates[static_cast<int>(element.state)] + element.text;
        for (const CodeMeaning& code : element.codes) {
            if (!said.empty() && &code != &element.codes.front()) said += "; ";
            said += kStates[static_cast<int>(code.state)] + code.code + " " + code.text;
        }
        return said;
    }
    return "not there";
}

TEST(Decoder, ReadsFieldsByTheirMaterial) {
    struct Case {
        const char* tag;
        const char* material;
        const char* content;
        const char* place;
        const char* said;
    };
    const Case cases[] = {
        {"008", "am", "240109s1913    fr ab  j      001 1 fre d", "008/18-21",
         "a Illustrations; b Maps"},
        {"008", "am", "240109s1913    fr ab  j      001 1 fre d", "008/22", "j Juvenile"},
        {"008", "am", "240109s1913    fr ab  j      001 1 fre d", "008/00-05", "2024-01-09"},
        {"008", "am", "240109s1913    fr ab  j      001 1 fre d", "008/11-14", "Not applicable"},
        {"008", "am", "680109s1913    fr ab  j      001 1 fre d", "008/00-05", "1968-01-09"},
        {"008", "am", "240230s1913    fr ab  j      001 1 fre d", "008/00-05", "misfit "},
        {"008", "as", "090128c20089999ctuar  ss i   0    0eng d", "008/18", "a Annual"},
        {"008", "tb", "090128c20089999ctuar  ss i   0    0eng d", "008/11-14", "Continuing"},
        {"008", "ab", "090128c20089999ctuar1 ss i   0    0eng d", "008/20",
         "obsolete 1 United States"},
        {"008", "em", "840613s1869    maua bhd   a 0   ep-engrd", "008/33-34",
         "p Playing cards; unknown - "},
        {"008", "jm", "000918s1998    pl jzn              zxx d", "008/18-19", "jz Jazz"},
        {"008", "cm", "000918s1998    pl jzkz             zxx d", "008/20", "newer k Vocal score"},
        {"008", "gm", "000502p19981994cau119 g          vleng d", "008/18-20", "119 minutes"},
        {"008", "gm", "000502p19981994cau000 g          vleng d", "008/18-20",
         "000 Running time exceeds three characters"},
        {"008", "om", "930112s1946    xxunnn            bneng d", "008/33", "b Kit"},
        {"008", "bc", "980908q13uu198uxx      a           grc d", "008/23", "a Microfilm"},
        {"008", "zm", "980908q13uu198uxx      a           grc d", "008/18-34",
         "undecoded no material has such a type of record in its leader"},
        // Codes of another day than the library's lists
        {"008", "am", "240109s1913    yu            000 1 scr d", "008/35-37",
         "obsolete scr Croatian"},
        {"008", "am", "240109s1913    yu            000 1 hrv d", "008/35-37",
         "newer hrv Croatian"},
        {"008", "am", "240109s1913    ai            000 1 lun d", "008/35-37", "newer lun Lunda"},
        {"008", "am", "240109s1913    ai            000 1 smj d", "008/35-37", "smj Lule Sami"},
        {"008", "am", "240109s1913    ai            000 1 xqx d", "008/35-37", "unknown xqx "},
        {"008", "am", "240109s1913    ai            000 1 xqx d", "008/15-17",
         "ai  Armenia (Republic)"},
        {"008", "am", "240109s1913    hk            000 c eng d", "008/15-17",
         "obsolete hk  Hong Kong"},
        {"008", "am", "240109s1913    hk            000 c eng d", "008/33",
         "obsolete c Comic strips"},
        // Undefined positions are told of when they hold something
        {"008", "am", "240109s1913    fr            00010 fre d", "008/32",
         "undefined obsolete 1 Main entry in body of entry"},
        {"008", "am", "240109s1913    fr            000 0 fre d", "008/32", "not there"},
        {"008", "am", "240109s1913    fr            000|0 fre d", "008/32", "not there"},
        {"008", "gm", "000502p19981994cau119xg          vleng d", "008/21", "undefined unknown x "},
        // Leader, 006, 007
        {"leader", "", "01420cas  2200361Ki 4500", "leader/06", "a Language material"},
        {"leader", "", "01420cas  2200361Ki 4500", "leader/00-04", "1420 bytes"},
        {"leader", "", "ABCDEcas  2200361Ki 4500", "leader/00-04", "misfit "},
        {"leader", "", "01420c|s  2200361Ki 4500", "leader/06", "unknown | "},
        {"leader", "", "01420cgm  2200361n  4500", "leader/06", "g Projected medium"},
        {"leader", "", "01420cgm  2200361 n 4500", "leader/18",
         "newer n Non-ISBD punctuation omitted"},
        {"006", "", "s                 ", "006/00", "s Serial/Integrating resource"},
        {"006", "", "m    j  d|        ", "006/09", "fill | No attempt to code"},
        {"007", "", "sr fungnnmmned", "007/01", "newer r Remote"},
        {"007", "", "sb fungnnmmned", "007/01", "newer b Belt"},
        {"007", "", "sc fungnnmmned", "007/01", "obsolete c Cylinder"},
        {"007", "", "cr |||---|||||", "007/06-08", "--- Unknown"},
        {"007", "", "cr |||024|||||", "007/06-08", "24 bits"},
        {"007", "", "hd afu015baca", "007/06-08", "15:1"},
        {"007", "", "fb ab|bcdz", "007/03-04", "a Literary braille; b Format code braille"},
        {"007", "", "mr caaaaaaaaaaaaa199903", "007/17-22", "1999-03"},
        {"007", "", "x", "007/00", "undecoded no category of material has this first byte"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Said(Decoded(c.tag, c.content, c.material), c.place), c.said)
            << c.tag << " " << c.content;
    }
}

TEST(Decoder, SpellsOutWhatAllFormatsShare) {
    const Decoder decoder(Lists());
    const DecodedField leader = decoder.SharedOfLeader("00301nz  a2200109n  4500");
    EXPECT_EQ(Said(leader, "leader/05-08"), "see the format for authority data");
    EXPECT_EQ(Said(leader, "leader/09"), "a UCS/Unicode");
    EXPECT_EQ(Said(leader, "leader/17-19"), "see the format for authority data");
    const DecodedField of008 =
        decoder.SharedOf008("0901290u    8   4001uueng0901290", LeaderOf("x "));
    EXPECT_EQ(Said(of008, "008/00-05"), "2009-01-29");
    EXPECT_EQ(Said(of008, "008/06-31"), "see the format for holdings");
    EXPECT_EQ(Said(of008, "008/32-39"), "not there");
}

TEST(Decoder, NamesWhatIsMissingOrTooMuch) {
    EXPECT_EQ(Said(Decoded("008", std::string(39, ' ')), "008/39"),
              "missing 39 bytes, the format has 40");
    EXPECT_EQ(Said(Decoded("008", std::string(41, ' ')), "008/40"),
              "excess 41 bytes, the format has 40");
    EXPECT_EQ(Said(Decoded("007", ""), "007/00"), "missing 0 bytes, the format has 1");
    EXPECT_EQ(Said(Decoded("006", "a"), "006/01-17"), "missing 1 byte, the format has 18");
}

// Every byte of a field is told of once, but blanks and fill characters in undefined positions.
void ExpectAllTold(const DecodedField& field, const std::string& content) {
    std::string untold = content;
    std::size_t end = 0;
    for (const DecodedElement& element : field.elements) {
        const auto first = static_cast<std::size_t>(element.place.first);
        EXPECT_GE(first, end) << PlaceText(element.place) << " is told twice";
        end = first + element.value.size();
        if (element.state == ElementState::Missing) {
            EXPECT_EQ(first, content.size()) << PlaceText(element.place);
            continue;
        }
        ASSERT_EQ(content.substr(first, element.value.size()), element.value)
            << PlaceText(element.place);
        untold.replace(first, element.value.size(), element.value.size(), ' ');
    }
    EXPECT_EQ(untold.find_first_not_of(" |"), untold.npos);
}

TEST(Decoder, TakesAnyLengthAndAnyBytes) {
    std::mt19937 random(7);
    using namespace std::string_view_literals;
    const std::string_view likely = " |#0123456789abcdefghijklmnopqrstuvwxyz-u\0\037\377"sv;
    const std::vector<std::string> tags = {"leader", "006", "007", "008"};
    const std::string types = "acdefgijkmoprtbz ";
    for (std::size_t round = 0; round < 40; ++round) {
        for (std::size_t length = 0; length <= 60; ++length) {
            SCOPED_TRACE("round " + std::to_string(round) + ", length " + std::to_string(length));
            std::string content(length, ' ');
            for (char& c : content) c = likely[random() % likely.size()];
            const std::string typeAndLevel = {types[random() % types.size()], "mis"[random() % 3]};
            for (const std::string& tag : tags) {
                ExpectAllTold(Decoded(tag, content, typeAndLevel), content);
            }
            const Decoder decoder(Lists());
            ExpectAllTold(decoder.Field008(content, content), content);
        }
    }
}

TEST(Material, IsThatOfLeaderOrFirstByte) {
    const std::pair<const char*, CFType> leaders[] = {
        {"am", CF006Books},      {"ti", CF006Continuing},   {"as", CF006Continuing},
        {"a ", CF006Books},      {"ms", CF006ComputerFile}, {"fm", CF006Map},
        {"is", CF006MusicSound}, {"rm", CF006Visual},       {"pc", CF006Mixed},
        {"bc", CF006Mixed},      {"sm", CF006None},         {" m", CF006None}};
    for (const auto& [typeAndLevel, form] : leaders) {
        EXPECT_EQ(MaterialOfLeader(LeaderOf(typeAndLevel)), form) << typeAndLevel;
    }
    EXPECT_EQ(MaterialOfLeader("00000ca"), CF006None);
    EXPECT_EQ(MaterialOf006("s"), CF006Continuing);
    EXPECT_EQ(MaterialOf006(""), CF006None);
    EXPECT_EQ(CategoryOf007("m"), CF007MotionPicture);
    EXPECT_EQ(CategoryOf007("b"), CF007None);
}

}  // namespace
}  // namespace quillory
