#include <quillory/desktop/Document.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/MarcReader.h>

#include <QApplication>
#include <QTimer>
#include <deque>
#include <functional>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// A person without a mouse, whose keys go to what has the keyboard, one after the other.
class Typist {
public:
    // Each is done when those before it are, and something has the keyboard.
    void Press(int key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        steps_.push_back([this, key, with] {
            if (Target() != nullptr) return Send(key, with);
            return false;
        });
    }
    void Type(const QString& text) {
        for (const QChar sign : text) {
            steps_.push_back([this, sign] {
                if (Target() == nullptr) return false;
                QTest::keyClick(Target(), sign.toLatin1());
                ++letters_;
                return true;
            });
        }
    }
    // Presses a key until what has the keyboard is called so.
    void PressUntil(int key, Qt::KeyboardModifiers with, const QString& name) {
        steps_.push_back([this, key, with, name] {
            if (Target() == nullptr) return false;
            if (Target()->accessibleName().startsWith(name)) return true;
            Send(key, with);
            return ++tries_ > kMostTries;
        });
    }
    void Await(std::function<bool()> event) { steps_.push_back(std::move(event)); }

    // Until all is done. False for a person who waits in vain.
    bool Run() {
        GoOn();
        return QTest::qWaitFor([this] { return steps_.empty(); }, 30000) && tries_ < kMostTries;
    }
    int Letters() const { return letters_; }
    int OtherKeys() const { return others_; }

private:
    static constexpr int kMostTries = 200;

    static QWidget* Target() {
        if (QApplication::activePopupWidget() != nullptr) return QApplication::activePopupWidget();
        if (QApplication::focusWidget() != nullptr) return QApplication::focusWidget();
        return QApplication::activeWindow();
    }
    // A key may open a dialog, in which the next ones go on.
    void GoOn() {
        if (steps_.empty()) return;
        QTimer::singleShot(1, [this] {
            const auto step = steps_.front();
            steps_.pop_front();
            GoOn();
            if (step()) return;
            steps_.push_front(step);
            if (steps_.size() == 1) GoOn();
        });
    }
    bool Send(int key, Qt::KeyboardModifiers with) {
        ++others_;
        QTest::keyClick(Target(), static_cast<Qt::Key>(key), with);
        return true;
    }

    std::deque<std::function<bool()>> steps_;
    int letters_ = 0;
    int others_ = 0;
    int tries_ = 0;
};

// An answer in the next box, or the first of one of the next fields.
struct Answer {
    QString place;
    QString text;
    bool isInNextField = true;
};

class RoadTest : public StoreTest {};

// From an empty window to a checked record in a file, by keyboard alone.
TEST_F(RoadTest, ANewBookIsMadeCheckedAndSavedByKeys) {
    const TemporaryFile target("", ".mrc");
    std::filesystem::remove(target.Path());
    const auto window = NewWindow();
    Typist person;
    person.Press(Qt::Key_N, Qt::ControlModifier);
    person.Type("book");
    person.Press(Qt::Key_Return);
    const std::vector<Answer> answers{
        {"020 $a", "9780306406157"},   {"100 $a", "Doe, Jane"}, {"245 $a", "The rivers"},
        {"245 $c", "Jane Doe", false}, {"264 $a", "New York"},  {"264 $b", "River Press", false},
        {"264 $c", "2023", false},     {"300 $a", "212 pages"}, {"650 $a", "Rivers"}};
    for (const auto& [place, text, isInNextField] : answers) {
        person.PressUntil(isInNextField ? Qt::Key_Down : Qt::Key_Tab,
                          isInNextField ? Qt::ControlModifier : Qt::NoModifier, place + u' ');
        person.Type(text);
    }
    person.Press(Qt::Key_Return);
    const auto isBack = [&window] {
        window->activateWindow();
        return window->isActiveWindow() && !window->IsWorking();
    };
    person.Await([&] { return window->OpenDocument() != nullptr && isBack(); });
    person.Press(Qt::Key_F5);
    person.Press(Qt::Key_S, Qt::ControlModifier);
    person.Await([] { return QApplication::activeModalWidget() != nullptr; });
    person.Type(QString::fromStdString(target.Path()));
    person.Press(Qt::Key_Return);
    person.Await([&] { return !window->OpenDocument()->IsUntitled() && isBack(); });
    ASSERT_TRUE(person.Run());
    EXPECT_FALSE(window->isWindowModified());

    const std::string bytes = target.Read();
    Input input(Input::kFromMemory, bytes, {});
    MarcReader reader(input, false);
    Item item;
    ASSERT_TRUE(reader.Next(item));
    EXPECT_FALSE(item.fault);
    std::string fields = FieldsOf(item.record);
    const std::size_t today = fields.find("008") + 3;
    EXPECT_EQ(fields.replace(today, 6, "240101"),
              "008240101s2023    xx            000 u und d\n"
              "020  $a9780306406157\n"
              "1001 $aDoe, Jane.\n"
              "24510$aThe rivers /$cJane Doe.\n"
              "264 1$aNew York :$bRiver Press,$c2023.\n"
              "300  $a212 pages\n"
              "336  $atext$btxt$2rdacontent\n"
              "337  $aunmediated$bn$2rdamedia\n"
              "338  $avolume$bnc$2rdacarrier\n"
              "650 0$aRivers.");
    RecordProperty("letters", person.Letters());
    RecordProperty("other_keys", person.OtherKeys());
    EXPECT_LE(person.OtherKeys(), 18) << "keys beside the letters of texts";
}

}  // namespace
}  // namespace quillory
