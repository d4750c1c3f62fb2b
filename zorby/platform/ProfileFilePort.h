#pragma once

#include <zorby/Export.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace zorby {

// Where INI files are kept.
//
// A line "[name]" starts a section, and the same name later continues that section. Any other line
// is a key, "=" and a value. The key ends at the first "=", and nothing is trimmed. A line without
// a key is ignored, and so are a key before the first section and a byte order mark of UTF-8 before
// the first line. Lines end in LF or CR LF. Names are
// compared byte for byte. If a key occurs several times, its last value counts.
class ZORBY_EXPORT ProfileFilePort {
public:
    virtual ~ProfileFilePort() = default;

    // Gives the whole file. Returns 1, or 0 with `text` untouched if the file can't be read.
    virtual int ReadText(std::string_view path, std::string& text) = 0;

    // Sets the value of a key and changes nothing else in the file, which is created if it is
    // absent. A new key goes to the end of its section, and a new section to the end of the file. A
    // null value removes the key. Returns 1, or 0 if the format can't hold the section, the key or
    // the value, or if the file can't be written; the file then stays as it was.
    virtual int WriteValue(std::string_view path, std::string_view section, std::string_view key,
                           const char* value) = 0;

    // Returns the value as a decimal number: its leading digits, or 0 if there are none. Returns
    // `defaultValue` if the file, the section or the key is absent.
    int ReadInt(std::string_view path, std::string_view section, std::string_view key,
                int defaultValue);
};

// Keeps the files in memory, each under its path.
class ZORBY_EXPORT MemoryProfileFiles : public ProfileFilePort {
public:
    int ReadText(std::string_view path, std::string& text) override;
    int WriteValue(std::string_view path, std::string_view section, std::string_view key,
                   const char* value) override;

    std::map<std::string, std::string, std::less<>> texts;
};

// Returns the port in force. The plain one keeps files on disk. A write replaces the file in one
// step, follows a symbolic link to the real file and keeps the mode of the file. Writers of one
// folder, in this process or another, wait for each other, for ten seconds at most. After a result
// of 0, `errno` has the reason.
ZORBY_EXPORT ProfileFilePort& CurrentProfileFilePort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetProfileFilePort(ProfileFilePort* port);

}  // namespace zorby
