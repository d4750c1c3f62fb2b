#include <quillory/text/LateLibrary.h>

#include <dlfcn.h>
#include <stdexcept>
#include <string>

namespace quillory {
namespace {

void* Checked(void* found, const char* name) {
    if (found != nullptr) return found;
    throw std::runtime_error(std::string(name) + " can't be used: " + dlerror());
}

}  // namespace

LateLibrary::LateLibrary(const char* file, const char* name)
    : library_(Checked(dlopen(file, RTLD_LAZY | RTLD_LOCAL), name)), name_(name) {}

void* LateLibrary::Find(const char* function) const {
    return Checked(dlsym(library_, function), name_);
}

}  // namespace quillory
