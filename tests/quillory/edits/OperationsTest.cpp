#include <gtest/gtest.h>

#include <tests/quillory/edits/EditFixture.h>

namespace quillory {
namespace {

struct Row {
    const char* operation;
    ParameterTexts parameters;
    const char* before;
    const char* after;
};

const Row kRows[] = {
    // add
    {"add",
     {{"place", "500"}, {"text", "__$aNew"}},
     "24510$aT\n650 0$aR",
     "24510$aT\n500  $aNew\n650 0$aR"},
    {"add",
     {{"place", "650"}, {"text", "_0$aS"}},
     "650 0$aR\n700  $aN\n500  $aX",
     "650 0$aR\n650 0$aS\n700  $aN\n500  $aX"},
    {"add", {{"place", "500"}, {"text", "__$aNew"}}, "500  $aNew", "500  $aNew"},
    {"add",
     {{"place", "245h"}, {"text", "[map]"}},
     "24510$aT$cC\n500  $aX",
     "24510$aT$cC$h[map]\n500  $aX"},
    {"add", {{"place", "245h"}, {"text", "[map]"}, {"at", "start"}}, "24510$aT", "24510$h[map]$aT"},
    {"add", {{"place", "650[2]x"}, {"text", "H"}}, "650 0$aR\n650 0$aS", "650 0$aR\n650 0$aS$xH"},
    {"add", {{"place", "003"}, {"text", "OCoLC"}}, "001x\n24510$aT", "001x\n003OCoLC\n24510$aT"},
    // delete
    {"delete", {{"place", "9XX"}}, "24510$aT\n9001 $aX\n999  $aY", "24510$aT"},
    {"delete", {{"place", "650[2]"}}, "650 0$aR\n650 0$aS", "650 0$aR"},
    {"delete", {{"place", "020c"}}, "020  $a1$c2\n020  $c3\n24510$aT", "020  $a1\n24510$aT"},
    {"delete", {{"place", "245abc"}}, "24510$aT$cC$hH", "24510$hH"},
    {"delete", {{"place", "245"}}, "24510$aT", "refused: no field to write"},
    // rename
    {"rename", {{"place", "260"}, {"as", "264"}}, "260  $aL\n24510$aT", "264  $aL\n24510$aT"},
    {"rename", {{"place", "245h"}, {"as", "k"}}, "24510$aT$hH$hI", "24510$aT$kH$kI"},
    {"rename",
     {{"place", "00X"}, {"as", "500"}},
     "001x\n24510$aT",
     "refused: 500: not made of two indicators and subfields with codes"},
    // copy, move
    {"copy",
     {{"place", "100"}, {"into", "700"}},
     "1001 $aN\n24510$aT",
     "1001 $aN\n24510$aT\n7001 $aN"},
    {"copy", {{"place", "001"}, {"into", "035a"}}, "001x1\n24510$aT", "001x1\n035  $ax1\n24510$aT"},
    {"copy",
     {{"place", "008/35-37"}, {"into", "041a"}},
     "008261121s2026    ci a          000 1 eng d",
     "008261121s2026    ci a          000 1 eng d\n041  $aeng"},
    {"copy", {{"place", "245a"}, {"into", "245k"}}, "24510$aT$cC", "24510$aT$cC$kT"},
    {"move",
     {{"place", "020a"}, {"into", "024a"}},
     "020  $a1\n020  $a2$c3",
     "020  $c3\n024  $a1\n024  $a2"},
    {"move", {{"place", "9XX"}, {"into", "590"}}, "9001 $aX\n999  $aX", "5901 $aX\n590  $aX"},
    {"move", {{"place", "245h"}, {"into", "245k"}}, "24510$aT$hH$cC", "24510$aT$cC$kH"},
    // build
    {"build",
     {{"place", "246"}, {"text", "30$a{245a} ({264c})"}},
     "24510$aT\n264 1$c2020",
     "24510$aT\n24630$aT (2020)\n264 1$c2020"},
    {"build", {{"place", "246"}, {"text", "30$a{245a} ({264c})"}}, "24510$aT", "24510$aT"},
    {"build",
     {{"place", "246"}, {"text", "30$a{245a}"}},
     "24510$aCost: {dollar}1\n24630$aX",
     "24510$aCost: {dollar}1\n24630$aX\n24630$aCost: {dollar}1"},
    {"build",
     {{"place", "650z"}, {"text", "{{{650a}}}"}},
     "650 0$aR\n650 0$aS",
     "650 0$aR$z{R}\n650 0$aS$z{S}"},
    {"build",
     {{"place", "035a"}, {"text", "(X){001}"}},
     "0011\n24510$aT",
     "0011\n035  $a(X)1\n24510$aT"},
    {"build", {{"place", "001"}, {"text", "{035a}"}}, "0011\n035  $a2", "0012\n035  $a2"},
    // replace
    {"replace",
     {{"place", "245a"}, {"text", "a.b"}, {"with", "\\1"}},
     "24510$aa.b axb$ba.b",
     "24510$a\\1 axb$ba.b"},
    {"replace",
     {{"place", "5XX"}, {"text", "cat"}, {"with", "dog"}, {"words", "true"}},
     "500  $acat concat\n505  $tcat's",
     "500  $adog concat\n505  $tdog's"},
    {"replace",
     {{"place", "500a"},
      {"text", "CAT"},
      {"with", "dog"},
      {"ignore-case", "true"},
      {"first", "true"}},
     "500  $acat cat",
     "500  $adog cat"},
    {"replace",
     {{"place", "100a"}, {"regex", "^(\\w+), (\\w+)$"}, {"with", "\\2 \\1"}},
     "1001 $aHugo, Victor",
     "1001 $aVictor Hugo"},
    {"replace",
     {{"place", "500a"}, {"regex", "x*"}, {"with", "-"}},
     "500  $a\xC3\xA9x",
     "500  $a-\xC3\xA9-"},
    {"replace",
     {{"place", "500a"}, {"text", "\xC3\xA9"}, {"with", "\xC3\xA8"}},
     "500  $ae\xCC\x81t\xC3\xA9",
     "500  $ae\xCC\x81t\xC3\xA8"},
    {"replace",
     {{"place", "500a"}, {"text", "\xC3\xA9"}, {"with", "\xC3\xA8"}},
     "500  $ate\xCC\x81",
     "500  $ate\xCC\x80"},
    {"replace",
     {{"place", "001"}, {"regex", "^ocm0*"}, {"with", ""}},
     "001ocm0012\n24510$aT",
     "00112\n24510$aT"},
    {"replace",
     {{"place", "500a"}, {"like", "ri*s"}, {"with", "lakes"}},
     "500  $aThe rivers of, rivers",
     "500  $aThe lakes of, lakes"},
    {"replace",
     {{"place", "500a"}, {"like", "\\*?"}, {"with", ""}},
     "500  $aa*\xC3\xA9"
     "b",
     "500  $aab"},
    // force
    {"force",
     {{"place", "245h"}, {"text", "[map]"}},
     "24510$aT\n24510$aU$hX",
     "24510$aT$h[map]\n24510$aU$h[map]"},
    {"force",
     {{"place", "300a"}, {"text", "."}, {"at", "end"}},
     "300  $a1 p\n300  $a2.",
     "300  $a1 p.\n300  $a2."},
    {"force", {{"place", "003"}, {"text", "X"}}, "0011\n24510$aT", "0011\n003X\n24510$aT"},
    // indicators
    {"indicators", {{"place", "245/1"}, {"value", "0"}}, "24510$aT", "24500$aT"},
    {"indicators", {{"place", "650"}, {"value", "_7"}}, "65010$aT\n651 0$aL", "650 7$aT\n651 0$aL"},
    // case
    {"case",
     {{"place", "245a"}, {"as", "upper"}},
     "24510$aStra\xC3\x9F"
     "e \xC3\xA9t\xC3\xA9$cc",
     "24510$aSTRA\xC3\x9F"
     "E \xC3\x89T\xC3\x89$cc"},
    {"case",
     {{"place", "245"}, {"as", "title"}},
     "24510$aDON'T look$bO.K. NOW",
     "24510$aDon't Look$bO.K. Now"},
    {"case",
     {{"place", "245a"}, {"as", "sentence"}},
     "24510$a[THE \xC3\x89"
     "COLE]",
     "24510$a[The \xC3\xA9"
     "cole]"},
    {"case",
     {{"place", "245ab"}, {"as", "fix"}},
     "24510$aTHE RIVER$bNotes",
     "24510$aThe river$bNotes"},
    {"case", {{"place", "245ab"}, {"as", "fix"}}, "24510$aCSS$bthe guide", "24510$aCSS$bthe guide"},
    {"case",
     {{"place", "245a"}, {"as", "fix"}},
     "24510$a\xD0\x92\xD0\x9E \xD0\x92\xD0\x9E",
     "24510$a\xD0\x92\xD0\x9E \xD0\x92\xD0\x9E"},
    // trim
    {"trim", {{"place", "245"}}, "24510$a  T $b N", "24510$aT$bN"},
    {"trim",
     {{"place", "260"}, {"signs", " :,\xC2\xB7"}, {"at", "end"}},
     "260  $a L :$bP,\xC2\xB7$c::",
     "260  $a L$bP$c"},
    // order
    {"sort-fields",
     {},
     "24510$aT\n001x\n650 0$aB\n500  $aX\n650 0$aA",
     "001x\n24510$aT\n500  $aX\n650 0$aB\n650 0$aA"},
    {"sort-fields",
     {{"places", "5XX"}},
     "650 0$aB\n520  $aX\n24510$aT\n500  $aA",
     "650 0$aB\n500  $aA\n24510$aT\n520  $aX"},
    {"order-subfields", {{"place", "650"}}, "650 0$2x$xb$aR$xa", "650 0$aR$xb$xa$2x"},
    {"order-subfields",
     {{"place", "245"}, {"codes", "ca"}},
     "24510$b1$a2$c3$a4",
     "24510$c3$a2$a4$b1"},
    {"remove-empty", {}, "001\n24510$a$bN$c \n500  $a\n650 0", "24510$bN"},
    {"remove-empty", {{"places", "245c"}}, "24510$a$c \n500  $a", "24510$a\n500  $a"},
    {"remove-double", {}, "650 0$aR\n650 1$aR\n650 0$aR\n651 0$aR", "650 0$aR\n650 1$aR\n651 0$aR"},
    {"remove-double", {{"places", "650ax"}}, "650 0$aR$xH$aR$zR$zR", "650 0$aR$xH$zR$zR"},
    // set
    {"set",
     {{"place", "008/35-37"}, {"value", "fre"}},
     "008261121s2026    ci a          000 1 eng d",
     "008261121s2026    ci a          000 1 fre d"},
    {"set",
     {{"place", "008/22"}, {"value", "#"}},
     "008261121s2026    ci a   j      000 1 eng d",
     "008261121s2026    ci a          000 1 eng d"},
    {"set",
     {{"place", "008/39"}, {"value", "d"}},
     "008short",
     "refused: 008/39: the field ends before these positions"},
    {"set",
     {{"place", "007c/01"}, {"value", "r"}},
     "007co cga\n007ta",
     "refused: 007/01: the field has the wrong length: 6 bytes, the format has 14"},
};

TEST(Operations, DoInRecordsWhatTheirRowsSay) {
    for (const Row& row : kRows) {
        EXPECT_EQ(Edited(row.operation, row.parameters, row.before), row.after)
            << row.operation << " " << row.before;
    }
}

// What moves or builds may find new work in what it made; the others don't.
TEST(Operations, AreStableWhereTheyAreDoneAgain) {
    for (const Row& row : kRows) {
        const std::string after = row.after;
        if (after.starts_with("refused")) continue;
        if (std::string_view(row.operation) == "replace") continue;
        EXPECT_EQ(Edited(row.operation, row.parameters, after), after)
            << row.operation << " " << row.before;
    }
}

TEST(Operations, SayWhichParameterIsWrong) {
    const struct {
        const char* operation;
        ParameterTexts parameters;
        const char* text;
    } kWrong[] = {
        {"add", {{"text", "x"}}, "place: is missing; add needs it"},
        {"add", {{"place", "245"}, {"text", "x\ny"}}, "text: an empty text"},
        {"add",
         {{"place", "245"}, {"text", "Title"}},
         "text: 245: a whole field is two indicators"},
        {"add", {{"place", "245/1"}, {"text", "1"}}, "place: \"245/1\" can't be named here"},
        {"delete", {{"place", "leader"}}, "place: \"leader\" can't be named here"},
        {"delete", {{"place", "245a, bad"}}, "place: \"bad\" is not a place"},
        {"rename", {{"place", "245"}, {"as", "001"}}, "as: \"001\" can't be named here"},
        {"rename", {{"place", "245a"}, {"as", "$"}}, "as: \"$\" can't be named here"},
        {"copy", {{"place", "245"}, {"into", "246a"}}, "into: \"246a\" can't be named here"},
        {"build", {{"place", "246a"}, {"text", "{245a"}}, "text: a brace that is not closed"},
        {"build", {{"place", "246a"}, {"text", "{24}"}}, "text: \"24\" is not a place"},
        {"replace",
         {{"place", "245a"}, {"with", "x"}},
         "text: one of text, like and regex is needed"},
        {"replace", {{"place", "245a"}, {"regex", "("}, {"with", "x"}}, "regex: "},
        {"replace",
         {{"place", "245a"}, {"regex", "(a)"}, {"with", "\\2"}},
         "with: \"\\2\" stands for none"},
        {"case", {{"place", "245a"}, {"as", "small"}}, "as: \"small\" is none of upper, lower"},
        {"indicators", {{"place", "245/1"}, {"value", "10"}}, "value: \"10\" is no value"},
        {"set", {{"place", "008/35-37"}, {"value", "en"}}, "value: \"en\" does not fill"},
        {"set", {{"place", "leader/09"}, {"value", "a"}}, "place: leader/09 says how"},
    };
    for (const auto& row : kWrong) {
        SCOPED_TRACE(row.text);
        try {
            StepOf(row.operation, row.parameters);
            ADD_FAILURE() << "was taken";
        } catch (const ParameterError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(row.text)) << error.what();
        }
    }
}

}  // namespace
}  // namespace quillory
