#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/ClockPort.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <vector>

using namespace zorby;

namespace {

TEST(General, IncrementsTheLastNumber) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", ""},         {"ABC", "ABC"},       {"12x", "12x"},    {"ABC099", "ABC100"},
        {"999", "000"},   {"ABC999", "ABC000"}, {"7A9", "7A0"},    {"QRX000001", "QRX000002"},
        {"1299", "1300"}, {"0", "1"},           {"\3779", "\3770"}};
    for (const auto& [before, after] : cases) {
        std::string text = before;
        CGeneral::IncrementNumber(text);
        EXPECT_EQ(text, after) << before;
    }
}

// Texts without a terminator lie in exact heap blocks, so that a sanitizer sees a step too far.
std::unique_ptr<char[]> Unterminated(std::string_view text) {
    auto block = std::make_unique<char[]>(text.size());
    text.copy(block.get(), text.size());
    return block;
}

TEST(General, ReadsNumbersOfFixedWidth) {
    struct NumberCase {
        std::string_view text;
        int length;
        unsigned number;
    };
    const std::vector<NumberCase> cases{
        {"012", 3, 12}, {"   ", 3, 3},    {"abcd", 4, 4},     {"12345", 5, 12345}, {"123456", 6, 0},
        {"", 0, 0},     {"", -1, 0},      {" 7 ", 3, 7},      {"1a2", 3, 1},       {"-1", 2, ~0U},
        {"+", 1, 1},    {"12345", 2, 12}, {{"4\0", 2}, 5, 4}, {{"\0", 1}, 5, 5}};
    for (const NumberCase& test : cases) {
        EXPECT_EQ(CGeneral::UIntFromASCII(Unterminated(test.text).get(), test.length), test.number)
            << test.text;
    }
}

TEST(General, WritesNumbersOfFixedWidth) {
    struct NumberCase {
        unsigned value;
        int width;
        const char* digits;
    };
    const std::vector<NumberCase> cases{
        {7, 3, "007"},   {12345, 3, "123"},        {0, 1, "0"}, {9, 0, ""}, {9, -1, ""},
        {123, 3, "123"}, {~0U, 12, "004294967295"}};
    for (const NumberCase& test : cases) {
        const std::string expected = test.digits;
        const auto target = std::make_unique<char[]>(expected.size());
        CGeneral::UIntToASCII(test.value, target.get(), test.width);
        EXPECT_EQ(std::string(target.get(), expected.size()), expected)
            << test.value << " in " << test.width;
    }
}

TEST(General, BreaksCallNumbersIntoLines) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"FIC SMI v. 2", "FIC\nSMI\nv. 2"},
        {"92/SMI", "92\nSMI"},
        {"v. 2", "v.\n2"},
        {"FIC  SMI", "FIC\n\nSMI"},
        {"FIC /SMI/", "FIC\n\nSMI\n"},
        {"FIC/v./2", "FIC\nv. 2"},
        {"FIC vv. 2", "FIC\nvv.\n2"},
        {"FIC V. 2 Copy 3", "FIC\nV. 2\nCopy 3"},
        {"FIC copy c. 4", "FIC\ncopy c. 4"},
        {"FIC VOL. 1", "FIC\nVOL.\n1"},
        {"", ""},
        {" ", "\n"}};
    for (const auto& [callNumber, lines] : cases) {
        SCOPED_TRACE(callNumber);
        EXPECT_EQ(CGeneral::BreakCallNumber(callNumber, 1), lines);
        std::string withReturns = CGeneral::BreakCallNumber(callNumber, 0);
        EXPECT_EQ(std::erase(withReturns, '\r'), std::count(lines.begin(), lines.end(), '\n'));
        EXPECT_EQ(withReturns, lines);
    }
}

TEST(General, TheMarksOfVolumesAndCopiesAreListed) {
    const char* const* list = CGeneral::CopyVolumeSkipList();
    const std::vector<std::string> marks(list, list + 10);
    EXPECT_EQ(list[10], nullptr);
    EXPECT_EQ(marks.front(), " volume");
    EXPECT_EQ(marks.back(), " C.");
}

TEST(General, CopiesAndCountsUpToAStop) {
    std::array<char, 8> target{};
    CGeneral::StrCpyTill(target.data(), "245$a", '$');
    EXPECT_STREQ(target.data(), "245");
    CGeneral::StrCpyTill(target.data(), "245", '$');
    EXPECT_STREQ(target.data(), "245");
    EXPECT_EQ(CGeneral::CountCharsTill("$a", '$'), 1U);
    EXPECT_EQ(CGeneral::CountCharsTill("245$a", '$'), 4U);
    EXPECT_EQ(CGeneral::CountCharsTill("245", '$'), 3U);
    EXPECT_EQ(CGeneral::CountCharsTill("245", '\0'), 4U);
}

