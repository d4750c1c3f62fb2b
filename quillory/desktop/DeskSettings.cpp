#include <quillory/desktop/DeskSettings.h>

namespace quillory {
namespace {

constexpr auto kRecent = "files/recent";
constexpr int kMostRecent = 8;

}  // namespace

DeskSettings::DeskSettings(const QString& path)
    : store_(path.isEmpty() ? QStringLiteral("/dev/null") : path, QSettings::IniFormat) {}

QStringList DeskSettings::RecentFiles() const {
    return store_.value(kRecent).toStringList();
}

void DeskSettings::AddRecentFile(const QString& path) {
    QStringList files = RecentFiles();
    files.removeAll(path);
    files.prepend(path);
    while (files.size() > kMostRecent) files.removeLast();
    store_.setValue(kRecent, files);
}

}  // namespace quillory
