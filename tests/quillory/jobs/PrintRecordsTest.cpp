#include <quillory/jobs/Library.h>
#include <quillory/jobs/PrintRecords.h>
#include <quillory/jobs/Settings.h>
#include <quillory/jobs/StoreJobs.h>
#include <zorby/platform/PortInForce.h>

#include <random>
#include <tests/quillory/jobs/JobsFixture.h>

namespace quillory {
namespace {

constexpr const char* kTwo =
    "=LDR  00000nam\\a2200000\\i\\4500\n=001  n1\n=100  1\\$aMeyer, A.\n=245  10$aOne\n"
    "=650  \\0$aMaps\n=852  \\\\$hMAP 1\n\n"
    "=LDR  00000nam\\a2200000\\i\\4500\n=001  n2\n=245  00$aTwo\n=852  \\\\$hMAP 2\n\n"
    "=LDR  00000nam\\a2200000\\i\\4500\n=001  n3\n=500  \\\\$aNothing\n\n";

// Keeps what it is given.
class KeepingTarget : public PrintTarget {
public:
    Typesetter& Setter() override { return typesetter_; }
    void Begin(const Sheet&) override {}
    void Take(const PrintItem& item, const std::vector<Panel>&) override { items.push_back(item); }
    Status Finish(Reporter&) override { return kStatusWell; }

