#include <quillory/cataloging/Punctuator.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

// "245 10 $aTitle$bRest", where "$*a" is a text of the workform.
DraftedField PartsFrom(std::string_view line) {
    DraftedField field{std::string(line.substr(0, 3)), std::string(line.substr(4, 2)), {}, {}};
    std::string_view rest = line.substr(7);
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('$', 1), rest.size());
        const bool isOfWorkform = rest[1] == '*';
        const std::size_t code = isOfWorkform ? 2 : 1;
        field.subfields.push_back({rest[code], std::string(rest.substr(code + 1, end - code - 1))});
        field.ofWorkform.push_back(isOfWorkform);
        rest.remove_prefix(end);
    }
    return field;
}

std::string Made(std::string_view line, Punctuation punctuation, bool hasSeries = false) {
    DraftedField field = PartsFrom(line);
    Punctuate(punctuation, hasSeries, field);
    std::string text;
    for (const auto& [code, words] : field.subfields) text += std::string("$") + code + words;
    return text;
}

struct Case {
    std::string_view line;
    std::string_view expected;
};

TEST(Punctuator, PutsTheMarksThatLackBetweenSubfieldsAndAtTheEnd) {
    const std::vector<Case> cases{
        {"245 10 $aTitle$bRest$cName", "$aTitle :$bRest /$cName."},
        {"245 10 $aTitle =$bTitel$cName.", "$aTitle =$bTitel /$cName."},
        {"245 10 $aWho?", "$aWho?"},
        {"245 10 $a\"Who?\"", "$a\"Who?\""},
        {"245 10 $a\u3042\u3002", "$a\u3042\u3002"},
        {"264 #1 $aTown$bPress Inc.$c2021", "$aTown :$bPress Inc.,$c2021."},
        {"264 #1 $aPortland, Or.$bPress$c[2021]", "$aPortland, Or. :$bPress,$c[2021]"},
        {"264 #1 $aTown$c2021-", "$aTown,$c2021-"},
        {"264 #4 $c2021", "$c2021"},
        {"300 ## $a20 pages$c21 cm", "$a20 pages ;$c21 cm"},
        {"300 ## $*a1 disc :$*bsound ;$*c12 cm", "$a1 disc :$bsound ;$c12 cm"},
        {"300 ## $a2 discs$*bsound ;", "$a2 discs :$bsound"},
        {"300 ## $*a1 disc :$c12 cm", "$a1 disc ;$c12 cm"},
        {"100 1# $aMarsh, J. T.$q(Judith)$d1955-$eauthor",
         "$aMarsh, J. T.$q(Judith)$d1955-$eauthor."},
        {"100 1# $aOkafor, Amara$d1971-2020$eauthor", "$aOkafor, Amara,$d1971-2020,$eauthor."},
        {"100 1# $aHill, A. B.$eauthor", "$aHill, A. B.,$eauthor."},
        {"650 #0 $aBees$xBehavior", "$aBees$xBehavior."},
        {"650 #7 $aBees$2fast", "$aBees$2fast"},
        {"655 #7 $aNovels$2lcgft", "$aNovels.$2lcgft"},
        {"700 1# $aTan, Mei$*eillustrator.", "$aTan, Mei,$eillustrator."},
        {"500 ## $aNote", "$aNote"},
    };
    for (const auto& [line, expected] : cases) {
        EXPECT_EQ(Made(line, Punctuation::Put), expected) << line;
    }
    EXPECT_EQ(Made("300 ## $a20 pages$c21 cm", Punctuation::Put, true), "$a20 pages ;$c21 cm.");
}

TEST(Punctuator, TakesAwayWhatLeadsNowhere) {
    const std::string_view disc = "300 ## $*a1 disc :$*bsound ;";
    EXPECT_EQ(Made(disc, Punctuation::Keep), "$a1 disc :$bsound");
    EXPECT_EQ(Made(disc, Punctuation::Omit), "$a1 disc$bsound");
    for (const Punctuation punctuation : {Punctuation::Keep, Punctuation::Omit}) {
        EXPECT_EQ(Made("245 10 $aTitle :$bRest /", punctuation), "$aTitle :$bRest /");
    }
}

}  // namespace
}  // namespace quillory
