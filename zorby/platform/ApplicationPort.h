#pragma once

#include <zorby/Export.h>

#include <string>
#include <utility>

namespace zorby {

// What the library asks about the running program and its platform.
class ZORBY_EXPORT ApplicationPort {
public:
    virtual ~ApplicationPort() = default;

    // The folder of the running program with its trailing separator; empty if it isn't known.
    virtual std::string Folder() const = 0;

    // What stands between the parts of a path.
    virtual char PathSeparator() const = 0;

    // Whether the platform is of the Windows NT family.
    virtual bool IsNTPlatform() const = 0;
};

// Answers with given facts.
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

// The port in force. Plain: the folder that holds the executable file of this process.
ZORBY_EXPORT ApplicationPort& CurrentApplicationPort();

// Puts a port in force that the caller owns and keeps alive; null restores the plain one.
ZORBY_EXPORT void SetApplicationPort(ApplicationPort* port);

}  // namespace zorby
