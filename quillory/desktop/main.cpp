#include <quillory/arguments/ManualCommands.h>
#include <quillory/arguments/Program.h>
#include <quillory/desktop/Desk.h>
#include <quillory/desktop/DeskSettings.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/Theme.h>
#include <quillory/desktop/WindowSize.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/ProgramLists.h>
#include <quillory/store/HomeFolder.h>

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr int kFailed = 2;

struct DeskOptions {
    std::string file;
};

QString SettingsPath() {
    if (!quillory::HasHomeFolder()) return {};
    return QString::fromStdString((quillory::HomeFolder() / "desk.ini").string());
}

// Where the screen is too small for the window and its frame, the window takes all of it.
void FitToScreen(quillory::MainWindow& window) {
    const QSize room = quillory::RoomFor(window);
    const bool fits = window.width() <= room.width() && window.height() <= room.height();
    if (!fits) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

int RunWindow(const QString& file) {
    quillory::DeskSettings settings(SettingsPath());
    quillory::SetTheme(settings.IsDark());
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("quillory-desk"),
                                                 QIcon(QStringLiteral(":/quillory-desk.svg"))));
    quillory::Desk desk;
    quillory::MainWindow window(desk, settings);
    if (settings.State(QStringLiteral("window/geometry")).isEmpty()) FitToScreen(window);
    window.show();
    if (!file.isEmpty()) {
        window.Open(file);
    } else {
        window.OfferNewRecordsLeft();
    }
    return QApplication::exec();
}

int Run(const DeskOptions& options) {
    try {
        return RunWindow(QString::fromStdString(options.file));
    } catch (const quillory::FaultError& error) {
        QMessageBox::critical(nullptr, QApplication::applicationDisplayName(),
                              QString::fromUtf8(error.what()));
        return kFailed;
    }
}

void Declare(quillory::Arguments& program) {
    DeskOptions& options = program.Runs(Run);
    program.Positional("FILE", options.file, "A file of records to open, in any form").File();
    program.Footer(
        "Without FILE, the window begins empty. What was not saved when the program last stopped\n"
        "is offered again. Options of Qt, such as -style and -platform, are taken, too.\n");
    program.List({"Exit status",
                  {{std::to_string(quillory::kWell), "The window was closed"},
                   {std::to_string(kFailed), "Wrong usage, or the program can't start"}}});
    program.List({"Environment", quillory::EnvironmentVariables()});
    quillory::DeclareManualCommands(program, quillory::CheckNotOurs);
}

// Help and the like are there without a screen.
bool NeedsScreen(int argc, char** argv) {
    constexpr std::array<std::string_view, 6> kTexts{"-h",   "--help", "--version",
                                                     "help", "man",    "completion"};
    return argc < 2 || std::ranges::find(kTexts, argv[1]) == kTexts.end();
}

}  // namespace

// Qt takes the options that are its own out of the command line.
int main(int argc, char** argv) {
    std::optional<QApplication> application;
    if (NeedsScreen(argc, argv)) application.emplace(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillory-desk"));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillory Desk"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLORY_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("quillory-desk"));
    quillory::Arguments program("quillory-desk", "quillory-desk: MARC 21 records in a window",
                                QUILLORY_VERSION);
    Declare(program);
    return quillory::RunProgram(program, argc, argv);
}
