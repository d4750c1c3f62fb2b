#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <tests/quillory/desktop/DeskTest.h>
#include <vector>

namespace quillory {
namespace {

// How long a person waits, in the time of the processor, which other programs don't change.
// Nothing is asserted: figures depend on the machine and on how the program was built.
//   desk_tests --gtest_also_run_disabled_tests --gtest_filter='*Speed*'
class DISABLED_Speed : public DeskTest {
protected:
    static double Milliseconds(const std::function<void()>& work) {
        const std::clock_t start = std::clock();
        work();
        return 1e3 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    }
    static void Say(const char* what, std::vector<double> times) {
        std::ranges::sort(times);
        std::printf("%-44s median %7.2f ms, longest %7.2f ms\n", what, times[times.size() / 2],
                    times.back());
    }
    void Paint() {
        window_->repaint();
        QApplication::processEvents();
    }
};

// A record of 200 fields, and one like it.
std::string LongRecords() {
    std::string bytes;
    for (const char* number : {"one", "two"}) {
        Lines lines{"LDR00000nam a2200000 a 4500", std::string("001") + number,
                    "008240101s2023    nyu           000 0 eng d", "24500\037aLong /\037cDoe."};
        for (int i = 0; lines.size() < 201; ++i) {
            lines.push_back("650 0\037aRivers and lakes " + std::to_string(i) +
                            "\037zFrance\037xHistory.");
        }
        bytes += MarcOf(lines);
    }
    return bytes;
}

TEST_F(DISABLED_Speed, FromStartToKey) {
    std::unique_ptr<Desk> desk;
    const TemporaryFile file(LongRecords(), ".mrc");
    const double start = Milliseconds([&] {
        desk = std::make_unique<Desk>();
        MainWindow window(*desk, settings_);
        window.show();
        window.Open(QString::fromStdString(file.Path()));
        QApplication::processEvents();
    });
    Say("start, without Qt's own", {start});
    Open(LongRecords());
    std::vector<double> open;
    std::vector<double> checks;
    for (int i = 0; i < 10; ++i) {
        open.push_back(Milliseconds([&] {
            window_->ShowRecord(static_cast<std::size_t>(i % 2));
            Paint();
        }));
        checks.push_back(Milliseconds([&] { window_->CheckNow(); }));
    }
    Say("opening a record of 200 fields", open);
    Say("checking it", checks);
    MarcEdit& box = Edit("245 $a");
    std::vector<double> keys;
    keys.reserve(100);
    for (int i = 0; i < 100; ++i) {
        keys.push_back(Milliseconds([&] {
            Type(box, i % 7 == 0 ? " " : "a");
            Paint();
        }));
    }
    Say("a key", keys);
    Say("taking the cell", {Milliseconds([&] {
            QTest::keyClick(&box, Qt::Key_Return);
            Paint();
        })});
    Press(Qt::Key_T, Qt::ControlModifier);
    std::vector<double> lines;
    lines.reserve(50);
    for (int i = 0; i < 50; ++i) {
        lines.push_back(Milliseconds([&] {
            Type(*QApplication::focusWidget(), "a");
            Paint();
        }));
    }
    Say("a key in the record as text", lines);
}

}  // namespace
}  // namespace quillory
