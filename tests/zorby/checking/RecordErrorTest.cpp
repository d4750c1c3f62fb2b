#include <zorby/archive/MemoryStream.h>
#include <zorby/checking/RecordErrorList.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <tests/zorby/archive/Persisted.h>

using namespace zorby;

namespace {

constexpr auto kNeither = static_cast<E_ERROR_CODE_SUB_TYPE>(2);

class RecordError : public testing::Test {
protected:
    RecordError() { SetDictionaryFindings(0); }
    ~RecordError() override { CGeneral::m_iniUserProfile.Initialize(""); }

    static void SetDictionaryFindings(int value) {
        for (const char* key : {"ZP_RC_NonMARCFieldsOrSubfields", "ZP_RC_TooManyNonRepeatables"}) {
            CGeneral::m_iniUserProfile.SetPrivateProfileValue("Zorby", key, value);
        }
    }

    static std::string Text(int code, int isLong, std::int32_t number = 245, char subfield = '\0',
                            E_ERROR_CODE_SUB_TYPE subType = kNeither) {
        std::string text = "<";
        CRecordError(static_cast<E_ERROR_CODE>(code), subType, number, subfield)
            .GetEnglishMessage(text, isLong);
        return text;
    }
};

TEST_F(RecordError, EveryFindingHasItsOwnWords) {
    for (int code = 110; code <= 133; ++code) {
        EXPECT_NE(Text(code, 0), "<unknown") << code;
        const bool endsInLine = Text(code, 1).ends_with("\r\n");
        EXPECT_EQ(endsInLine, code != 112 && code != 114) << code;
    }
    for (const int code : {0, 90, 109, 134, -1}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(Text(code, 0), "<unknown");
        EXPECT_EQ(Text(code, 1), "<Unknown error code\r\n");
    }
    EXPECT_EQ(Text(122, 0), "<unknown place of pub (control fields).");
    EXPECT_EQ(Text(118, 1), "<This record does not have any notes (500-599).\r\n");
    for (int code = 124; code <= 127; ++code) {
        EXPECT_EQ(Text(code, 0), "<only one main entry is allowed (1xx)") << code;
    }
}

TEST_F(RecordError, ComposedWords) {
    EXPECT_EQ(Text(128, 0, 20, 'a'), "<field 020 $a is too long");
    EXPECT_EQ(Text(128, 1, 20, 'a'),
              "<Field 020  subfield $a is too long.  Subfields can only be 9950 characters long.  "
              "You must remove some text from the subfield before the record can be exported.\r\n");
    EXPECT_EQ(Text(129, 0, 1234), "<1234 is too long");
    EXPECT_EQ(Text(129, 1, 5),
              "<Field 005 is too long.  Fields can only be 9950 characters long.  You must remove "
              "some text from the field before the record can be exported.\r\n");
    EXPECT_EQ(Text(130, 0, 0), "<record is too long");
    EXPECT_EQ(Text(130, 1, 0).find("<This record is too long.  Records can only be 0 char"), 0U);
    EXPECT_EQ(Text(133, 0), "<245 is not a repeatable MARC field");
    EXPECT_EQ(
        Text(133, 1, 20, 'a'),
        "<Subfield 020 $a is not a repeatable MARC subfield.  Remove the extra subfield.\r\n");
    EXPECT_EQ(Text(132, 1, 650, 'x'),
              "<Subfield 650 $x is not a MARC subfield.  Check this subfield to see if it should "
              "be changed to a different subfield.\r\n");
    EXPECT_EQ(Text(132, 1, 9),
              "<Field 009 is not a MARC field.  Check this field to see if it should be changed to "
              "a different field.\r\n");
}

TEST_F(RecordError, PrefixGoesWithTheMessage) {
    EXPECT_EQ(Text(110, 0, 245, 'a', EST_Error), "<E: no title (245 $a)");
    EXPECT_EQ(Text(118, 0, 0, '\0', EST_Warning), "<W: no notes (500-599)");
    EXPECT_EQ(Text(112, 1, 0, '\0', EST_Error),
              "<Export error:\tNo place of publication (260 $a).");
    EXPECT_EQ(Text(112, 1, 0, '\0', EST_Warning), "<Warning:\tNo place of publication (260 $a).");
    for (const int value : {2, 1, 3}) {
        SetDictionaryFindings(value);
        for (const int code : {132, 133}) {
            EXPECT_EQ(Text(code, 1, 1, 'a', EST_Error) == "<", value == 2)
                << code << ", setting " << value;
        }
    }
    EXPECT_TRUE(CRecordError(EC_NoTitle, EST_Error, 0, 0).IsError());
    EXPECT_FALSE(CRecordError(EC_NoTitle, EST_Warning, 0, 0).IsError());
}

TEST_F(RecordError, ListIsWalkedInOrder) {
    CRecordErrorList list;
    EXPECT_EQ(list.GetFirst(), nullptr);
    list.Add(EC_NoNotes, EST_Warning, 500, '\0');
    list.Add(EC_NoTitle, EST_Error, 245, 'a');
    for (int walk = 0; walk < 2; ++walk) {
        SCOPED_TRACE(walk);
        EXPECT_EQ(list.GetFirst()->GetCode(), EC_NoNotes);
        EXPECT_EQ(list.GetNext()->GetSubfield(), 'a');
        EXPECT_EQ(list.GetNext(), nullptr);
        EXPECT_EQ(list.GetNext(), nullptr);
    }
    list.Clear();
    EXPECT_EQ(list.GetFirst(), nullptr);
}

TEST_F(RecordError, ArchiveHoldsTheCountAlone) {
    CRecordErrorList list;
    list.Add(EC_NoNotes, EST_Warning, 500, '\0');
    list.Add(EC_NoTitle, EST_Error, 245, 'a');
    const std::string stored = Store(list);
    EXPECT_EQ(stored, std::string("\2\0\0\0", 4));
    EXPECT_EQ(Load(stored + "more", list), 4U);
    ASSERT_EQ(list.GetSize(), 4);
    EXPECT_EQ(list.GetFirst()->GetCode(), EC_NoNotes);
    EXPECT_THROW(Load("\2", list), CArchiveException);
    Load("\377\377\377\377", list);
    EXPECT_EQ(list.GetSize(), 4);
    Load("\377\377\377\177", list);
    EXPECT_EQ(list.GetSize(), 1'000'004);
}

}  // namespace
