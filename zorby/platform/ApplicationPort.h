#pragma once

#include <zorby/Export.h>

#include <string>
#include <utility>

namespace zorby {

// What the library asks about the running program and its platform.
class ZORBY_EXPORT ApplicationPort {
public:
    virtual ~ApplicationPort() = default;

    // Returns the folder of the running program with its trailing separator, or an empty text if it
    // isn't known.
    virtual std::string Folder() const = 0;

    // Returns the character between the parts of a path.
    virtual char PathSeparator() const = 0;

    // Returns whether the platform is of the Windows NT family.
    virtual bool IsNTPlatform() const = 0;
};

// Answers with the facts that it was given.
class ZORBY_EXPORT FixedApplication : public ApplicationPort {
public:
    FixedApplication(std::string folder, char pathSeparator, bool isNTPlatform)
        : folder_(std::move(folder)), pathSeparator_(pathSeparator), isNTPlatform_(isNTPlatform) {}

    std::string Folder() const override { return folder_; }
    char PathSeparator() const override { return pathSeparator_; }
    bool IsNTPlatform() const override { return isNTPlatform_; }

private:
    std::string folder_;
    char pathSeparator_;
    bool isNTPlatform_;
};

// Returns the port in force. The plain one gives the folder of this process's executable file.
ZORBY_EXPORT ApplicationPort& CurrentApplicationPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetApplicationPort(ApplicationPort* port);

}  // namespace zorby
