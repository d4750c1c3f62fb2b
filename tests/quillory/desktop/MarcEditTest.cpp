#include <quillory/desktop/MarcEdit.h>
#include <quillory/desktop/MarcPorts.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/UnicodeView.h>

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

namespace quillory {
namespace {

// A box on a screen, with the caret at the end of its text.
class MarcEditTest : public testing::Test {
protected:
    MarcEditTest() {
        box_.resize(300, 80);
        box_.show();
        box_.activateWindow();
        box_.setFocus();
        QGuiApplication::clipboard()->clear();
    }

    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&box_)); }

    void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(&box_, key, with);
    }
    void Type(const QString& text) {
        for (const QChar sign : text) {
            QTest::sendKeyEvent(QTest::Click, &box_, Qt::Key_unknown, QString(sign),
                                Qt::NoModifier);
        }
    }
    void Press(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) Press(key);
    }
    std::string Real() const {
        std::string text;
        const_cast<MarcEdit&>(box_).Field().GetWindowTextA(text);
        return text;
    }
    int Caret() const { return box_.textCursor().position(); }

    MarcPorts ports_;
    MarcEdit box_;
};

TEST_F(MarcEditTest, ARunOfTypingIsUndoneAndRedoneAsOne) {
    box_.SetText("Rivers");
    Type(" of France");
    EXPECT_EQ(box_.Text(), "Rivers of France");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), "Rivers");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), "Rivers of France");
    Press({Qt::Key_Backspace, Qt::Key_Backspace});
    EXPECT_EQ(box_.Text(), "Rivers of Fran");
    EXPECT_EQ(Caret(), 14);
}

TEST_F(MarcEditTest, ADiacriticStaysWithItsLetter) {
    box_.SetText(QString::fromUtf8("x\u01CEy"));  // a with caron: two bytes
    EXPECT_EQ(Real(), "xa\xABy") << "the codes of a letter and a hacek";
    Press({Qt::Key_Left, Qt::Key_Left});
    EXPECT_EQ(Caret(), 1);
    Press(Qt::Key_Right);
    EXPECT_EQ(Caret(), 3);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(box_.Text(), "xy");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), QString::fromUtf8("x\u01CEy"));
    Press({Qt::Key_Home, Qt::Key_Right, Qt::Key_Delete});
    EXPECT_EQ(box_.Text(), "xy");
    Press({Qt::Key_Home});
    box_.TypeCharacter(10171);  // a hacek before any letter stands on a blank
    EXPECT_EQ(Real(), "\x1F\xABxy");
    EXPECT_EQ(box_.toPlainText(), QString::fromUtf8(" \u030Cxy"));
}

TEST_F(MarcEditTest, LettersThatAreNotEditedKeepTheirSpelling) {
    const QString apart = QString::fromUtf8("Cafe\u0301 a\u030C la");
    box_.SetText(apart);
    EXPECT_TRUE(box_.IsCoded());
    EXPECT_EQ(box_.Text(), apart);
    Type(QString::fromUtf8("\u00E9"));
    EXPECT_EQ(box_.Text(), apart + QString::fromUtf8("e\u0301"));
}

TEST_F(MarcEditTest, OwnAndForeignTextArePasted) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    box_.SetText(QString::fromUtf8("na\u00EFve"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text().normalized(QString::NormalizationForm_C),
              QString::fromUtf8("na\u00EFve"));
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), QString::fromUtf8("na\u00EFvena\u00EFve"));
    clipboard.setText(QString::fromUtf8("\u0141\u00F3d\u017A,\n\tPoland\n"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), QString::fromUtf8("\u0141\u00F3d\u017A, Poland"));
    EXPECT_TRUE(box_.IsCoded());
}

// What the code lacks makes the text Unicode, and all of it stays; undo leads back.
TEST_F(MarcEditTest, OtherScriptsAreEditedAsUnicode) {
    const QString title = QString::fromUtf8("\u05E2\u05D1\u05E8\u05D9\u05EA");
    box_.SetText(title);
    EXPECT_FALSE(box_.IsCoded());
    Type(QString::fromUtf8("\u05D0"));
    EXPECT_EQ(box_.Text(), title + QString::fromUtf8("\u05D0"));
    EXPECT_EQ(box_.document()->firstBlock().textDirection(), Qt::RightToLeft);
    box_.moveCursor(QTextCursor::Start);
    EXPECT_GT(box_.cursorRect().x(), box_.viewport()->width() * 3 / 4) << "it begins at the right";
    box_.moveCursor(QTextCursor::End);

    box_.SetText("Anna");
    Type(" =");
    Type(QString::fromUtf8("\u0410"));
    EXPECT_FALSE(box_.IsCoded());
    EXPECT_EQ(box_.Text(), QString::fromUtf8("Anna =\u0410"));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(box_.IsCoded());
    EXPECT_EQ(box_.Text(), "Anna =");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), "Anna");
    QGuiApplication::clipboard()->setText(QString::fromUtf8("\u6771\u4EAC"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box_.Text(), QString::fromUtf8("Anna\u6771\u4EAC"));
}

TEST_F(MarcEditTest, WhatIsComposedIsTyped) {
    box_.SetText("caf");
    QInputMethodEvent composing("´", {});
    QCoreApplication::sendEvent(&box_, &composing);
    EXPECT_EQ(box_.Text(), "caf");
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("\u00E9s"));
    QCoreApplication::sendEvent(&box_, &composed);
    EXPECT_EQ(box_.Text(), QString::fromUtf8("caf\u00E9s"));
    EXPECT_EQ(box_.toPlainText().normalized(QString::NormalizationForm_C), box_.Text());
}

