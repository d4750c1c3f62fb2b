// A library that is loaded before a program and lets one of its calls of the system fail.
//
// FAILING_CALLS is "KIND NUMBER ERRNO [on]": the call of that number of a kind (write, read, open,
// sync, rename, link) fails with the error, and so do all after it with "on", as on a full disk.
// One of the kind "short" does not fail, but writes only a part of what it is given.

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

struct Plan {
    char kind[16] = "";
    long number = 0;
    int reason = 0;
    bool goesOn = false;
};

Plan ReadPlan() {
    Plan plan;
    char more[8] = "";
    const char* text = std::getenv("FAILING_CALLS");
    if (text == nullptr) return plan;
    std::sscanf(text, "%15s %ld %d %7s", plan.kind, &plan.number, &plan.reason, more);
    plan.goesOn = std::strcmp(more, "on") == 0;
    return plan;
}

// Sets errno if this call is to fail.
bool Fails(const char* kind) {
    static const Plan plan = ReadPlan();
    static std::atomic<long> calls{0};
    if (std::strcmp(plan.kind, kind) != 0) return false;
    const long call = ++calls;
    if (call != plan.number && !(plan.goesOn && call > plan.number)) return false;
    errno = plan.reason;
    return true;
}

template <class Function>
Function Real(Function, const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// What is said to the person goes the usual way.
bool IsMessage(int descriptor) {
    return descriptor == STDERR_FILENO;
}

}  // namespace

// Calls NAME, or fails in its place. VALUE is what NAME returns then.
#define CALL(name, kind, ...)                      \
    static const auto real = Real(&::name, #name); \
    return Fails(kind) ? -1 : real(__VA_ARGS__)

extern "C" {

ssize_t write(int descriptor, const void* bytes, size_t size) {
    static const auto real = Real(&::write, "write");
    if (!IsMessage(descriptor) && Fails("write")) return -1;
    return real(descriptor, bytes, size);
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
    static const auto real = Real(&::writev, "writev");
    if (!IsMessage(descriptor) && Fails("write")) return -1;
    if (IsMessage(descriptor) || !Fails("short")) return real(descriptor, parts, count);
    const iovec half{parts->iov_base, (parts->iov_len + 1) / 2};
    return real(descriptor, &half, 1);
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t offset) {
    CALL(pwrite64, "write", descriptor, bytes, size, offset);
}

ssize_t read(int descriptor, void* bytes, size_t size) {
    CALL(read, "read", descriptor, bytes, size);
}

ssize_t pread64(int descriptor, void* bytes, size_t size, off64_t offset) {
    CALL(pread64, "read", descriptor, bytes, size, offset);
}

int fsync(int descriptor) {
    CALL(fsync, "sync", descriptor);
}

int fdatasync(int descriptor) {
    CALL(fdatasync, "sync", descriptor);
}

int rename(const char* from, const char* to) noexcept {
    CALL(rename, "rename", from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    CALL(renameat, "rename", fromFolder, from, toFolder, to);
}

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    CALL(open, "open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    CALL(open64, "open", path, flags, mode);
}

int mkostemp(char* path, int flags) {
    CALL(mkostemp, "open", path, flags);
}

}  // extern "C"
