#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <memory>
#include <string>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {

// Windows that end without a word, and those beside them and after them.
class WindowsTest : public StoreTest {
protected:
    static bool OpenIn(MainWindow& window, const std::string& path) {
        const bool isOpen = window.Open(QString::fromStdString(path));
        Wait(window);
        return isOpen;
    }
    // Answers the next question by the button with this text.
    static void Answer(const QString& text, QString* question = nullptr) {
        QTimer::singleShot(0, [text, question] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            if (question != nullptr) *question = box->text();
            for (QAbstractButton* button : box->buttons()) {
                if (button->text() == text) return button->click();
            }
            ADD_FAILURE() << "no button " << text.toStdString();
            box->reject();
        });
    }
    // Types at the end of a text, and leaves it open.
    static void TypeAt(MainWindow& window, const std::string& place, const QString& text) {
        Activate(window);
        window.Table().GoTo(*ParsePlace(place));
        window.Table().edit(window.Table().currentIndex());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    static void Press(MainWindow& window, Qt::Key key, Qt::KeyboardModifiers with = {}) {
        Activate(window);
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }
    // A moment in which changes are kept.
    static void Rest() { QTest::qWait(800); }
    // Nothing is asked, and nothing is closed.
    static void Crash(std::unique_ptr<MainWindow>& window) { window.reset(); }
};

}  // namespace quillory
