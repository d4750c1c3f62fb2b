#include <quillory/text/YazConverter.h>

#include <yaz/yaz-iconv.h>

#include <dlfcn.h>
#include <stdexcept>
#include <string>

namespace quillory {
namespace {

// Few texts need libyaz, and it brings thirty libraries: it is loaded by the first that does.
class Yaz {
public:
    static const Yaz& Loaded() {
        static const Yaz yaz;
        return yaz;
    }

    decltype(&yaz_iconv_open) open;
    decltype(&yaz_iconv_close) close;
    decltype(&yaz_iconv) convert;
    decltype(&yaz_iconv_error) error;

private:
    Yaz() {
        Find("yaz_iconv_open", open);
        Find("yaz_iconv_close", close);
        Find("yaz_iconv", convert);
        Find("yaz_iconv_error", error);
    }

    template <class Function>
    void Find(const char* name, Function& function) {
        void* const found = library_ == nullptr ? nullptr : dlsym(library_, name);
        if (found == nullptr) {
            throw std::runtime_error(std::string("libyaz can't be used: ") + dlerror());
        }
        function = reinterpret_cast<Function>(found);
    }

    void* library_ = dlopen("libyaz.so.5", RTLD_LAZY | RTLD_LOCAL);
};

yaz_iconv_t Handle(void* handle) {
    return static_cast<yaz_iconv_t>(handle);
}

}  // namespace

YazConverter::YazConverter(const char* to, const char* from)
    : handle_(Yaz::Loaded().open(to, from)) {
    if (handle_ == nullptr) {
        throw std::runtime_error(std::string("libyaz has no converter from ") + from + " to " + to);
    }
}

YazConverter::~YazConverter() {
    Yaz::Loaded().close(Handle(handle_));
}

YazConverter::Outcome YazConverter::Convert(std::string in, std::string& out) {
    constexpr std::size_t kGrowth = 8;  // bytes for one byte, escapes included
    constexpr std::size_t kLastEscapes = 64;
    out.resize(in.size() * kGrowth + kLastEscapes);
    char* source = in.data();
    std::size_t sourceLeft = in.size();
    char* target = out.data();
    std::size_t targetLeft = out.size();
    const Yaz& yaz = Yaz::Loaded();
    yaz.convert(Handle(handle_), nullptr, nullptr, nullptr, nullptr);
    const std::size_t result =
        yaz.convert(Handle(handle_), &source, &sourceLeft, &target, &targetLeft);
    const int error = yaz.error(Handle(handle_));
    yaz.convert(Handle(handle_), nullptr, nullptr, &target, &targetLeft);
    out.resize(out.size() - targetLeft);
    if (result != static_cast<std::size_t>(-1)) return kDone;
    return error == YAZ_ICONV_EINVAL ? kIncomplete : kFailed;
}

}  // namespace quillory
