#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

namespace {

// A warning of Qt is a fault of the desk, unless it is about what this screen can't do or about a
// button that went away between press and release of the mouse.
void FailOnWarning(QtMsgType type, const QMessageLogContext& /*where*/, const QString& text) {
    const bool isOfScreen = text.startsWith(QStringLiteral("This plugin does not support"));
    const bool isOfMouse = text.startsWith(QStringLiteral("Mouse event at"));
    if (type == QtDebugMsg || type == QtInfoMsg || isOfScreen || isOfMouse) return;
    ADD_FAILURE() << "Qt warns: " << text.toStdString();
}

}  // namespace

// The desk on a screen that nobody sees, with settings of its own.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("DESK_PICTURES")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QUILLORY_DATA", DATA_FOLDER);
    const QApplication application(argc, argv);
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
