#include <zorby/checking/DialogWarningSettings.h>
#include <zorby/checking/ErrorCodeBits.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <numeric>

using namespace zorby;

namespace {

class ErrorPolicy : public testing::Test {
protected:
    ~ErrorPolicy() override {
        CGeneral::m_iniUserProfile.Initialize("");
        SetRadioDialogPort(nullptr);
    }

    static void Set(ProfileKey key, int value) {
        CGeneral::m_iniUserProfile.SetPrivateProfileValue("Zorby", FindProfileKey(key)->name,
                                                          value);
    }

    static int Verdict(std::initializer_list<int> codes) {
        CRecordErrorList list;
        for (const int code : codes) list.Add(static_cast<E_ERROR_CODE>(code), EST_Warning, 0, 0);
        return CErrorCodeBits(list).OKWarningError(CZorbyProfileBits());
    }

    // The codes of verdict `wanted`, as text.
    static std::string Codes(int wanted) {
        std::string codes;
        for (int code = -1; code <= 300; ++code) {
            if (Verdict({code}) == wanted) codes += std::to_string(code) + " ";
        }
        return codes;
    }
};

constexpr const char* kImport =
    "10 11 12 13 14 20 21 22 23 24 25 26 27 28 29 30 31 32 40 41 42 43 44 45 46 47 48 49 50 "
    "70 71 72 73 84 85 90 91 92 93 94 95 96 97 98 99 100 101 102 103 104 105 ";
constexpr const char* kAlways = "110 111 124 125 126 127 128 129 130 ";

TEST_F(ErrorPolicy, Defaults) {
    EXPECT_EQ(Codes(2), kAlways);
    EXPECT_EQ(Codes(1), kImport);
    EXPECT_EQ(Verdict({}), 0);
    EXPECT_EQ(Verdict({114, 132}), 0);
    EXPECT_EQ(Verdict({114, 50}), 1);
    EXPECT_EQ(Verdict({50, 110}), 2);
}

TEST_F(ErrorPolicy, EachKeyHasItsCodes) {
    const std::pair<ProfileKey, int> kKeys[] = {
        {ZP_RC_No260a, 112},
        {ZP_RC_No260b, 113},
        {ZP_RC_No260c, 114},
        {ZP_RC_No300a, 115},
        {ZP_RC_No300b, 116},
        {ZP_RC_No300c, 117},
        {ZP_RC_NoNotes, 118},
        {ZP_RC_NoSubjects, 119},
        {ZP_RC_CFDate, 120},
        {ZP_RC_CFRT, 121},
        {ZP_RC_CFPoP, 122},
        {ZP_RC_NoHoldings, 123},
        {ZP_RC_TitleInUpperCase, 131},
        {ZP_RC_NonMARCFieldsOrSubfields, 132},
        {ZP_RC_TooManyNonRepeatables, 133},
    };
    Set(ZP_RecordViewerShowImportRepairLog, 2);
    for (const auto& [key, code] : kKeys) {
        SCOPED_TRACE(code);
        Set(key, 1);
        EXPECT_EQ(Codes(1), std::to_string(code) + " ");
        EXPECT_EQ(Verdict({code, 110}), 2);
        Set(key, 0);
        EXPECT_EQ(Verdict({code}), 2);
        for (const int ignore : {3, -1, 2}) {
            SCOPED_TRACE(ignore);
            Set(key, ignore);
            EXPECT_EQ(Codes(1), "");
            EXPECT_EQ(Codes(2), kAlways);
        }
    }
    Set(ZP_RC_BI_ExtraField, 0);
    EXPECT_EQ(Codes(2), kAlways);
    Set(ZP_RecordViewerShowImportRepairLog, 0);
    EXPECT_EQ(Codes(2), std::string(kImport) + kAlways);
}

TEST_F(ErrorPolicy, TheProfileIsASnapshot) {
    CRecordErrorList list;
    list.Add(EC_NoNotes, EST_Warning, 0, 0);
    const CZorbyProfileBits before;
    Set(ZP_RC_NoNotes, 0);
    EXPECT_EQ(CErrorCodeBits(list).OKWarningError(before), 0);
    EXPECT_EQ(CErrorCodeBits(list).OKWarningError(CZorbyProfileBits()), 2);
}

TEST_F(ErrorPolicy, StoredForm) {
    CRecordErrorList list;
    for (const int code : {0, 9, 110, 199, 200, -1, INT32_MAX}) {
        list.Add(static_cast<E_ERROR_CODE>(code), EST_Error, 0, 0);
    }
    std::array<unsigned char, 25> expected{};
    expected[0] = 1;
    expected[1] = 2;
    expected[13] = 0x40;
    expected[24] = 0x80;
    std::array<unsigned char, 25> bytes{};
    CErrorCodeBits(list).ToBuffer(bytes.data(), 200);
    EXPECT_EQ(bytes, (std::array<unsigned char, 25>{}));
    CErrorCodeBits(list).ToBuffer(bytes.data(), 25);
    EXPECT_EQ(bytes, expected);

    std::array<unsigned char, 25> again{};
    const CErrorCodeBits restored(bytes.data(), 200);
    restored.ToBuffer(again.data(), 25);
    EXPECT_EQ(again, expected);
    EXPECT_EQ(restored.OKWarningError(CZorbyProfileBits()), 2);
    const CErrorCodeBits none(bytes.data(), 25);
    std::array<unsigned char, 25> untouched{1, 2, 3};
    none.ToBuffer(untouched.data(), 25);
    EXPECT_EQ(untouched, (std::array<unsigned char, 25>{1, 2, 3}));
    EXPECT_EQ(none.OKWarningError(CZorbyProfileBits()), 0);
}

std::string Values(const CDialogWarningSettings& settings) {
    std::string values;
    for (int i = 0; i < kWarningGroups; ++i) values += std::to_string(settings.GetValue(i));
    return values;
}

TEST_F(ErrorPolicy, DialogDefaults) {
    CDialogWarningSettings settings;
    EXPECT_EQ(settings.GetBasicTLCCustom(), WP_Basic);
    EXPECT_EQ(settings.GetValue(18), -1);
    settings.SetBasicDefaults();
    EXPECT_EQ(Values(settings), "0000222222222222222");
    settings.SetTLCDefaults();
    EXPECT_EQ(Values(settings), "0000200022222222022");
    settings.SetCustomDefaults();
    EXPECT_EQ(Values(settings), "0000000000000000000");
    EXPECT_EQ(settings.GetValue(19), -1);
}

// One digit a group: which options are open, error 1, warning 2, ignore 4.
std::string OpenOptions(const RadioDialog& dialog) {
    std::string open;
    for (const RadioGroup& group : dialog.groups) {
        int bits = 0;
        for (std::size_t i = 0; i < group.options.size(); ++i) {
            if (group.options[i].isEnabled) bits |= 1 << i;
        }
        open += std::to_string(bits);
    }
    return open;
}

TEST_F(ErrorPolicy, DialogLeavesWhatThePolicyLeaves) {
    ScriptedRadioDialog person;
    SetRadioDialogPort(&person);
    person.answers = {{"No &name", 2}, {"No no&tes", 1}, {"Missing title statement", 2}};
    const struct {
        int policy;
        const char* line;
        const char* open;
        const char* values;
    } kCases[] = {
        {WP_Basic, "Active Error Checking Settings: Basic", "1111444444444444444",
         "0000222222222222222"},
        {WP_TLC, "Active Error Checking Settings: TLC", "1111711177777777177",
         "0000222222222122222"},
        {7, "Active Error Checking Settings: Custom", "1111777777777777777", "0000222222222122222"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.line);
        CDialogWarningSettings settings;
        settings.SetBasicDefaults();
        settings.SetBasicTLCCustom(c.policy);
        person.confirms = false;
        EXPECT_EQ(settings.DoModal(), CDialogWarningSettings::kCancelled);
        EXPECT_EQ(Values(settings), "0000222222222222222");
        person.confirms = true;
        EXPECT_EQ(settings.DoModal(), CDialogWarningSettings::kConfirmed);
        EXPECT_EQ(person.shown.policy, c.line);
        EXPECT_EQ(OpenOptions(person.shown), c.open);
        EXPECT_EQ(Values(settings), c.values);
        EXPECT_EQ(person.shown.explanation.empty(), c.policy != WP_TLC);
    }
    SetRadioDialogPort(nullptr);
    EXPECT_EQ(CDialogWarningSettings().DoModal(), CDialogWarningSettings::kCancelled);
}

TEST_F(ErrorPolicy, GroupsAndPolicyTableAgree) {
    for (const WarningGroupRow& group : WarningGroups()) {
        if (group.key < 0) continue;
        const std::string before = Codes(2);
        Set(static_cast<ProfileKey>(group.key), 0);
        EXPECT_NE(Codes(2), before) << group.label;
    }
}

}  // namespace
