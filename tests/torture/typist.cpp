// A person who types into the real desk, inside of its process: a plugin of Qt's, so that the desk
// itself knows nothing of it. TYPIST says what to do: "type" writes words into texts of the records
// and notes each, with the time in milliseconds, in the file TYPIST_NOTES; "save" takes up what was
// left, saves and ends. The words have numbers after TYPIST_AFTER, so that those of two people
// differ.
#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMessageBox>
#include <QRandomGenerator>
#include <QTableView>
#include <QTimer>
#include <chrono>
#include <tests/torture/TypistPlugin.h>

namespace {

constexpr int kKeyPause = 12;  // milliseconds
constexpr int kTextColumn = 4;
constexpr int kWordsInAText = 12;

class Typist : public QObject {
public:
    Typist()
        : mode_(qEnvironmentVariable("TYPIST")),
          notes_(qEnvironmentVariable("TYPIST_NOTES")),
          number_(qEnvironmentVariableIntValue("TYPIST_AFTER")) {
        notes_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
        connect(&timer_, &QTimer::timeout, this, &Typist::Work);
        timer_.start(kKeyPause);
    }

private:
    void Work() {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            Answer(*box);
            return;
        }
        QTableView* table = FindTable();
        if (table == nullptr || table->model()->rowCount() < 2) return;
        if (mode_ == QStringLiteral("save")) {
            Trigger(QStringLiteral("&Save"));
            QCoreApplication::exit(0);
        } else {
            Type(*table);
        }
    }

    static void Answer(QMessageBox& box) {
        for (QAbstractButton* button : box.buttons()) {
            if (button->text() == QStringLiteral("&Take Up")) button->click();
        }
    }

    static QTableView* FindTable() {
        for (QWidget* widget : QApplication::allWidgets()) {
            auto* table = qobject_cast<QTableView*>(widget);
            if (table != nullptr && table->accessibleName() == QStringLiteral("Record")) {
                return table;
            }
        }
        return nullptr;
    }

    static void Trigger(const QString& text) {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            for (QAction* action : widget->findChildren<QAction*>()) {
                if (action->text() == text) action->trigger();
            }
        }
    }

    static void Press(int key, const QString& text = {}) {
        QWidget* widget = QApplication::focusWidget();
        if (widget == nullptr) return;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(widget, &release);
    }

    // Letter by letter; after some words a text is done, and after some texts a record.
    void Type(QTableView& table) {
        if (QApplication::focusWidget() == &table) isOpen_ = false;
        if (!isOpen_) return OpenText(table);
        if (!word_.isEmpty()) {
            Press(word_[0].unicode(), word_.left(1));
            word_.remove(0, 1);
            if (word_.isEmpty()) Note();
            return;
        }
        if (++words_ % kWordsInAText == 0) {
            Press(Qt::Key_Return);
            isOpen_ = false;
            if (words_ % (3 * kWordsInAText) == 0) Trigger(QStringLiteral("Next Re&cord"));
            return;
        }
        NextWord();
    }

    // A record that somebody else is changing is passed over.
    void OpenText(QTableView& table) {
        const int row = static_cast<int>(QRandomGenerator::global()->bounded(
            1U, static_cast<quint32>(table.model()->rowCount())));
        const QModelIndex index = table.model()->index(row, kTextColumn);
        const QString tag = index.siblingAtColumn(0).data().toString();
        const bool isText = tag.isEmpty() || tag >= QStringLiteral("010");
        if (!isText) return;
        if (!index.flags().testFlag(Qt::ItemIsEditable)) {
            return Trigger(QStringLiteral("Next Re&cord"));
        }
        table.setFocus();
        table.setCurrentIndex(index);
        table.edit(index);
        isOpen_ = QApplication::focusWidget() != &table;
        Press(Qt::Key_End);
        if (isOpen_) NextWord();
    }

    void NextWord() {
        ++number_;
        word_ = QStringLiteral(" w%1x").arg(number_, 5, 10, QLatin1Char('0'));
        noted_ = word_.trimmed();
    }

    void Note() {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
        notes_.write(QStringLiteral("%1 %2\n").arg(time).arg(noted_).toUtf8());
    }

    QString mode_;
    QFile notes_;
    QTimer timer_;
    QString word_;  // what is still to be typed of it
    QString noted_;
    int number_;  // of the last word
    int words_ = 0;
    bool isOpen_ = false;
};

}  // namespace

QObject* TypistPlugin::create(const QString& /*key*/, const QString& /*settings*/) {
    return new Typist;
}
