#include <zorby/platform/PortInForce.h>
#include <zorby/queues/CardFile.h>
#include <zorby/queues/LabelFile.h>
#include <zorby/settings/Profile.h>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <string>
#include <vector>

namespace zorby {
namespace {

constexpr const char* kCards = "data/CardPrntQ7.prn";

// The seventh user, with files in memory.
class QueueFiles : public testing::Test {
protected:
    QueueFiles() {
        SetZorbyProfilePath("data/");
        ZorbyProfileChangeUserID(7);
    }
    ~QueueFiles() override {
        SetZorbyProfilePath("");
        ZorbyProfileChangeUserID(0);
    }

    // The bytes of the card queue.
    std::string& Bytes() {
        auto& file = files_.files[kCards];
        if (!file) file = std::make_shared<MemoryFiles::File>();
        return file->bytes;
    }

    MemoryFiles files_;
    FilesInForce filesInForce_{files_};
    ScriptedAnswers user_;
    QuestionsInForce userInForce_{user_};
};

TEST_F(QueueFiles, EachUserHasFilesForCardsAndLabels) {
    EXPECT_EQ(CCardFile::GetFilePath(), kCards);
    EXPECT_EQ(CLabelFile::GetFilePath(), "data/LabelPrntQ7.prn");
    EXPECT_FALSE(CCardFile::PrintQueueExists());
    CCardFile cards;
    ASSERT_EQ(cards.Open(nullptr), 1);
    EXPECT_TRUE(CCardFile::PrintQueueExists());
    EXPECT_FALSE(CLabelFile::PrintQueueExists());
    ZorbyProfileChangeUserID(8);
    EXPECT_FALSE(CCardFile::PrintQueueExists());
    EXPECT_EQ(CLabelFile::GetFilePath(), "data/LabelPrntQ8.prn");
}

TEST_F(QueueFiles, AFileOfFewerThanFourBytesIsNew) {
    for (const std::string before : {"", "\1", "\1\2", "\1\2\3"}) {
        SCOPED_TRACE(before.size());
        Bytes() = before;
        CCardFile cards;
        ASSERT_EQ(cards.Open(nullptr), 1);
        EXPECT_EQ(cards.GetNumberOfPhysicalCards(), 0);
        EXPECT_EQ(cards.GetPosition(), 4U);
        EXPECT_EQ(Bytes(), std::string(4, '\0'));
    }
}

TEST_F(QueueFiles, TheNumberIsFourBytesAndTheRestIsTheHosts) {
    struct Case {
        std::string bytes;
        int count;
    };
    const std::vector<Case> cases{{std::string("\2\1\0\0", 4), 258},
                                  {"\xFF\xFF\xFF\xFF rest", -1},
                                  {std::string("\0\0\0\x80", 4), -2147483647 - 1},
                                  {std::string("\3\0\0\0and more", 12), 3}};
    for (const Case& row : cases) {
        SCOPED_TRACE(row.count);
        Bytes() = row.bytes;
        CCardFile cards;
        ASSERT_EQ(cards.Open(nullptr), 1);
        EXPECT_EQ(cards.GetNumberOfPhysicalCards(), row.count);
        cards.Seek(9);
        cards.SeekToFirstCard();
        EXPECT_EQ(cards.GetPosition(), 4U);
        EXPECT_EQ(Bytes(), row.bytes);
        const int fewer = row.count / 2;
        cards.SetNumberOfPhysicalCards(fewer);
        EXPECT_EQ(cards.GetPosition(), 4U);
        EXPECT_EQ(Bytes().substr(4), row.bytes.substr(4));
        EXPECT_EQ(cards.GetNumberOfPhysicalCards(), fewer);
    }
}

TEST_F(QueueFiles, LabelsAreKeptInTheSameWay) {
    CLabelFile labels;
    ASSERT_EQ(labels.Open(nullptr), 1);
    labels.SetNumberOfPhysicalLabels(5);
    labels.SeekToFirstLabel();
    labels.Write("x", 1);
    EXPECT_EQ(labels.GetNumberOfPhysicalLabels(), 5);
    EXPECT_EQ(files_.files["data/LabelPrntQ7.prn"]->bytes, std::string("\5\0\0\0x", 5));
}

TEST_F(QueueFiles, KeepTheNameOfADevice) {
    CCardFile cards;
    ASSERT_EQ(cards.Open(nullptr), 1);
    cards.SeekToFirstCard();
    {
        CArchive archive(cards, CArchive::store);
        cards.SaveDeviceName("Front desk", &archive);
    }
    cards.SaveDeviceName("unused", nullptr);
    EXPECT_EQ(Bytes(), std::string("\0\0\0\0\x0A", 5) + "Front desk");
    cards.SeekToFirstCard();
    EXPECT_EQ(cards.GetDeviceName(nullptr), "Front desk");
    cards.Seek(4);
    CArchive archive(cards, CArchive::load);
    EXPECT_EQ(cards.GetDeviceName(&archive), "Front desk");
    EXPECT_THROW(cards.GetDeviceName(nullptr), CArchiveException);  // at the end of the file
    Bytes() = "\1" + std::string(3, '\0') + "\xFF\xFF\xFF\xFF\xFF\xFF\x7Fxy";
    cards.Seek(4);
    EXPECT_THROW(cards.GetDeviceName(nullptr), CArchiveException);  // a length of 2 GB
}

TEST_F(QueueFiles, AFileThatIsInUseIsNeitherOpenedNorDeleted) {
    CCardFile first;
    CCardFile second;
    ASSERT_EQ(first.Open(nullptr), 1);
    CFileException failure;
    EXPECT_EQ(second.Open(&failure), 0);
    EXPECT_EQ(failure.fileName, kCards);
    EXPECT_EQ(failure.systemError, EWOULDBLOCK);
    EXPECT_EQ(second.Open(nullptr), 0);
    EXPECT_FALSE(second.IsOpen());
    EXPECT_THROW(second.GetNumberOfPhysicalCards(), CArchiveException);
    user_.answers = {true};
    CCardFile::DeleteFile();
    EXPECT_TRUE(CCardFile::PrintQueueExists());
    EXPECT_EQ(first.Open(nullptr), 1);  // the same object again
    first.Close();
    EXPECT_EQ(second.Open(nullptr), 1);
}

TEST_F(QueueFiles, AreDeletedOnlyAfterAYes) {
    for (const bool answer : {false, true}) {
        ASSERT_EQ(CCardFile().Open(nullptr), 1);
        ASSERT_EQ(CLabelFile().Open(nullptr), 1);
        user_.answers = {answer, answer};
        CCardFile::DeleteFile();
        CLabelFile::DeleteFile();
        EXPECT_EQ(CCardFile::PrintQueueExists(), !answer);
        EXPECT_EQ(CLabelFile::PrintQueueExists(), !answer);
    }
    CCardFile::DeleteFile();  // of a file that is not there
    ASSERT_EQ(user_.questions.size(), 5U);
    EXPECT_EQ(user_.questions[2], "Are you sure you want to delete the card queue?");
    EXPECT_EQ(user_.questions[3], "Are you sure you want to delete the label queue?");
}

}  // namespace
}  // namespace zorby