    std::vector<PrintItem> items;

private:
    FontTypesetter typesetter_;
};

class PrintJobs : public Jobs {
protected:
    PrintRecordsOptions Options(PrintQueue::Kind kind = PrintQueue::kCards) {
        PrintRecordsOptions options;
        options.source.input.files = {File("in.mrk", kTwo)};
        options.choice.kind = kind;
        return options;
    }
    std::vector<PrintItem> Printed(const PrintRecordsOptions& options, Status status) {
        KeepingTarget target;
        EXPECT_EQ(PrintRecords(options, target, reporter_), status);
        return target.items;
    }
    std::vector<PrintItem> Queued(Status status, PrintQueue::Kind kind = PrintQueue::kCards) {
        KeepingTarget target;
        EXPECT_EQ(PrintQueued({kind}, target, reporter_), status);
        return target.items;
    }
    std::string Queue() const { return folder_.Read("home/CardPrntQ0.prn"); }
    void SetQueue(const std::string& bytes) const { folder_.Write("home/CardPrntQ0.prn", bytes); }
};

TEST_F(PrintJobs, RecordsOfFilesAndOfTheStoreAreTheSame) {
    PrintRecordsOptions options = Options();
    const auto cards = Printed(options, kStatusFindings);
    EXPECT_EQ(cards.size(), 6U);
    EXPECT_NE(Said().find("(001 n3): no title (245), and so no cards\n"), std::string::npos);
    options.source.input.where.expression = "not 001 = \"n3\"";
    EXPECT_EQ(Printed(options, kStatusWell), cards);
    AddRecordsToStore({Options().source.input, {}}, reporter_);
    options.source.isStored = true;
    EXPECT_NE(ErrorOf([&] { Printed(options, kStatusWell); }), "");  // both
    options.source.input.files.clear();
    EXPECT_EQ(Printed(options, kStatusWell), cards);
    options.source.ids = {2};
    EXPECT_EQ(Printed(options, kStatusWell).size(), 2U);
}

TEST_F(PrintJobs, TheQueueGivesBackWhatWasAdded) {
    const auto cards = Printed(Options(), kStatusFindings);
    EXPECT_TRUE(Queued(kStatusWell).empty());
    EXPECT_FALSE(IsThere("home/CardPrntQ0.prn"));
    Said();
    EXPECT_EQ(QueueRecords(Options(), reporter_), kStatusFindings);
    EXPECT_NE(Said().find("6 cards added to the queue, which has 6\n"), std::string::npos);
    EXPECT_EQ(Queued(kStatusWell), cards);
    QueueRecords(Options(), reporter_);
    EXPECT_EQ(Queued(kStatusWell).size(), 12U);
    EXPECT_TRUE(Queued(kStatusWell, PrintQueue::kLabels).empty());
    const std::string queue = Queue();
    EXPECT_EQ(queue.substr(0, 17), std::string("\x0C\0\0\0\0QuilCard\1\0\0\0", 17));

    zorby::ScriptedAnswers user;
    user.answers = {false, true};
    const zorby::QuestionsInForce inForce(user);
    EXPECT_EQ(ClearQueue(PrintQueue::kCards, reporter_), kStatusFindings);
    EXPECT_EQ(Queue(), queue);
    EXPECT_EQ(ClearQueue(PrintQueue::kCards, reporter_), kStatusWell);
    EXPECT_FALSE(IsThere("home/CardPrntQ0.prn"));
}

TEST_F(PrintJobs, AnAdditionThatBreaksOffCountsForNothing) {
    PrintRecordsOptions options = Options();
    QueueRecords(options, reporter_);
    const std::string before = Queue();
    options.source.input.where.expression = "has";
    EXPECT_NE(ErrorOf([&] { QueueRecords(options, reporter_); }), "");
    EXPECT_EQ(Queue(), before);
    SetQueue(before + "left over");
    EXPECT_EQ(Queued(kStatusWell).size(), 6U);
    QueueRecords(Options(), reporter_);
    EXPECT_EQ(Queued(kStatusWell).size(), 12U);
    for (const std::size_t size : {0U, 2U, 4U, 9U, 16U}) {
        SCOPED_TRACE(size);
        SetQueue(std::string(4, '\0').append(before.substr(4)).substr(0, size));
        QueueRecords(Options(), reporter_);
        EXPECT_EQ(Queue(), before);
    }
}

TEST_F(PrintJobs, WhatIsNoQueueStaysAsItIs) {
    QueueRecords(Options(), reporter_);
    std::string labels = Queue();
    labels.replace(5, 8, "QuilLabl");
    for (const std::string& bytes :
         {labels, std::string("text of somebody else"), std::string("\xFF\xFF\xFF\xFF", 4),
          std::string("\1\0\0\0", 4), Queue().replace(13, 1, "\2")}) {
        SCOPED_TRACE(testing::PrintToString(bytes.substr(0, 20)));
        SetQueue(bytes);
        EXPECT_NE(
            ErrorOf([&] { Queued(kStatusWell); }).find("CardPrntQ0.prn: the file is no queue"),
            std::string::npos);
        EXPECT_NE(ErrorOf([&] { QueueRecords(Options(), reporter_); }), "");
        EXPECT_EQ(Queue(), bytes);
    }
    folder_.Write("home/LabelPrntQ0.prn", "");
    zorby::SetZorbyProfilePath(folder_.Path("home/").c_str());
    const auto held = zorby::CurrentFilePort().Open(folder_.Path("home/LabelPrntQ0.prn"));
    EXPECT_NE(
        ErrorOf([&] { Queued(kStatusWell, PrintQueue::kLabels); }).find("another program has"),
        std::string::npos);
}

// What is printed of a damaged queue is part of what was added, and nothing is added to it.
TEST_F(PrintJobs, DamageIsNamedAndTheRestIsPrinted) {
    QueueRecords(Options(), reporter_);
    const std::string sound = Queue();
    const auto cards = Queued(kStatusWell);
    std::mt19937 random(9);
    for (int round = 0; round < 60; ++round) {
        std::string bytes = sound;
        const std::size_t at = 17 + random() % (bytes.size() - 17);
        if (round % 3 == 0) {
            bytes.resize(at);
        } else {
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
        }
        SCOPED_TRACE(testing::Message() << round << " at " << at);
        SetQueue(bytes);
        Said();
        const auto printed = Queued(kStatusFindings);
        EXPECT_LT(printed.size(), cards.size());
        for (const PrintItem& card : printed) EXPECT_EQ(std::ranges::count(cards, card), 1);
        EXPECT_NE(Said().find("CardPrntQ0.prn: item "), std::string::npos);
        EXPECT_NE(ErrorOf([&] { QueueRecords(Options(), reporter_); }).find("nothing was added"),
                  std::string::npos);
        EXPECT_EQ(Queue(), bytes);
    }
}

TEST_F(PrintJobs, PagesAreWrittenAndPictured) {
    PageOptions pages{folder_.Path("cards.pdf"), folder_.Path("page-{}.png"), true, 2};
    PageTarget target(pages);
    EXPECT_EQ(PrintRecords(Options(), target, reporter_), kStatusFindings);
    const std::string pdf = folder_.Read("cards.pdf");
    EXPECT_TRUE(pdf.starts_with("%PDF-")) << pdf.substr(0, 20);
    EXPECT_TRUE(pdf.find("%%EOF") != pdf.npos);
    EXPECT_NE(Said().find("6 cards on 3 sheets ("), std::string::npos);
    EXPECT_TRUE(folder_.Read("page-3.png").starts_with("\x89PNG"));
    EXPECT_FALSE(IsThere("page-4.png"));
    EXPECT_NE(ErrorOf([&] { PageTarget({"same", "same"}); }), "");
}

TEST_F(PrintJobs, FontsBreakTextWithoutLosingAny) {
    FontTypesetter typesetter;
    const zorby::CFont font{"Courier", 10};
    EXPECT_NEAR(typesetter.LineHeight(font), 11.6, 2);
    for (const std::string text : {"plain words that are too long for one line of the card",
                                   "Война и мир Война и мир", "שלום עולם שלום עולם שלום",
                                   "onelongwordthatdoesnotendbeforetheline", "\xFF\x01 bad", ""}) {
        SCOPED_TRACE(text);
        const SetText set = typesetter.Break(text, font, 60, 100);
        std::string joined;
        for (std::size_t i = 0; i < set.lines.size(); ++i) {
            EXPECT_LE(set.lines[i].width, i == 0 ? 60.1 : 100.1);
            joined += set.lines[i].text;
        }
        EXPECT_EQ(std::ranges::count_if(joined, [](char c) { return c != ' '; }),
                  std::ranges::count_if(text, [](char c) { return c != ' ' && c != 1; }));
        EXPECT_EQ(set.isRightToLeft, text.starts_with("ש"));
    }
    EXPECT_EQ(typesetter.Missing().count, 0U);
    typesetter.Break("\U000E0FFF \U0010FFFD", font, 60, 100);
    EXPECT_GT(typesetter.Missing().count, 0U);
}

}  // namespace
}  // namespace quillory