TEST(General, SplitsAtTheFirstCharacter) {
    const std::vector<std::array<const char*, 3>> cases{
        {"a=b=c", "a", "b=c"}, {"=b", "", "b"}, {"b=", "b", ""}, {"b", "b", ""}, {"", "", ""}};
    for (const auto& [source, before, after] : cases) {
        SCOPED_TRACE(source);
        std::string left = source;
        std::string right = "old";
        CGeneral::SplitStringAtChar(left.c_str(), '=', left, right);
        EXPECT_EQ(left, before);
        EXPECT_EQ(right, after);
    }
}

TEST(General, ChangesCharacters) {
    std::string menu = "&File && &Edit";
    CGeneral::RemoveAmpersand(menu);
    EXPECT_EQ(menu, "File  Edit");
    std::string indicators = " 1 ";
    CGeneral::BlankToDot(indicators.data());
    EXPECT_EQ(indicators, "\2671\xB7");
    EXPECT_EQ(CGeneral::IsAllBlanks("") + CGeneral::IsAllBlanks("  "), 2);
    EXPECT_EQ(CGeneral::IsAllBlanks(" \t") + CGeneral::IsAllBlanks("x"), 0);
}

TEST(General, KeepsPrintableASCIIOfForeignText) {
    std::string target = "old";
    CGeneral::TextToQmCharSet("a\351bc", target, 3);
    EXPECT_EQ(target, "ab");
    CGeneral::TextToQmCharSet("a\0\x1F ~\x7F\xFF", target, 7);
    EXPECT_EQ(target, "a ~");
    CGeneral::TextToQmCharSet("a", target, 0);
    EXPECT_EQ(target, "");
}

TEST(General, PutsPlainLettersInPlaceOfOthers) {
    std::string text = "e\xA4";
    CGeneral::TranslateToNonDiacritic(text);
    EXPECT_EQ(text, "e ");
    text.clear();
    CGeneral::TranslateToNonDiacritic(text);
    EXPECT_EQ(text, "");
    for (int byte = 1; byte < 256; ++byte) {
        text.assign(3, static_cast<char>(byte));
        CGeneral::TranslateToNonDiacritic(text);
        EXPECT_EQ(text.size(), 3U) << byte;
    }
}

TEST(General, KnowsSubjectTags) {
    std::vector<int> withSecondIndicator;
    std::vector<int> withSubfield2;
    for (int tag = -1; tag < 1000; ++tag) {
        if (CGeneral::IsSubjectWithSecondInd(tag)) withSecondIndicator.push_back(tag);
        if (CGeneral::IsSubjectWithSubfield2(tag)) withSubfield2.push_back(tag);
    }
    EXPECT_EQ(withSecondIndicator, (std::vector{600, 610, 611, 630, 650, 651}));
    EXPECT_EQ(withSubfield2, (std::vector{600, 610, 611, 630, 650, 651, 654, 655, 656, 657, 658}));
}

TEST(General, TakesTimeByTheClockInForce) {
    SimulatedClock clock;
    SetClockPort(&clock);
    CGeneral::StopWatchBegin();
    CGeneral::DelayForSeconds(90);
    CGeneral::DelayForSeconds(-5);
    clock.Wait(7);
    CGeneral::StopWatchEnd();
    EXPECT_EQ(CGeneral::StopWatchGet(), "90.007000");
    SetClockPort(nullptr);
    const std::int64_t before = CurrentClockPort().Milliseconds();
    CurrentClockPort().Wait(3);
    EXPECT_GE(CurrentClockPort().Milliseconds(), before + 3);
}

TEST(General, TellsOfExhaustedMemoryAndReturns) {
    RecordedMessages messages;
    SetMessagePort(&messages);
    CGeneral::CheckAllocFailure(&messages, "Pmarc.cpp", 12);
    EXPECT_TRUE(messages.messages.empty());
    CGeneral::CheckAllocFailure(nullptr, "Pmarc.cpp", 12);
    SetMessagePort(nullptr);
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.closeRequests, 1);
    EXPECT_EQ(messages.messages[0].title, "Memory Problem");
    EXPECT_EQ(messages.messages[0].icon, MessageIcon::kWarning);
    EXPECT_EQ(messages.messages[0].text,
              "The program ran out of memory and will terminate.\r\nFile: Pmarc.cpp\r\nLine: 12");

    testing::internal::CaptureStderr();
    CGeneral::CheckAllocFailure(nullptr, "Pmarc.cpp", 12);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Memory Problem: The program ran out of memory and will terminate.\n"
              "File: Pmarc.cpp\nLine: 12\n");
}

TEST(General, AsksTheApplication) {
    FixedApplication windows("C:\\Program\\", '\\', true);
    const bool isWindows = std::filesystem::path::preferred_separator == '\\';
    EXPECT_EQ(CGeneral::IsRunningOnNTPlatform() != 0, isWindows);
    SetApplicationPort(&windows);
    EXPECT_TRUE(CGeneral::IsRunningOnNTPlatform());
    SetApplicationPort(nullptr);
    const std::string folder = CurrentApplicationPort().Folder();
    const char* const program = isWindows ? "zorby_tests.exe" : "zorby_tests";
    EXPECT_TRUE(std::filesystem::exists(folder + program)) << folder;
}

}  // namespace
