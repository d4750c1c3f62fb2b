#pragma once

#include <zorby/Export.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace zorby {

// Where INI files are kept.
//
// A line "[name]" starts a section, and the same name again continues it. Any other line is a key,
// the first "=" and a value, all taken as they are; a line without a key is nobody's, and so is a
// key before the first section. Lines end in LF or CR LF. Names are compared byte for byte. The
// last value of a key is the one that counts.
class ZORBY_EXPORT ProfileFilePort {
public:
    virtual ~ProfileFilePort() = default;

    // Gives the whole file. Result 1, or 0 with the text untouched if it can't be read.
    virtual int ReadText(std::string_view path, std::string& text) = 0;

    // Sets the value of a key and changes nothing else of the file, which is made if it is absent.
    // A new key goes to the end of its section, and a new section to the end of the file. A null
    // value removes the key. Result 1; 0 if the format can't hold the section, key or value, or if
    // the file can't be written, which then stays as it was.
    virtual int WriteValue(std::string_view path, std::string_view section, std::string_view key,
                           const char* value) = 0;

    // The value as a decimal number (leading digits, 0 without any); `defaultValue` if the file,
    // the section or the key is absent.
    int ReadInt(std::string_view path, std::string_view section, std::string_view key,
                int defaultValue);
};

// Keeps the files in memory, by their paths.
class ZORBY_EXPORT MemoryProfileFiles : public ProfileFilePort {
public:
    int ReadText(std::string_view path, std::string& text) override;
    int WriteValue(std::string_view path, std::string_view section, std::string_view key,
                   const char* value) override;

    std::map<std::string, std::string, std::less<>> texts;
};

// The port in force. Plain: files on disk. A write replaces the file in one step, follows a
// symbolic link to the real file and keeps the file's mode; writers of one folder, in this process
// or another, wait for each other. After a 0, `errno` tells why.
ZORBY_EXPORT ProfileFilePort& CurrentProfileFilePort();

// Puts a port in force that the caller owns and keeps alive; null restores the plain one.
ZORBY_EXPORT void SetProfileFilePort(ProfileFilePort* port);

}  // namespace zorby
