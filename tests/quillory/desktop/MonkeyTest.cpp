#include <quillory/desktop/Document.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MessageBar.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMenu>
#include <QTimer>
#include <functional>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// The same at every run, unless DESK_SEED says otherwise.
class Random {
public:
    Random()
        : state_(20261122U +
                 static_cast<std::uint64_t>(qEnvironmentVariableIntValue("DESK_SEED"))) {}

    int Below(int limit) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<int>((state_ >> 33U) % static_cast<std::uint64_t>(limit));
    }

private:
    std::uint64_t state_;
};

constexpr Qt::Key kKeys[] = {
    Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,        Qt::Key_Down,   Qt::Key_Home,     Qt::Key_End,
    Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Escape,   Qt::Key_F5,
    Qt::Key_F2,   Qt::Key_F1,     Qt::Key_Space,     Qt::Key_PageUp, Qt::Key_PageDown,
};
// With Ctrl. What opens a dialog of the system, closes the window or leaves the file is not here.
constexpr Qt::Key kCommands[] = {
    Qt::Key_A,      Qt::Key_C,  Qt::Key_D,    Qt::Key_F,      Qt::Key_M,        Qt::Key_R,
    Qt::Key_S,      Qt::Key_T,  Qt::Key_V,    Qt::Key_X,      Qt::Key_Z,        Qt::Key_Z,
    Qt::Key_Delete, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return,
};
const QString kSigns = QString::fromUtf8("abz019 .,/$#=\\\u00E9\u0141\u05D0\u6771\u0301\u2021");

class Monkey {
public:
    explicit Monkey(MainWindow& window) : window_(window) {}

    void Act() {
        QWidget* target = QApplication::activeModalWidget();
        if (auto* files = qobject_cast<QFileDialog*>(target)) {
            files->reject();  // a monkey has no business among files
            return;
        }
        if (target == nullptr) target = QApplication::activePopupWidget();
        if (target == nullptr) target = &window_;
        switch (random_.Below(7)) {
            case 0:
                Press(kCommands[random_.Below(std::size(kCommands))], Qt::ControlModifier);
                break;
            case 1:
                Press(kKeys[random_.Below(std::size(kKeys))], Modifiers());
                break;
            case 2:
                Click(*target);
                break;
            case 3:
                if (target == &window_) Choose();
                break;
            default:
                Type();
        }
    }

private:
    // No Alt, which leads to the menus, and from there out of the window.
    Qt::KeyboardModifiers Modifiers() {
        return random_.Below(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
    }
    static QWidget* Focus() {
        QWidget* popup = QApplication::activePopupWidget();
        return popup != nullptr ? popup : QApplication::focusWidget();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers with) {
        QWidget* focus = Focus();
        QTest::keyClick(focus == nullptr ? &window_ : focus, key, with);
    }
    void Type() {
        QWidget* focus = Focus();
        if (focus == nullptr) return;
        const QString text(kSigns[random_.Below(static_cast<int>(kSigns.size()))]);
        QTest::sendKeyEvent(QTest::Click, focus, Qt::Key_unknown, text, Qt::NoModifier);
    }
    // From the menus, all but what leaves the file.
    void Choose() {
        static const QStringList kOthers{
            "&Quit", "&Close", "&Open…", "Open the Stor&e", "Open the Sa&mples", "Re&load"};
        const auto actions = window_.findChildren<QAction*>();
        QAction* action = actions[random_.Below(static_cast<int>(actions.size()))];
        const auto* menu = qobject_cast<QMenu*>(action->parent());
        const bool isRecent = menu != nullptr && menu->title().contains("Recent");
        if (!isRecent && !kOthers.contains(action->text())) action->trigger();
    }
    // Menus lead to dialogs of the system, so the mouse stays out of their bar.
    void Click(QWidget& target) {
        const int top = &target == &window_ ? window_.centralWidget()->y() : 0;
        if (target.width() < 4 || target.height() < top + 4) return;
        const QPoint at(random_.Below(target.width()), top + random_.Below(target.height() - top));
        QWidget* hit = target.childAt(at);
        if (hit == nullptr) hit = &target;
        const QPoint inside = hit->mapFrom(&target, at);
        if (random_.Below(4) == 0) {
            QTest::mouseDClick(hit, Qt::LeftButton, {}, inside);
        } else {
            QTest::mouseClick(hit, Qt::LeftButton, Modifiers(), inside);
        }
    }

    MainWindow& window_;
    Random random_;
};

// As many keys and clicks at random as DESK_MONKEY says: nothing crashes or hangs, what is saved
// can be read again, record by record.
TEST_F(DeskTest, AMonkeyBreaksNothing) {
    constexpr int kSteps = 800;
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("DESK_MONKEY", &isGiven);
    const int most = isGiven ? given : kSteps;
    Monkey monkey(*window_);
    int steps = 0;
    // A dialog or a menu has an event loop of its own, in which the monkey goes on.
    const QObject context;
    std::function<void()> goOn = [&] {
        QTimer::singleShot(1, &context, goOn);
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QWidget* popup = QApplication::activePopupWidget();
        if (dialog == nullptr && popup == nullptr) return;
        ++steps;
        if (dialog != nullptr && (steps % 8 == 0 || steps >= most)) {
            dialog->reject();
        } else if (popup != nullptr && steps % 4 == 0) {
            popup->close();
        } else {
            monkey.Act();
        }
    };
    goOn();
    while (steps < most) {
        ++steps;
        if (QApplication::activeWindow() != window_.get()) Activate();
        monkey.Act();
        QCoreApplication::processEvents();
    }
    while (!window_->Lines().Finish()) window_->Lines().TakeBack();
    Table().Finish();
    EXPECT_GE(window_->OpenDocument()->File().Size(), 3U);
    window_->CheckNow();
    EXPECT_TRUE(window_->Save() || window_->Messages().isVisible());
    Document again(file_->Path());
    while (again.File().FindMore(1)) {
    }
    EXPECT_GE(again.File().Size(), 3U);
    for (std::size_t i = 0; i < again.File().Size(); ++i) {
        EXPECT_FALSE(again.File().IsDamaged(i)) << "record " << i;
    }
}

}  // namespace
}  // namespace quillory