TEST_F(MarcEditTest, TheMouseSetsTheCaretAndTakesWords) {
    box_.SetText(QString::fromUtf8("Le caf\u00E9 (noir) fume"));
    const auto pointAt = [this](int unit) {
        QTextCursor cursor(box_.document());
        cursor.setPosition(unit);
        return box_.cursorRect(cursor).center() + QPoint(2, 0);
    };
    QTest::mouseClick(box_.viewport(), Qt::LeftButton, {}, pointAt(1));
    EXPECT_EQ(box_.textCursor().position(), 1);
    QTest::mouseDClick(box_.viewport(), Qt::LeftButton, {}, pointAt(10));
    EXPECT_EQ(box_.textCursor().selectedText(), "noir");
    QTest::mouseDClick(box_.viewport(), Qt::LeftButton, {}, pointAt(1));
    EXPECT_EQ(box_.textCursor().selectedText(), "Le ");
    QTest::mouseClick(box_.viewport(), Qt::LeftButton, {}, pointAt(3));
    QTest::mouseClick(box_.viewport(), Qt::LeftButton, Qt::ShiftModifier, pointAt(6));
    EXPECT_EQ(box_.textCursor().selectedText(), "caf");
    Type("x");
    EXPECT_EQ(box_.Text().normalized(QString::NormalizationForm_C),
              QString::fromUtf8("Le x\u00E9 (noir) fume"));
}

TEST_F(MarcEditTest, TheMenuDoesWhatItsKeysDo) {
    box_.SetText("Seas");
    Press(Qt::Key_A, Qt::ControlModifier);
    QTimer::singleShot(0, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, Qt::Key_T);  // Cut
    });
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(2, 2),
                            box_.mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(box_.viewport(), &asked);
    EXPECT_EQ(box_.Text(), "");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Seas");
}

TEST_F(MarcEditTest, AltAloneBringsTheNextNumber) {
    box_.SetText("T ");
    box_.Field().SetNextNumberCallback([] { return "00124"; });
    Press(Qt::Key_Alt);
    EXPECT_EQ(box_.Text(), "T 00124");
    QTest::keyPress(&box_, Qt::Key_Alt);
    QTest::keyPress(&box_, Qt::Key_F, Qt::AltModifier);
    QTest::keyRelease(&box_, Qt::Key_F, Qt::AltModifier);
    QTest::keyRelease(&box_, Qt::Key_Alt);
    EXPECT_EQ(box_.Text(), "T 00124") << "with another key it is no command";
}

// The red word lies over its letters, and goes with the next key.
TEST_F(MarcEditTest, AWordInRedLiesOverItsLetters) {
    box_.SetText("The rivver runs");
    box_.Field().SetSelInRed(4, 9, "rivver");
    auto* overlay = box_.viewport()->findChild<QWidget*>();
    ASSERT_NE(overlay, nullptr);
    EXPECT_TRUE(overlay->isVisible());
    QTextCursor start(box_.document());
    start.setPosition(4);
    EXPECT_EQ(overlay->geometry().topLeft(), box_.cursorRect(start).topLeft());
    EXPECT_EQ(overlay->width(), box_.fontMetrics().horizontalAdvance("rivver"));
    const QImage shown = overlay->grab().toImage();
    bool isRed = false;
    for (int x = 0; x < shown.width() && !isRed; ++x) {
        for (int y = 0; y < shown.height() && !isRed; ++y) {
            const QColor color = shown.pixelColor(x, y);
            isRed = color.red() > 200 && color.blue() < 60;
        }
    }
    EXPECT_TRUE(isRed);
    Type("x");
    EXPECT_EQ(box_.viewport()->findChild<QWidget*>(), nullptr);
}

// Whatever is done, both texts stay in step, and no letter is parted from its marks.
TEST_F(MarcEditTest, RandomKeysKeepTheTextsInStep) {
    std::uint32_t state = 20261122;
    const auto random = [&state](std::uint32_t below) {
        state = state * 1664525U + 1013904223U;
        return (state >> 8) % below;
    };
    constexpr Qt::Key kKeys[] = {Qt::Key_Left, Qt::Key_Right,     Qt::Key_Home, Qt::Key_End,
                                 Qt::Key_Up,   Qt::Key_Backspace, Qt::Key_Down, Qt::Key_Delete};
    constexpr Qt::Key kCommands[] = {Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Z};
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE(step);
        switch (random(5)) {
            case 0:
                Press(kKeys[random(8)], random(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
                break;
            case 1:
                Press(kCommands[random(5)], Qt::ControlModifier);
                break;
            case 2:
                box_.TypeCharacter(10128 + random(139));
                break;
            default:
                Type(QString(QChar(static_cast<char16_t>(u'a' + random(26)))));
        }
        ASSERT_TRUE(box_.IsCoded());
        const std::string real = Real();
        if (real.size() > 400) box_.SetText("");
        ASSERT_EQ(box_.Field().Port().GetTextLength(), box_.Field().GetWindowTextLengthA());
        const zorby::UnicodeView view(Real(), zorby::kDisplaySIL);
        ASSERT_EQ(box_.toPlainText(), QString::fromStdU16String(view.Text()));
    }
}

}  // namespace
}  // namespace quillory
