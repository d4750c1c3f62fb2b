#include <quillory/desktop/DeskSettings.h>

namespace quillory {
namespace {

constexpr auto kRecent = "files/recent";
constexpr int kMostRecent = 8;

}  // namespace

// No path stands for nothing: settings are put in the place of whatever has that name.
DeskSettings::DeskSettings(const QString& path) {
    if (!path.isEmpty()) store_ = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

QVariant DeskSettings::Value(const QString& key) const {
    return store_ ? store_->value(key) : QVariant();
}

void DeskSettings::SetValue(const QString& key, const QVariant& value) {
    if (store_) store_->setValue(key, value);
}

QStringList DeskSettings::RecentFiles() const {
    return Value(kRecent).toStringList();
}

void DeskSettings::AddRecentFile(const QString& path) {
    QStringList files = RecentFiles();
    files.removeAll(path);
    files.prepend(path);
    while (files.size() > kMostRecent) files.removeLast();
    SetValue(kRecent, files);
}

}  // namespace quillory
