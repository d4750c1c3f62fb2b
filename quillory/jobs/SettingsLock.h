#pragma once

namespace quillory {

// Keeps other programs from changing the settings as long as it lives, so that nothing of theirs is
// lost between a read and a write. Throws FileError if another program doesn't let go of them, or
// if the folder of the settings can't be written.
class SettingsLock {
public:
    SettingsLock();
    ~SettingsLock();
    SettingsLock(const SettingsLock&) = delete;
    SettingsLock& operator=(const SettingsLock&) = delete;

private:
    int descriptor_;
};

}  // namespace quillory
