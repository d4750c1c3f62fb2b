#include <quillory/faults/Errors.h>
#include <quillory/jobs/Settings.h>
#include <zorby/settings/ProfileKeys.h>

#include <tests/quillory/cards/CardFixture.h>

namespace quillory {
namespace {

const Lines kSwann = {kLeaderLine,
                      "001zs2",
                      "020  $a9780306406157",
                      "082 4$a843/.912$223",
                      "1001 $aProust, Marcel,$d1871-1922,$eauteur.",
                      "24513$aDu côté de chez Swann :$bun roman /$cMarcel Proust.",
                      "250  $a2e éd.",
                      "264 1$aParis :$bGrasset,$c1913.",
                      "264 4$c©1913",
                      "300  $a523 pages ;$c19 cm.",
                      "4901 $aÀ la recherche du temps perdu ;$v1",
                      "500  $aÉdition originale.",
                      "5050 $aCombray -- Un amour de Swann",
                      "650 0$aJealousy$vFiction.",
                      "650 1$aLove",
                      "653  $afree words",
                      "7001 $iTranslator:$aScott, C. K.,$d1889-1930,$etranslator.$4trl",
                      "2463 $aSwann",
                      "8001 $aProust, Marcel,$d1871-1922.$tÀ la recherche du temps perdu ;$v1."};

class Cards : public CardFixture {};

TEST_F(Cards, ASetHasItsCardsInOrder) {
    const auto cards = CardsOf(kSwann);
    std::string uses;
    for (const PrintItem& card : cards) uses.append(UseName(card.use)).append("; ");
    EXPECT_EQ(uses, "shelf list; main entry; title; title; name; series; subject; subject; ");
    EXPECT_EQ(AddedHeadings(cards),
              (Lines{"Du côté de chez Swann", "Swann.", "Scott, C. K., 1889-1930.",
                     "Proust, Marcel, 1871-1922. À la recherche du temps perdu ; 1.",
                     "JEALOUSY--FICTION.", "LOVE."}));
    EXPECT_EQ(cards[0].controlNumber, "zs2");
}

TEST_F(Cards, TheMainEntryHasDescriptionNotesAndTracings) {
    const auto cards = CardsOf(kSwann, {kUseMainEntry});
    ASSERT_EQ(cards.size(), 1U);
    const std::vector<Block> expected{
        {kBlockCallNumber, "843.912"},
        {kBlockMainHeading, "Proust, Marcel, 1871-1922."},
        {kBlockBody,
         "Du côté de chez Swann : un roman / Marcel Proust. — 2e éd. — Paris : Grasset, 1913."},
        {kBlockBody, "523 pages ; 19 cm. — (À la recherche du temps perdu ; 1)"},
        {kBlockBody, "Édition originale."},
        {kBlockBody, "Contents: Combray -- Un amour de Swann."},
        {kBlockContinued, "Proust, Marcel, 1871-1922. Du côté de chez Swann."},
        {kBlockTracings,
         "1. Jealousy--Fiction. 2. Love. I. Scott, C. K., 1889-1930. II. Title. III. Title: Swann. "
         "IV. Series: Proust, Marcel, 1871-1922. À la recherche du temps perdu ; 1."}};
    ASSERT_EQ(cards[0].blocks.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(cards[0].blocks[i].role, expected[i].role) << i;
        EXPECT_EQ(cards[0].blocks[i].text, expected[i].text) << i;
    }
}

TEST_F(Cards, TheShelfListHasNoNotesButTheNumbersOfTheSettings) {
    const auto cards = CardsOf(kSwann, {kUseShelfList});
    ASSERT_EQ(cards.size(), 1U);
    EXPECT_EQ(cards[0].Texts(kBlockBody).back(), "ISBN 9780306406157");
    EXPECT_EQ(cards[0].Texts(kBlockBody).size(), 3U);
}

TEST_F(Cards, MarksAreSetWhereARecordHasNone) {
    const auto cards =
        CardsOf({"LDR00000nam a2200000 c 4500", "1001 $aMeyer, Anna$d1950-",
                 "24510$aFlüsse$beine Geschichte$cAnna Meyer", "264 1$aBerlin$bVerlag$c2001",
                 "300  $a12 S.$bIll.$c20 cm", "4901 $aReihe$v3"},
                {kUseMainEntry});
    EXPECT_EQ(cards[0].Texts(kBlockMainHeading), Lines{"Meyer, Anna, 1950-"});
    EXPECT_EQ(cards[0].Texts(kBlockBody),
              (Lines{"Flüsse : eine Geschichte / Anna Meyer. — Berlin : Verlag, 2001.",
                     "12 S. : Ill. ; 20 cm. — (Reihe ; 3)"}));
}

TEST_F(Cards, TheTitleIsTheMainEntryWithoutAnAuthor) {
    const auto cards = CardsOf({kLeaderLine, "24510$aMaps", "71002$aMap Society.$bOffice"}, {});
    ASSERT_EQ(cards.size(), 3U);  // none under the title
    EXPECT_EQ(cards[1].Texts(kBlockTitleEntry), Lines{"Maps."});
    EXPECT_EQ(cards[1].Texts(kBlockTracings), Lines{"I. Map Society. Office."});
    EXPECT_TRUE(CardsOf({kLeaderLine, "1001 $aNobody"}).empty());
}

TEST_F(Cards, WhatStandsInAnotherScriptComesWithItsField) {
    const auto cards =
        CardsOf({kLeaderLine, "1001 $6880-01$aTolstoĭ, Lev", "24510$6880-02$aVoĭna i mir",
                 "650 0$aWar", "8801 $6100-01/(N$aТолстой, Лев", "88010$6245-02/(N$aВойна и мир",
                 "880  $6500-00/(N$aПримечание"});
    EXPECT_EQ(cards[1].Texts(kBlockMainHeading), (Lines{"Tolstoĭ, Lev.", "Толстой, Лев"}));
    EXPECT_EQ(cards[1].Texts(kBlockBody), (Lines{"Voĭna i mir.", "Война и мир.", "Примечание."}));
    EXPECT_EQ(AddedHeadings(cards), (Lines{"Voĭna i mir", "Война и мир", "WAR."}));
}

TEST_F(Cards, WhatIsClosedGetsNoFullStop) {
    const std::string russian = std::string("500  $a") + "«Текст»";
    const auto cards = CardsOf({kLeaderLine, "24500$aTitle", "500  $aIn Gedanken", russian,
                                "500  $aספר 1־", "500  $a注記。", "500  $aچرا؟"},
                               {kUseMainEntry});
    EXPECT_EQ(cards.at(0).Texts(kBlockBody),
              (Lines{"In Gedanken.", "«Текст»", "ספר 1־", "注記。", "چرا؟"}));
}

TEST_F(Cards, TheSettingsDecide) {
    const auto set = [](int key, const char* value) { zorby::WriteZorbyProfileString(key, value); };
    set(zorby::ZP_OptionsCards,
        R"(CardSetIncludes=a\\SubjectHeadingsToInclude=2\\AEIncludes=Select/2\\)");
    set(zorby::ZP_OptionsCardsSelectNotesAE, R"(\505\)");
    set(zorby::ZP_OptionsCardsMoreSubfieldsAE, "FromEdit=082a^^FromTree=\\020a\\^^");
    const CardOptions options = CardOptionsOfProfile();
    EXPECT_EQ(options.cardsPerSheet, 3);
    const auto cards = CardsUnder(options, kSwann, {kUseSubject});
    EXPECT_EQ(AddedHeadings(cards), (Lines{"LOVE.", "LOVE."}));
    const std::vector<std::string> body = cards[0].Texts(kBlockBody);
    ASSERT_EQ(body.size(), 5U);
    EXPECT_EQ(body[2], "Contents: Combray -- Un amour de Swann.");
    EXPECT_EQ(body[3], "843/.912");
    EXPECT_EQ(body[4], "ISBN 9780306406157");
    EXPECT_EQ(CardsOf(kSwann).size(), 10U);  // neither shelf list nor main entry
}

TEST_F(Cards, ASettingThatMeansNothingIsNamed) {
    struct Case {
        int key;
        const char* value;
        const char* said;
    };
    const std::vector<Case> cases{
        {zorby::ZP_OptionsCards, R"(CardsPerSheet=9\\)",
         "ZP_OptionsCards: CardsPerSheet: the value is a number from 1 to 4, not \"9\""},
        {zorby::ZP_OptionsCards, R"(VerticalOffset=1e3\\)", "VerticalOffset"},
        {zorby::ZP_OptionsCards, R"(CardSetIncludes=x\\)", "CardSetIncludes"},
        {zorby::ZP_OptionsCards, R"(MEIncludes=Many/1\\)", "MEIncludes"},
        {zorby::ZP_OptionsCardsFonts, R"(Body=Courier,10\\)", "ZP_OptionsCardsFonts: Body"},
        {zorby::ZP_OptionsCardsFonts, R"(Body=Courier,2,400,0\\)", "from 4 to 36"},
        {zorby::ZP_OptionsCardsSelectNotesME, "5x", "ZP_OptionsCardsSelectNotesME"},
        {zorby::ZP_OptionsLabels, "LabelType=Z9^^", "LabelType: the value is one of S1 (spines"},
        {zorby::ZP_OptionsLabels, "LabelNumberOfSets=1.5^^", "a whole number"}};
    for (const Case& row : cases) {
        SCOPED_TRACE(row.value);
        zorby::WriteZorbyProfileString(row.key, row.value);
        std::string said;
        try {
            CardOptionsOfProfile();
            LabelOptionsOfProfile();
        } catch (const UsageError& error) {
            said = error.what();
        }
        EXPECT_NE(said.find(row.said), said.npos) << said;
        zorby::WriteZorbyProfileStringRaw("Zorby", zorby::FindProfileKey(row.key)->name, nullptr);
        zorby::CGeneral::m_iniUserProfile.Initialize("");
    }
}

TEST_F(Cards, CallNumbersComeFromTheCopiesOrElseFromTheRecord) {
    const HoldingsSystem alexandria = System("Alexandria");
    struct Case {
        const char* name;
        Lines fields;
        std::string lines;
    };
    const std::vector<Case> cases{
        {"copy", {"050 0$aPS1$b.M6", "852  $hFIC MEL v. 2$p3001"}, "FIC|MEL|v. 2|"},
        {"none", {}, ""},
        {"classification", {"050 0$aPS1$b.M6 2001"}, "PS1|.M6|2001|"},
        {"local first", {"082  $a813/.3", "090  $aQ$bX"}, "Q|X|"},
        {"cutting marks", {"082  $a813/.3"}, "813.3|"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        Lines fields{kLeaderLine, "24500$aT"};
        fields.insert(fields.end(), row.fields.begin(), row.fields.end());
        std::string lines;
        for (const std::string& line : CardsOf(fields).front().Texts(kBlockCallNumber)) {
            lines += line + "|";
        }
        EXPECT_EQ(lines, row.lines);
    }
    const auto shelf =
        CardsOf({kLeaderLine, "24500$aT", "852  $hFIC MEL$p3001", "852  $hFIC MEL c.2$p3002"});
    EXPECT_EQ(shelf.front().Texts(kBlockBody).back(), "Copies: FIC MEL (3001); FIC MEL c.2 (3002)");
}

}  // namespace
}  // namespace quillory
