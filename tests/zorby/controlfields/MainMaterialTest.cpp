#include <zorby/controlfields/MainMaterial.h>
#include <zorby/record/Pmarc.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/zorby/archive/Persisted.h>

using namespace zorby;
using namespace std::string_literals;

namespace {

const std::string kLeader = "00000nam#a2200000#i#4500";
const std::string kBlock = "block001block002block003block004";
const std::string kBook008 = "261121s2026####enka###j######000#1#eng#d";
const std::string kMicroform = "hd#bdu---bucu";

class MainMaterial : public testing::Test {
protected:
    static CCFMainMaterial Make(CFType type006, CFType type007, std::string_view field007 = {},
                                std::string_view field008 = kBook008,
                                std::string_view second006 = {}) {
        CCFMainMaterial material;
        EXPECT_EQ(material.Create(type006, type007, kLeader, kBlock, field007, field008, second006),
                  1);
        return material;
    }

    // "(none)" where the record doesn't hold the element.
    static std::string Read(const CCFMainMaterial& material, CFPart part) {
        std::string text = "old";
        const int found = material.Get(part, text);
        if (found == 0) return "(none)";
        EXPECT_EQ(material.GetPartSize(part), static_cast<int>(text.size()));
        return text;
    }

    struct Fields {
        std::string leader, field007, field008, second006;
        bool operator==(const Fields&) const = default;
    };
    static Fields All(const CCFMainMaterial& material) {
        Fields all;
        material.GetAll(all.leader, all.field007, all.field008, all.second006);
        return all;
    }
};

TEST_F(MainMaterial, ElementsComeFromTheirBuffers) {
    const CCFMainMaterial book = Make(CF006Books, CF007Microform, kMicroform);
    EXPECT_EQ(Read(book, CFPLdrRecordStatus), "n");
    EXPECT_EQ(Read(book, CFPLdrTypeOfRecord), "a");
    EXPECT_EQ(Read(book, CFPLdrTypeOfRecordMusic), "a");
    EXPECT_EQ(Read(book, CFPLdrEncodingLevel), " ");
    EXPECT_EQ(Read(book, CFP008DateEntered), "261121");
    EXPECT_EQ(Read(book, CFP008PlaceOfPublication), "enk");
    EXPECT_EQ(Read(book, CFP006BooksIllustrations), "a   ");
    EXPECT_EQ(Read(book, CFP006BooksAudience), "j");
    EXPECT_EQ(Read(book, CFP006BooksLiteraryForm), "1");
    EXPECT_EQ(Read(book, CFP007MicroformCategory), "h");
    EXPECT_EQ(Read(book, CFP007MicroformReductionRatio), "---");
    EXPECT_EQ(Read(book, CFP007MicroformBase), "u");
    for (const CFPart part :
         {CFP006BooksTypeOfRecord, CFP006MusicSoundAudience, CFP007SoundSMD, CFP008DateGroup,
          CFP008Alternative1, CFPBlock1, static_cast<CFPart>(23), CFPEndOfTable}) {
        EXPECT_EQ(Read(book, part), "(none)") << part;
    }
    EXPECT_EQ(Read(Make(CF006Map, CF007Map, "aj#canzn"), CFP007MapCategory), "a");
    EXPECT_EQ(Read(Make(CF006AltDate, CF007None), CFP008Alternative8), "   ");
    EXPECT_EQ(Read(Make(CF006AltDate, CF007None), CFP008Language), "(none)");
    EXPECT_EQ(CCFMainMaterial::GetPartSizeNew(CFP006BooksIllustrations), 4);
}

TEST_F(MainMaterial, SetFillsItsBytesAndNoOthers) {
    CCFMainMaterial book = Make(CF006Books, CF007None);
    EXPECT_EQ(book.Set(CFP006BooksIllustrations, "bc"), 1);
    EXPECT_EQ(book.Set(CFP006BooksLiteraryForm, "0123"), 1);
    EXPECT_EQ(book.Set(CFP008Language, ""), 1);
    EXPECT_EQ(book.Set(CFP008CatalogingSource, "#"), 1);
    EXPECT_EQ(book.Set(CFP006BooksTypeOfRecord, "t"), 0);
    EXPECT_EQ(book.Set(CFP007MapColor, "c"), 0);
    EXPECT_EQ(All(book).field008, "261121s2026    enkbc  j      000 0     #");
    EXPECT_EQ(All(book).leader, "00000nam a2200000 i 4500");
}

TEST_F(MainMaterial, FormOfItemOfVisualMaterialGoesToMusicOnWriting) {
    CCFMainMaterial music = Make(CF006MusicSound, CF007None);
    EXPECT_EQ(music.Set(CFP006VisualFormOfItem, "b"), 1);
    EXPECT_EQ(Read(music, CFP006MusicSoundFormOfItem), "b");
    EXPECT_EQ(Read(music, CFP006VisualFormOfItem), "(none)");
    CCFMainMaterial map = Make(CF006Map, CF007None);
    EXPECT_EQ(map.Set(CFP006VisualFormOfItem, "b"), 0);
    CCFMainMaterial visual = Make(CF006Visual, CF007None);
    EXPECT_EQ(visual.Set(CFP006VisualFormOfItem, "b"), 1);
    EXPECT_EQ(Read(visual, CFP006VisualFormOfItem), "b");
}

TEST_F(MainMaterial, CombinedFormOfItem) {
    CCFMainMaterial book = Make(CF006Books, CF007Microform, kMicroform);
    EXPECT_EQ(book.Set(CFPCombinedFormOfItem, "bez"), 1);
    EXPECT_EQ(Read(book, CFPCombinedFormOfItem), "be");
    EXPECT_EQ(All(book).field007, "he bdu---bucu");
    EXPECT_EQ(book.Set(CFP007MicroformSMD, ""), 1);
    EXPECT_EQ(Read(book, CFPCombinedFormOfItem), "b");
    EXPECT_EQ(book.Set(CFPCombinedFormOfItem, "d"), 1);
    EXPECT_EQ(Read(book, CFPCombinedFormOfItem), "d");
    EXPECT_EQ(All(book).field007, std::string(13, ' '));
    EXPECT_EQ(book.Set(CFPCombinedFormOfItem, ""), 1);
    EXPECT_EQ(Read(book, CFP006BooksFormOfItem), " ");

    // An electronic item has no microform to ask.
    CCFMainMaterial electronic = Make(CF006Books, CF007Electronic, "cr#cn####");
    electronic.Set(CFP006BooksFormOfItem, "s");
    EXPECT_EQ(Read(electronic, CFPCombinedFormOfItem), "s");
    electronic.Set(CFP006BooksFormOfItem, "o");
    EXPECT_EQ(Read(electronic, CFPCombinedFormOfItem), "(none)");
    EXPECT_EQ(electronic.Set(CFPCombinedFormOfItem, "ad"), 0);
    EXPECT_EQ(Read(electronic, CFP006BooksFormOfItem), "a");

    CCFMainMaterial map = Make(CF006Map, CF007Microform, kMicroform);
    EXPECT_EQ(Read(map, CFPCombinedFormOfItem), "(none)");
    EXPECT_EQ(map.Set(CFPCombinedFormOfItem, "ae"), 1);
    EXPECT_EQ(All(map).field008, All(Make(CF006Map, CF007None)).field008);
    EXPECT_EQ(All(map).field007.substr(0, 2), "he");
    EXPECT_EQ(map.Set(CFPCombinedFormOfItem, "a"), 0);
    EXPECT_EQ(All(map).field007, std::string(13, ' '));

    const struct {
        CFType type;
        CFPart part;
    } forms[] = {{CF006Mixed, CFP006MixedFormOfItem},
                 {CF006MusicSound, CFP006MusicSoundFormOfItem},
                 {CF006Continuing, CFP006ContinuingFormOfItem}};
    for (const auto& form : forms) {
        SCOPED_TRACE(form.part);
        CCFMainMaterial material = Make(form.type, CF007Microform, kMicroform);
        EXPECT_EQ(material.Set(CFPCombinedFormOfItem, "cg"), 1);
        EXPECT_EQ(Read(material, form.part), "c");
        EXPECT_EQ(Read(material, CFPCombinedFormOfItem), "cg");
    }
}

TEST_F(MainMaterial, A007ThatIsReplacedLeavesItsOldEndBehind) {
    CCFMainMaterial book = Make(CF006Books, CF007Microform, kMicroform);
    book.Set007Complete("he");
    EXPECT_EQ(All(book).field007, "he");
    EXPECT_EQ(Read(book, CFP007MicroformSMD), "e");
    EXPECT_EQ(Read(book, CFP007MicroformDimensions), "d");
    book.Set007Complete(std::string(60, 'x'));
    EXPECT_EQ(All(book).field007, std::string(24, 'x'));
}

TEST_F(MainMaterial, TextsOfAnyLengthAreSafe) {
    std::mt19937 random(4);
    for (std::size_t length = 0; length <= 60; ++length) {
        SCOPED_TRACE(length);
        std::string bytes(length, ' ');
        const unsigned lowest = length % 2;  // zero bytes in every other text
        for (char& c : bytes) c = static_cast<char>(lowest + random() % (256 - lowest));
        CCFMainMaterial material;
        material.Create(static_cast<CFType>(600 + random() % 12),
                        static_cast<CFType>(700 + random() % 20), bytes, bytes, bytes, bytes,
                        bytes);
        for (int part = -3; part < 2900; ++part) {
            Read(material, static_cast<CFPart>(part));
            if (part % 7 == 0) material.Set(static_cast<CFPart>(part), bytes);
        }
        const Fields all = All(material);
        EXPECT_EQ(all.leader.size(), 24U);
        EXPECT_LE(all.field008.size(), std::min<std::size_t>(length, 40));
        EXPECT_GE(material.GetMARCSize(), all.leader.size() + all.field008.size());
        CCFMainMaterial loaded;
        const std::string stored = Store(material);
        Load(stored, loaded);
        // What stands after a zero byte is not stored.
        if (bytes.find('\0') == bytes.npos) {
            EXPECT_EQ(All(loaded), all);
        }
        EXPECT_EQ(Store(loaded), stored);
    }
}

TEST_F(MainMaterial, BeforeCreateAndAfterEmptyThereIsNothing) {
    CCFMainMaterial material;
    EXPECT_EQ(Read(material, CFPLdrRecordStatus), "(none)");
    EXPECT_EQ(material.Set(CFP008Language, "eng"), 0);
    material = Make(CF006Books, CF007Microform, kMicroform, kBook008, "m#####o##d########");
    material.Empty();
    EXPECT_EQ(All(material), (Fields{std::string(24, ' '), "", "", "m     o  d        "}));
    EXPECT_EQ(Read(material, CFP008Language), "(none)");
    EXPECT_EQ(material.Get006Type(), CF006None);
}

TEST_F(MainMaterial, EqualityLeavesOutTheSecond006) {
    const CCFMainMaterial book = Make(CF006Books, CF007None);
    CCFMainMaterial other = Make(CF006Books, CF007None, "", kBook008, "m#####o##d########");
    EXPECT_TRUE(book.IsEqualTo(other));
    other.CloneFrom(book);
    EXPECT_EQ(All(other), All(book));
    other.Set(CFP006BooksBiography, "a");
    EXPECT_FALSE(book.IsEqualTo(other));
    EXPECT_FALSE(book.IsEqualTo(Make(CF006ComputerFile, CF007None)));
    EXPECT_FALSE(book.IsEqualTo(Make(CF006Books, CF007Text)));
    EXPECT_FALSE(book.IsEqualTo(Make(CF006Books, CF007None, " ")));
}

TEST_F(MainMaterial, GoesIntoARecord) {
    CPmarc record;
    Make(CF006Books, CF007Text, "ta", kBook008, "m#####o##d########").AddToPseudoMARC(record);
    Make(CF006Books, CF007Text, "##", "", "").AddToPseudoMARC(record);
    std::string text;
    record.GetRecordAsCString(text);
    EXPECT_EQ(text,
              "00000000nam a2200000 i 4500\r\n"
              "00000000nam a2200000 i 4500\r\n"
              "006m     o  d        \r\n"
              "007ta\r\n"
              "008261121s2026    enka   j      000 1 eng d\r\n");
}

TEST_F(MainMaterial, ArchiveForm) {
    CCFMainMaterial book = Make(CF006Books, CF007Text, "ta", kBook008, "m#####o##d########");
    book.Set(CFP006BooksIllustrations, "b");
    const std::string numbers("\2\0\0\0\050\0\0\0\132\2\0\0\306\2\0\0", 16);
    const std::string texts =
        "\030"
        "00000nam a2200000 i 4500"
        "\040" +
        kBlock +
        "\050"
        "261121s2026    enka   j      000 1 eng d"
        "\022"
        " b   j      000 1 "
        "\002"
        "ta";
    const std::string stored = "\002\022m     o  d        " + texts + numbers;
    EXPECT_EQ(Store(book), stored);

    CCFMainMaterial loaded;
    Load(stored, loaded);
    EXPECT_EQ(All(loaded), All(book));
    EXPECT_EQ(Store(loaded), stored);
    EXPECT_EQ(Read(loaded, CFP007TextCategory), "t");
    // Behind a block that was loaded there is no blank.
    EXPECT_FALSE(loaded.IsEqualTo(book));
    // Create leaves nothing of it.
    CCFMainMaterial again = loaded;
    again.Create(CF006Books, CF007None, kLeader, kBlock, "", kBook008, "");
    EXPECT_TRUE(again.IsEqualTo(Make(CF006Books, CF007None)));
    EXPECT_EQ(book.GetMARCSize(), 24U + 119 + 1 + 40 + 1 + 2 + 1 + 18);
    EXPECT_EQ(loaded.GetMARCSize(), 24U + 32 + 1 + 40 + 1 + 2 + 1 + 18);

    // A short leader goes out as it came in, whatever stood there before.
    const std::string shortLeader = "\002\000\003abc"s + texts.substr(25) + numbers;
    Load(shortLeader, loaded);
    EXPECT_EQ(Store(loaded), shortLeader);

    Load("\001" + texts + numbers, loaded);
    EXPECT_EQ(All(loaded).second006, "");
    EXPECT_EQ(All(loaded).field008, All(book).field008);

    Load(stored, loaded);
    Load("\003" + texts, loaded);
    EXPECT_EQ(All(loaded).second006, "");
    EXPECT_EQ(All(loaded).leader, All(book).leader);

    for (std::size_t size = 0; size < stored.size(); ++size) {
        EXPECT_THROW(Load(std::string_view(stored).substr(0, size), loaded), CArchiveException)
            << size;
    }
}

TEST_F(MainMaterial, LengthsOfADamagedArchiveAreHeld) {
    std::string bytes = "\002" + std::string(6, '\0') + std::string("\377\377\377\177", 4) +
                        std::string("\0\0\0\200", 4) + std::string(8, '\0');
    CCFMainMaterial material;
    Load(bytes, material);
    EXPECT_EQ(All(material).field007.size(), 24U);
    EXPECT_EQ(All(material).field008, "");
    EXPECT_NO_THROW(Store(material));
}

TEST_F(MainMaterial, Microforms) {
    const auto isMicroform = [](CFType type, std::string_view field006) {
        return CCFMainMaterial::IsMicroform(
            type, CCFMainMaterial::CFOFFSETENTRYARRAYFor006Type(type), field006);
    };
    EXPECT_TRUE(isMicroform(CF006Books, "a     a           "));
    EXPECT_TRUE(isMicroform(CF006Continuing, "s     c"));
    EXPECT_FALSE(isMicroform(CF006Mixed, "p     d           "));
    EXPECT_FALSE(isMicroform(CF006Books, "a"));
    EXPECT_FALSE(isMicroform(CF006Map, "aaaaaaaaaaaaaaaaaa"));
    EXPECT_FALSE(isMicroform(CF006AltDate, "aaaaaaaaaaaaaaaaaa"));
    std::string forms;
    for (const char designation : std::string("abcdefghjz ")) {
        forms += CCFMainMaterial::FormOfItemFrom007Byte1(designation);
    }
    EXPECT_EQ(forms, " aaabbc    ");
}

}  // namespace
