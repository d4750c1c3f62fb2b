#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

// The desk on a screen that nobody sees, with settings of its own.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QUILLORY_DATA", DATA_FOLDER);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
