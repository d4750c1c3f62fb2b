#pragma once

#include <quillory/desktop/Desk.h>
#include <quillory/desktop/DeskSettings.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MarcEdit.h>
#include <quillory/desktop/RecordModel.h>
#include <quillory/desktop/RecordTable.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <optional>
#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>

namespace quillory {

// A book that lacks much, and whose 008 has a code in capitals.
inline std::string Book(const std::string& title, const std::string& label = " ") {
    return MarcOf({"LDR00000nam " + label + "2200000 a 4500", "001" + title,
                   "008240101s2023    nyu           000 0 ENG d", "1001 \037aDoe, Jane.",
                   "24510\037a" + title + " /\037cJane Doe."});
}

// Windows on a store of their own.
class StoreTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        home_ = new QTemporaryDir;
        qputenv("QUILLORY_HOME", home_->path().toUtf8());
        desk_ = new Desk;
    }
    static void TearDownTestSuite() {
        delete desk_;
        delete home_;
    }

    std::unique_ptr<MainWindow> NewWindow() {
        auto window = std::make_unique<MainWindow>(*desk_, settings_);
        window->show();
        Activate(*window);
        return window;
    }
    // Keys go to the window that is active.
    static void Activate(MainWindow& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    static void Wait(const MainWindow& window) {
        while (window.IsWorking()) QTest::qWait(1);
    }
    // The row of a place, by what stands in a column of it.
    static QString Cell(MainWindow& window, const std::string& place,
                        int column = RecordModel::Text) {
        const QModelIndex at = window.Table().Model().IndexOf(*ParsePlace(place));
        return at.siblingAtColumn(column).data().toString();
    }

    static inline QTemporaryDir* home_ = nullptr;
    static inline Desk* desk_ = nullptr;
    DeskSettings settings_{QString()};
};

// The window as a person sees it, with a file open.
class DeskTest : public StoreTest {
protected:
    void SetUp() override { Open(Book("Rivers") + Book("Lakes") + Book("A sea")); }

    // In a window of its own.
    void Open(const std::string& bytes, const std::string& ending = ".mrc") {
        window_.reset();
        window_ = NewWindow();
        OpenHere(bytes, ending);
    }
    void OpenHere(const std::string& bytes, const std::string& ending = ".mrc") {
        file_.emplace(bytes, ending);
        ASSERT_TRUE(window_->Open(Path()));
        Wait();
    }
    void Activate() const { StoreTest::Activate(*window_); }
    void Wait() const { StoreTest::Wait(*window_); }
    QString Path() const { return QString::fromStdString(file_->Path()); }

    RecordTable& Table() { return window_->Table(); }
    QString Cell(const std::string& place, int column = RecordModel::Text) {
        return StoreTest::Cell(*window_, place, column);
    }
    void GoTo(const std::string& place) { Table().GoTo(*ParsePlace(place)); }
    // The box that is open in the record; null if there is none. Closed ones go a moment later.
    template <class Box>
    Box* OpenBox() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return Table().findChildren<Box*>().value(0);
    }
    MarcEdit& Edit(const std::string& place) {
        GoTo(place);
        Table().edit(Table().currentIndex());
        return *OpenBox<MarcEdit>();
    }
    // One key after another.
    static void Type(QWidget& box, const QString& text) {
        for (const QChar sign : text) {
            QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(sign), Qt::NoModifier);
        }
    }
    void TypeInto(const std::string& place, const QString& text) {
        MarcEdit& box = Edit(place);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        box.TypeText(text);
        QTest::keyClick(&box, Qt::Key_Return);
    }
    void Press(int key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(window_.get(), static_cast<Qt::Key>(key), with);
    }
    QString Listed(int row, int column) const {
        return window_->List().model()->index(row, column).data().toString();
    }

    std::optional<TemporaryFile> file_;
    std::unique_ptr<MainWindow> window_;
};

}  // namespace quillory
