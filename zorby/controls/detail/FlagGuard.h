#pragma once

namespace zorby {

// Sets a flag while the object lives.
class FlagGuard {
public:
    explicit FlagGuard(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagGuard() { flag_ = false; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

private:
    bool& flag_;
};

}  // namespace zorby
