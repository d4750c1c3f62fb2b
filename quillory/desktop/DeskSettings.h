#pragma once

#include <QByteArray>
#include <QSettings>
#include <QStringList>
#include <QVariant>
#include <memory>

namespace quillory {

// What the desk remembers from one day to the next, in the folder of the user's other settings.
class DeskSettings {
public:
    // An empty path keeps nothing.
    explicit DeskSettings(const QString& path);

    QStringList RecentFiles() const;
    void AddRecentFile(const QString& path);
    bool IsDark() const { return Value("window/dark").toBool(); }
    void SetDark(bool isDark) { SetValue("window/dark", isDark); }
    QByteArray State(const QString& what) const { return Value(what).toByteArray(); }
    void SetState(const QString& what, const QByteArray& state) { SetValue(what, state); }

private:
    QVariant Value(const QString& key) const;
    void SetValue(const QString& key, const QVariant& value);

    std::unique_ptr<QSettings> store_;  // null if nothing is kept
};

}  // namespace quillory
