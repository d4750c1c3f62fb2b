#include <zorby/ini/INIProfile.h>
#include <zorby/platform/ProfileFilePort.h>

#include <gtest/gtest.h>

using namespace zorby;

namespace {

class INIProfile : public testing::Test {
protected:
    INIProfile() { SetProfileFilePort(&files); }
    ~INIProfile() override { SetProfileFilePort(nullptr); }

    void Load(const std::string& text) {
        files.texts["f"] = text;
        profile.Initialize("f");
    }

    std::string Text(const char* section, const char* key) const {
        std::string value = "?";
        profile.GetPrivateProfileValue(section, key, "default", value);
        return value;
    }

    int Number(const char* section, const char* key) const {
        int value = -1;
        profile.GetPrivateProfileValue(section, key, 5, value);
        return value;
    }

    MemoryProfileFiles files;
    CINIProfile profile;
};

TEST_F(INIProfile, ReadsLinesAsTheyStand) {
    Load(
        "lost=1\n[ My Section ]\nkey=a=b\nempty=\n=nothing\nword\n [S]\n;note=x\r\n key = v \n"
        "[a=b]\nin=1\n[]\nnameless=2\n[ My Section ]\nkey2=3\nkey=last");
    const std::vector<std::tuple<const char*, const char*, const char*>> expected{
        {" My Section ", "key", "last"},
        {" My Section ", "empty", ""},
        {" My Section ", "", "default"},
        {" My Section ", ";note", "x"},
        {" My Section ", " key ", " v "},
        {" My Section ", "key2", "3"},
        {"My Section", "key", "default"},
        {"a=b", "in", "1"},
        {"", "nameless", "2"},
        {"", "lost", "default"},
        {" my section ", "key", "default"},
        {" My Section ", "word", "default"}};
    for (const auto& [section, key, value] : expected) {
        EXPECT_EQ(Text(section, key), value) << section << "/" << key;
    }
}

TEST_F(INIProfile, OnlyTheCarriageReturnBeforeALineFeedOrTheEndIsAnEnd) {
    Load("[S]\r\na=1\r2\r\r\nb=\r\nc=3\r");
    EXPECT_EQ(Text("S", "a"), "1\r2\r");
    EXPECT_EQ(Text("S", "b"), "");
    EXPECT_EQ(Text("S", "c"), "3");
}

TEST_F(INIProfile, NumbersAreLeadingDigits) {
    Load("[S]\nempty=\nword=x7\nlead= \t-12abc\nlarge=3000000000\nsmall=-3000000000\ntwo=--5\n");
    const std::vector<std::pair<const char*, int>> expected{{"empty", 0},
                                                            {"word", 0},
                                                            {"lead", -12},
                                                            {"two", 0},
                                                            {"absent", 5},
                                                            {"large", 2147483647},
                                                            {"small", -2147483647 - 1}};
    for (const auto& [key, number] : expected) EXPECT_EQ(Number("S", key), number) << key;
    EXPECT_EQ(Number("T", "empty"), 5);
}

TEST_F(INIProfile, SettingsStayInMemory) {
    Load("[S]\na=1\n");
    profile.SetPrivateProfileValue("S", "a", -7);
    profile.SetPrivateProfileValue("T", "b", "two");
    EXPECT_EQ(Text("S", "a"), "-7");
    EXPECT_EQ(Text("T", "b"), "two");
    EXPECT_EQ(files.texts["f"], "[S]\na=1\n");
    profile.Initialize("absent");
    EXPECT_EQ(Text("S", "a"), "default");
}

}  // namespace
