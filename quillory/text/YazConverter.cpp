#include <quillory/text/YazConverter.h>

#include <yaz/yaz-iconv.h>

#include <stdexcept>

namespace quillory {
namespace {

yaz_iconv_t Handle(void* handle) {
    return static_cast<yaz_iconv_t>(handle);
}

}  // namespace

YazConverter::YazConverter(const char* to, const char* from) : handle_(yaz_iconv_open(to, from)) {
    if (handle_ == nullptr) {
        throw std::runtime_error(std::string("libyaz has no converter from ") + from + " to " + to);
    }
}

YazConverter::~YazConverter() {
    yaz_iconv_close(Handle(handle_));
}

YazConverter::Outcome YazConverter::Convert(std::string in, std::string& out) {
    constexpr std::size_t kGrowth = 8;  // bytes for one byte, escapes included
    constexpr std::size_t kLastEscapes = 64;
    out.resize(in.size() * kGrowth + kLastEscapes);
    char* source = in.data();
    std::size_t sourceLeft = in.size();
    char* target = out.data();
    std::size_t targetLeft = out.size();
    yaz_iconv(Handle(handle_), nullptr, nullptr, nullptr, nullptr);
    const std::size_t result =
        yaz_iconv(Handle(handle_), &source, &sourceLeft, &target, &targetLeft);
    const int error = yaz_iconv_error(Handle(handle_));
    yaz_iconv(Handle(handle_), nullptr, nullptr, &target, &targetLeft);
    out.resize(out.size() - targetLeft);
    if (result != static_cast<std::size_t>(-1)) return kDone;
    return error == YAZ_ICONV_EINVAL ? kIncomplete : kFailed;
}

}  // namespace quillory
