#pragma once

#include <zorby/platform/FilePort.h>

namespace zorby {

// Regular files on disk, locked while they are open.
class DiskFiles : public FilePort {
public:
    std::unique_ptr<OpenFile> Open(const std::string& path) override;
    bool Exists(const std::string& path) const override;
    int Delete(const std::string& path) override;
};

}  // namespace zorby
