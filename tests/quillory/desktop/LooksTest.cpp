#include <quillory/desktop/CharacterPalette.h>
#include <quillory/desktop/FieldPicker.h>
#include <quillory/desktop/FindingsList.h>
#include <quillory/desktop/RulesDialog.h>
#include <quillory/desktop/Theme.h>
#include <quillory/desktop/WorkformDialog.h>
#include <quillory/desktop/WorkformEditor.h>

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <initializer_list>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// Pictures go into the folder that DESK_PICTURES names, if it does.
void Keep(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("DESK_PICTURES");
    if (!folder.isEmpty()) window.grab().save(folder + u'/' + name + QStringLiteral(".png"));
}

// What the texts of labels and buttons need is there.
void ExpectNothingCut(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (!widget->isVisible() || (label == nullptr && button == nullptr)) continue;
        const QString text = label != nullptr ? label->text() : button->text();
        if (text.isEmpty() || (label != nullptr && label->wordWrap())) continue;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << text.toStdString();
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << text.toStdString();
    }
}

using Looks = StoreTest;

TEST_F(Looks, NothingIsCutInAnySizeOrTheme) {
    for (const bool isDark : {false, true}) {
        for (const QSize size : {QSize(1366, 768), QSize(1024, 640)}) {
            const QString name = QStringLiteral("%1-%2").arg(
                isDark ? QStringLiteral("dark") : QStringLiteral("light"),
                QString::number(size.width()));
            SCOPED_TRACE(name.toStdString());
            SetTheme(isDark);
            MainWindow window(*desk_, settings_);
            window.resize(size);
            window.show();
            ExpectNothingCut(window);
            Keep(window, QStringLiteral("welcome-") + name);
            ASSERT_TRUE(window.Open(QStringLiteral(SAMPLES "catalogue.mrk")));
            Wait(window);
            window.Table().GoTo(*ParsePlace("245 $a"));
            QApplication::processEvents();
            EXPECT_EQ(window.width(), size.width());
            EXPECT_EQ(window.height(), size.height());
            ExpectNothingCut(window);
            constexpr int kTitle = 1;
            constexpr int kLeastTitle = 8;  // characters
            EXPECT_GE(window.List().columnWidth(kTitle),
                      kLeastTitle * window.fontMetrics().averageCharWidth());
            EXPECT_TRUE(window.List().selectionModel()->isRowSelected(0));
            QTest::qWait(1);
            const QHeaderView& findings = *window.Findings().header();
            EXPECT_EQ(findings.length(), window.Findings().viewport()->width());
            Keep(window, QStringLiteral("record-") + name);
            window.Table().GoTo(*ParsePlace("008"));
            QApplication::processEvents();
            Keep(window, QStringLiteral("coded-") + name);
            QTest::keyClick(&window, Qt::Key_T, Qt::ControlModifier);
            window.findChild<QTabWidget*>()->setCurrentIndex(1);
            QApplication::processEvents();
            ExpectNothingCut(window);
            Keep(window, QStringLiteral("text-") + name);
        }
    }
    SetTheme(false);
}

// What is left of 1366 x 768 at 200 %, within the frame of a window.
TEST_F(Looks, EverythingFitsASmallScreen) {
    const QSize room(683, 340);
    MainWindow window(*desk_, settings_);
    window.resize(room);
    window.show();
    ASSERT_TRUE(window.Open(QStringLiteral(SAMPLES "catalogue.mrk")));
    Wait(window);
    window.Table().GoTo(*ParsePlace("245 $a"));
    for (const QAction* action : window.menuBar()->actions()) {
        // A higher one would stand in two columns.
        EXPECT_LE(action->menu()->sizeHint().height(), room.height())
            << action->text().toStdString();
    }
    window.Palette().Toggle();
    auto& tabs = *window.findChild<QTabWidget*>();
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        QTest::qWait(1);
        EXPECT_EQ(window.size(), room) << tab;
        EXPECT_LE(window.minimumSizeHint().width(), room.width()) << tab;
        EXPECT_LE(window.minimumSizeHint().height(), room.height()) << tab;
        constexpr int kLeastText = 10;  // characters of a finding
        EXPECT_GE(window.Findings().columnWidth(2),
                  kLeastText * window.fontMetrics().averageCharWidth());
        Keep(window, QStringLiteral("small-%1").arg(tab));
    }
    WorkformEditor editor(desk_->Lists(), &window);
    WorkformDialog maker(&window);
    FieldPicker picker(&window);
    RulesDialog rules(desk_->Rules(), &window);
    for (QDialog* dialog : std::initializer_list<QDialog*>{&editor, &maker, &picker, &rules}) {
        dialog->resize(room);
        dialog->show();
        QTest::qWait(1);
        EXPECT_EQ(dialog->size(), room) << dialog->windowTitle().toStdString();
        Keep(*dialog, QStringLiteral("small-") + dialog->windowTitle().remove(u'['));
        dialog->hide();
    }
}

}  // namespace
}  // namespace quillory
