#include <quillory/text/LateLibrary.h>
#include <quillory/text/YazConverter.h>

#include <yaz/yaz-iconv.h>

#include <stdexcept>
#include <string>

namespace quillory {
namespace {

// It brings thirty libraries.
struct Yaz {
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
        const LateLibrary library("libyaz.so.5", "libyaz");
        library.Find("yaz_iconv_open", open);
        library.Find("yaz_iconv_close", close);
        library.Find("yaz_iconv", convert);
        library.Find("yaz_iconv_error", error);
    }
};

}  // namespace

YazConverter::~YazConverter() {
    if (handle_ != nullptr) Yaz::Loaded().close(static_cast<yaz_iconv_t>(handle_));
}

void* YazConverter::Handle() {
    if (handle_ == nullptr) handle_ = Yaz::Loaded().open(to_, from_);
    if (handle_ != nullptr) return handle_;
    throw std::runtime_error(std::string("libyaz has no converter from ") + from_ + " to " + to_);
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
    auto* const handle = static_cast<yaz_iconv_t>(Handle());
    yaz.convert(handle, nullptr, nullptr, nullptr, nullptr);
    const std::size_t result = yaz.convert(handle, &source, &sourceLeft, &target, &targetLeft);
    const int error = yaz.error(handle);
    yaz.convert(handle, nullptr, nullptr, &target, &targetLeft);
    out.resize(out.size() - targetLeft);
    if (result != static_cast<std::size_t>(-1)) return kDone;
    return error == YAZ_ICONV_EINVAL ? kIncomplete : kFailed;
}

}  // namespace quillory
