#include <quillory/desktop/Document.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/store/RecordStore.h>
#include <quillory/store/Schema.h>

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

class StoreTest : public DeskTest {
protected:
    void SetUp() override {
        std::filesystem::remove(StorePath());
        file_.emplace(Book("Rivers") + Book("Lakes"), ".mrc");
        window_ = NewWindow();
        Press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_NE(window_->OpenDocument(), nullptr);
    }
    void TearDown() override {
        window_.reset();
        std::filesystem::remove(StorePath());
    }

    std::unique_ptr<MainWindow> NewWindow() {
        auto window = std::make_unique<MainWindow>(*desk_, settings_);
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        return window;
    }
    static QPushButton* Shown(MainWindow& window, const QString& text) {
        for (QPushButton* button : window.findChildren<QPushButton*>()) {
            if (button->text() == text && button->isVisible()) return button;
        }
        return nullptr;
    }
    static std::string TitleOf(std::int64_t id) {
        const Database database = OpenStore();
        const auto stored = RecordStore(database).Find(id);
        return stored ? stored->summary.title : "none";
    }
};

TEST_F(StoreTest, AnEmptyStoreSaysHowItIsFilledAndIsEditedLikeAFile) {
    EXPECT_EQ(window_->windowTitle(), "Store[*]");
    EXPECT_NE(Shown(*window_, "&Add the Records of a File…"), nullptr);
    Record record;
    record.leader = "00000nam a2200000 a 4500";
    window_->OpenDocument()->Add(record);
    window_->ShowRecord(0);
    for (QAction* action : window_->findChildren<QAction*>()) {
        if (action->text() == "&Discard the New Record") action->trigger();
    }
    EXPECT_NE(Shown(*window_, "&Add the Records of a File…"), nullptr);
    ASSERT_TRUE(window_->AddToStore(Path()));
    Wait();
    EXPECT_EQ(Shown(*window_, "&Add the Records of a File…"), nullptr);
    EXPECT_EQ(window_->Messages().Text(), "2 records added, IDs 1 to 2");
    EXPECT_EQ(Listed(1, 1), "Lakes");
    EXPECT_EQ(Listed(1, 5), "2");
    window_->ShowRecord(1);
    TypeInto("245 $a", "Seas /");
    window_->CheckNow();
    EXPECT_EQ(TitleOf(2), "Lakes");
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(TitleOf(2), "Seas");
    EXPECT_EQ(TitleOf(1), "Rivers");
    Press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Listed(2, 5), "new");
    TypeInto("245 $a", "Straits /");
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(TitleOf(3), "Straits");
    EXPECT_EQ(Listed(2, 5), "3");
    EXPECT_FALSE(window_->OpenDocument()->IsChanged());
}

TEST_F(StoreTest, TheStoreIsCopiedIntoAFileAndNoFileIntoTheStore) {
    ASSERT_TRUE(window_->AddToStore(Path()));
    const TemporaryFile copy("", ".mrc");
    EXPECT_TRUE(window_->SaveAs(QString::fromStdString(copy.Path())));
    EXPECT_EQ(copy.Read().size(), file_->Read().size());
    EXPECT_FALSE(window_->SaveAs(QString::fromStdString(StorePath())));
    EXPECT_EQ(TitleOf(2), "Lakes");
}

TEST_F(StoreTest, WhatWasNotSavedIsOfferedAgainThoughOtherRecordsAreGone) {
    ASSERT_TRUE(window_->AddToStore(Path()));
    window_->ShowRecord(1);
    TypeInto("245 $a", "Seas /");
    QTest::qWait(800);
    window_.reset();
    OpenStore().Execute("DELETE FROM records WHERE id = 1");
    window_ = NewWindow();
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->defaultButton()->click();
    });
    ASSERT_TRUE(window_->Open(QString::fromStdString(StorePath())));
    EXPECT_EQ(Cell("245 $a"), "Seas /");
    TypeInto("245 $a", QString(10000, u'x'));
    EXPECT_FALSE(window_->Save());
    EXPECT_TRUE(window_->Messages().Text().contains("record 2 "));
    Activate();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(window_->Save());
    EXPECT_EQ(TitleOf(2), "Seas");
}

}  // namespace
}  // namespace quillory
