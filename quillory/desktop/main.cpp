#include <quillory/desktop/Desk.h>
#include <quillory/desktop/DeskSettings.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/Theme.h>
#include <quillory/faults/Errors.h>
#include <quillory/store/HomeFolder.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>

namespace {

QString SettingsPath() {
    if (!quillory::HasHomeFolder()) return {};
    return QString::fromStdString((quillory::HomeFolder() / "desk.ini").string());
}

int Run(const QString& file) {
    quillory::DeskSettings settings(SettingsPath());
    quillory::SetTheme(settings.IsDark());
    quillory::Desk desk;
    quillory::MainWindow window(desk, settings);
    window.show();
    if (!file.isEmpty()) {
        window.Open(file);
    } else {
        window.OfferNewRecordsLeft();
    }
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillory-desk"));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillory Desk"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLORY_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QApplication::translate("main", "Edit and check MARC 21 records"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QApplication::translate("main", "A file of records"));
    parser.process(application);
    try {
        return Run(parser.positionalArguments().value(0));
    } catch (const quillory::FaultError& error) {
        QMessageBox::critical(nullptr, QApplication::applicationDisplayName(),
                              QString::fromUtf8(error.what()));
        return 2;
    }
}
