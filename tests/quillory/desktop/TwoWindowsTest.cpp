#include <quillory/desktop/Document.h>
#include <quillory/desktop/HoldBar.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/StoredRecords.h>
#include <quillory/store/RecordHistory.h>
#include <quillory/store/RecordLocks.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Summary.h>

#include <QPlainTextEdit>
#include <QPushButton>
#include <filesystem>
#include <tests/quillory/desktop/WindowsTest.h>

namespace quillory {
namespace {

// Two windows, each with a person, on a store of three books.
class TwoWindowsTest : public WindowsTest {
protected:
    void SetUp() override {
        std::filesystem::remove_all(JournalFolder());
        std::filesystem::remove(StorePath());
        const Database database = OpenStore();
        RecordStore store(database);
        for (const char* title : {"One", "Two", "Three"}) {
            store.Add({{"", title, "am"}, Book(title)});
        }
        one_ = Opened();
        other_ = Opened();
    }

    std::unique_ptr<MainWindow> Opened() {
        auto window = NewWindow();
        EXPECT_TRUE(OpenIn(*window, StorePath()));
        return window;
    }
    static void TypeAndTake(MainWindow& window, const QString& text) {
        TypeAt(window, "245 $c", text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    static void Save(MainWindow& window) { Press(window, Qt::Key_S, Qt::ControlModifier); }
    static std::string BytesOf(std::int64_t id) {
        const Database database = OpenStore();
        const auto stored = RecordStore(database).Find(id);
        return stored ? stored->bytes : "none";
    }
    static bool IsStored(std::int64_t id, const std::string& text) {
        return BytesOf(id).find(text) != std::string::npos;
    }
    static QString State(MainWindow& window, int row, int role = Qt::DisplayRole) {
        return window.List().model()->index(row, 0).data(role).toString();
    }
    static QString Title(MainWindow& window, int row) {
        return window.List().model()->index(row, 1).data().toString();
    }
    // What is kept in the file that a message names.
    static std::string KeptApart(MainWindow& window) {
        const QString said = window.Messages().Text();
        const QString folder = QString::fromStdString(JournalFolder().string());
        Input kept(said.mid(said.indexOf(folder)).chopped(1).toStdString());
        return std::string(ReadWhole(kept));
    }
    template <class Condition>
    static bool Comes(Condition condition) {
        return QTest::qWaitFor(condition, 8000);
    }

    std::unique_ptr<MainWindow> one_;
    std::unique_ptr<MainWindow> other_;
};

TEST_F(TwoWindowsTest, EachEditsARecordOfItsOwnAndBothAreSaved) {
    other_->ShowRecord(1);
    TypeAndTake(*one_, " First");
    TypeAndTake(*other_, " Second");
    EXPECT_TRUE(Comes([&] { return State(*other_, 0).contains(u'⊘'); }));
    EXPECT_TRUE(State(*other_, 0, Qt::AccessibleTextRole).contains("being changed by"));
    EXPECT_TRUE(Comes([&] { return State(*one_, 1).contains(u'⊘'); }));
    EXPECT_TRUE(State(*one_, 0).contains(u'✎'));
    EXPECT_TRUE(one_->Hold().Text().isEmpty());
    Save(*one_);
    Save(*other_);
    EXPECT_TRUE(IsStored(1, "Jane Doe. First"));
    EXPECT_TRUE(IsStored(2, "Jane Doe. Second"));
    EXPECT_TRUE(Comes([&] { return !State(*one_, 1).contains(u'⊘'); }));
    EXPECT_FALSE(one_->OpenDocument()->IsChanged());
    EXPECT_TRUE(one_->Messages().Text().isEmpty());
}

TEST_F(TwoWindowsTest, ARecordThatTheOtherChangesIsOnlyReadUntilItIsSaved) {
    TypeAt(*one_, "245 $c", " First");  // and the text stays open
    EXPECT_TRUE(Comes([&] { return other_->Hold().Text().contains("Record 1 is being changed"); }));
    EXPECT_TRUE(other_->Hold().Text().contains(
        "program " + QString::number(QCoreApplication::applicationPid()) + ", since "));
    EXPECT_FALSE(other_->Hold().TakeButton().isVisible());
    Activate(*other_);
    other_->Table().GoTo(*ParsePlace("245 $c"));
    Press(*other_, Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), "Mine");
    Press(*other_, Qt::Key_Delete, Qt::ControlModifier);
    Press(*other_, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    Press(*other_, Qt::Key_T, Qt::ControlModifier);
    QTest::keyClicks(&other_->Lines().Box(), "Mine");
    Press(*other_, Qt::Key_T, Qt::ControlModifier);
    other_->CheckNow();
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe.");
    EXPECT_FALSE(other_->OpenDocument()->IsChanged());
    other_->Table().GoTo(*ParsePlace("245 $c"));
    const Place place = other_->Table().CurrentPlace();
    Save(*one_);
    EXPECT_TRUE(Comes([&] { return other_->Hold().Text().isEmpty(); }));
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe. First");
    EXPECT_EQ(other_->Table().CurrentPlace(), place);
    TypeAndTake(*other_, " Second");
    Save(*other_);
    EXPECT_TRUE(IsStored(1, "Jane Doe. First Second"));
}

TEST_F(TwoWindowsTest, NoKeyIsLostWhereTypingComesTooLate) {
    TypeAt(*other_, "245 $c", " Mine ");
    RecordLocks locks(StorePath());
    ASSERT_TRUE(locks.Lock(1));
    std::size_t typed = 0;
    QTimer typist;
    QObject::connect(&typist, &QTimer::timeout, [&] {
        QWidget* box = QApplication::focusWidget();
        if (box == &other_->Table() || !other_->Table().isAncestorOf(box)) return;
        // Comes when the timers that are due now have done their work.
        QMetaObject::invokeMethod(
            box,
            [&typed, box] {
                QTest::keyClick(box, Qt::Key_X);
                ++typed;
            },
            Qt::QueuedConnection);
    });
    typist.start(0);
    EXPECT_TRUE(Comes([&] { return !other_->Messages().Text().isEmpty(); }));
    typist.stop();
    EXPECT_GT(typed, 0U);
    const std::string kept = KeptApart(*other_);
    EXPECT_NE(kept.find(" Mine " + std::string(typed, 'x') + '\n'), kept.npos) << typed << kept;
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe.");
}

TEST_F(TwoWindowsTest, ARecordIsFreeWhenItsChangesAreUndoneOrItsWindowCloses) {
    const auto isHeld = [&] { return !other_->Hold().Text().isEmpty(); };
    const auto isFree = [&] { return other_->Hold().Text().isEmpty(); };
    TypeAndTake(*one_, " First");
    EXPECT_TRUE(Comes(isHeld));
    Press(*one_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Comes(isFree));
    TypeAt(*one_, "245 $c", " Escaped");
    EXPECT_TRUE(Comes(isHeld));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(Comes(isFree));
    TypeAndTake(*one_, " Discarded");
    EXPECT_TRUE(Comes(isHeld));
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->button(QMessageBox::Discard)->click();
    });
    EXPECT_TRUE(one_->close());
    EXPECT_TRUE(Comes(isFree));
    TypeAndTake(*other_, " Second");
    Save(*other_);
    EXPECT_TRUE(IsStored(1, "Jane Doe. Second"));
}

TEST_F(TwoWindowsTest, WhatTheOtherSavesIsShownHere) {
    other_->ShowRecord(1);
    one_->ShowRecord(1);
    TypeAt(*one_, "245 $a", " and more");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Press(*one_, Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    Save(*one_);
    EXPECT_TRUE(Comes([&] { return Cell(*other_, "245 $a").contains("and more"); }));
    EXPECT_TRUE(Title(*other_, 1).contains("and more"));
    EXPECT_TRUE(Comes([&] { return other_->List().model()->rowCount() == 4; }));
    EXPECT_EQ(other_->Current(), 1U);
    TypeAndTake(*other_, " Second");  // what is shown is what is changed
    Save(*other_);
    EXPECT_TRUE(IsStored(2, "Two / and more"));
    EXPECT_TRUE(IsStored(2, "Jane Doe. Second"));
}

// The other one saves in the very second in which a person begins to type here.
TEST_F(TwoWindowsTest, WhatIsTypedTooLateIsKeptApartAndOverwritesNothing) {
    Activate(*one_);
    {
        StoredRecords quick;
        Item item;
        quick.ReadToEdit(0, item);
        Record record = item.record;
        record.fields.back().content = "10\037aAnother";
        quick.Replace(0, record);
        quick.Save();
    }
    TypeAndTake(*one_, " Late");
    EXPECT_TRUE(Comes([&] { return Cell(*one_, "245 $a") == "Another"; }));
    EXPECT_TRUE(one_->Messages().Text().contains("record 1: another program has changed it"))
        << one_->Messages().Text().toStdString();
    EXPECT_NE(KeptApart(*one_).find("Jane Doe. Late"), std::string::npos);
    EXPECT_FALSE(one_->OpenDocument()->IsChanged());
    TypeAt(*one_, "245 $a", " title");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Save(*one_);
    EXPECT_TRUE(IsStored(1, "Another title"));
}

TEST_F(TwoWindowsTest, TextThatCantBeReadYetHoldsItsRecordToo) {
    Press(*one_, Qt::Key_T, Qt::ControlModifier);
    one_->Lines().Box().setFocus();
    QTest::keyClicks(&one_->Lines().Box(), "no line of a record");
    EXPECT_TRUE(Comes([&] { return !other_->Hold().Text().isEmpty(); }));
    Press(*one_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Comes([&] { return other_->Hold().Text().isEmpty(); }));
}

TEST_F(TwoWindowsTest, WhenOneDiesItsRecordIsFreeAndItsChangesComeToTheNextWindow) {
    other_->ShowRecord(1);
    TypeAndTake(*other_, " Second");
    TypeAt(*one_, "245 $c", " First");
    Rest();
    EXPECT_TRUE(Comes([&] { return State(*other_, 0).contains(u'⊘'); }));
    Crash(one_);
    EXPECT_TRUE(Comes([&] { return !State(*other_, 0).contains(u'⊘'); }));
    auto next = NewWindow();
    QString question;
    Answer("&Take Up", &question);
    ASSERT_TRUE(OpenIn(*next, StorePath()));
    EXPECT_TRUE(question.contains("Changed records: 1")) << question.toStdString();
    EXPECT_EQ(Cell(*next, "245 $c"), "Jane Doe. First");
    EXPECT_TRUE(Comes([&] { return State(*other_, 0).contains(u'⊘'); }));
    Save(*next);
    Save(*other_);
    EXPECT_TRUE(IsStored(1, "Jane Doe. First"));
    EXPECT_TRUE(IsStored(2, "Jane Doe. Second"));
}

TEST_F(TwoWindowsTest, WhatADeadWindowLeftIsTakenUpInOneThatIsOpen) {
    other_->ShowRecord(1);
    TypeAndTake(*other_, " Second");
    TypeAt(*one_, "245 $c", " First");
    Rest();
    EXPECT_TRUE(other_->LeftByOthers().Text().isEmpty());
    Crash(one_);
    ASSERT_TRUE(Comes([&] { return !other_->LeftByOthers().Text().isEmpty(); }));
    TypeAt(*other_, "245 $a", " and more");  // and the text stays open
    other_->LeftByOthers().ActionButton().click();
    EXPECT_TRUE(other_->LeftByOthers().Text().isEmpty());
    EXPECT_EQ(other_->Current(), 0U);
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe. First");
    EXPECT_EQ(other_->OpenDocument()->File().Changes(), 2U);
    Press(*other_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe.");
    Press(*other_, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe. First");
    Rest();
    Crash(other_);  // which has kept both
    auto next = NewWindow();
    QString question;
    Answer("&Take Up", &question);
    ASSERT_TRUE(OpenIn(*next, StorePath()));
    EXPECT_TRUE(question.contains("Changed records: 2")) << question.toStdString();
    Save(*next);
    EXPECT_TRUE(IsStored(1, "Jane Doe. First"));
    EXPECT_TRUE(IsStored(2, "Two / and more"));
    EXPECT_TRUE(IsStored(2, "Jane Doe. Second"));
}

TEST_F(TwoWindowsTest, WhatCanBeUndoneStaysUntilAnotherSavesTheRecord) {
    TypeAndTake(*other_, " Mine");
    Save(*other_);
    ASSERT_TRUE(Comes([&] { return Cell(*one_, "245 $c") == "Jane Doe. Mine"; }));
    TypeAndTake(*one_, " Theirs");
    ASSERT_TRUE(Comes([&] { return !other_->Hold().Text().isEmpty(); }));
    Press(*one_, Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(Comes([&] { return other_->Hold().Text().isEmpty(); }));
    Press(*other_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe.");
    Press(*other_, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    Rest();  // until the record is let go
    ASSERT_TRUE(Comes([&] { return one_->Hold().Text().isEmpty(); }));
    TypeAndTake(*one_, " Theirs");
    Save(*one_);
    EXPECT_TRUE(Comes([&] { return other_->Messages().Text().contains("can't be undone"); }));
    EXPECT_EQ(Cell(*other_, "245 $c"), "Jane Doe. Mine Theirs");
}

TEST_F(TwoWindowsTest, AllThatSeveralWindowsLeftIsOfferedAndOneChangeOfARecordIsTakenUp) {
    TypeAt(*one_, "245 $c", " First");
    Rest();
    Crash(one_);
    EXPECT_TRUE(Comes([&] { return !State(*other_, 0).contains(u'⊘'); }));
    TypeAndTake(*other_, " Second");
    other_->ShowRecord(2);
    TypeAt(*other_, "245 $c", " Third");
    Rest();
    Crash(other_);
    auto next = NewWindow();
    QString question;
    Answer("&Take Up", &question);
    ASSERT_TRUE(OpenIn(*next, StorePath()));
    EXPECT_TRUE(question.contains("Changed records: 3")) << question.toStdString();
    EXPECT_EQ(next->OpenDocument()->File().Changes(), 2U);
    const std::string apart = KeptApart(*next);
    Save(*next);
    EXPECT_TRUE(IsStored(3, "Jane Doe. Third"));
    for (const char* word : {" First", " Second"}) {
        const bool isApart = apart.find(word) != std::string::npos;
        EXPECT_NE(isApart, IsStored(1, word)) << word;
    }
}

}  // namespace
}  // namespace quillory
