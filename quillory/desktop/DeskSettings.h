#pragma once

#include <QByteArray>
#include <QSettings>
#include <QStringList>

namespace quillory {

// What the desk remembers from one day to the next, in the folder of the user's other settings.
class DeskSettings {
public:
    // An empty path keeps nothing.
    explicit DeskSettings(const QString& path);

    QStringList RecentFiles() const;
    void AddRecentFile(const QString& path);
    bool IsDark() const { return store_.value("window/dark", false).toBool(); }
    void SetDark(bool isDark) { store_.setValue("window/dark", isDark); }
    QByteArray State(const QString& what) const { return store_.value(what).toByteArray(); }
    void SetState(const QString& what, const QByteArray& state) { store_.setValue(what, state); }

private:
    QSettings store_;
};

}  // namespace quillory
