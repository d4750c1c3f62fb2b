#pragma once

#include <cstdint>
#include <string>

namespace quillory {

// One direction of libyaz's character conversion. No call depends on another. libyaz is loaded when
// the first text is converted.
class YazConverter {
public:
    enum Outcome : std::int32_t { kDone, kIncomplete, kFailed };

    YazConverter(const char* to, const char* from) : to_(to), from_(from) {}
    ~YazConverter();
    YazConverter(const YazConverter&) = delete;
    YazConverter& operator=(const YazConverter&) = delete;

    // The result replaces `out`. A text that ends in a diacritic is incomplete. Throws
    // std::runtime_error if libyaz can't be used or does not know the names.
    Outcome Convert(std::string in, std::string& out);

private:
    void* Handle();

    const char* to_;
    const char* from_;
    void* handle_ = nullptr;  // once it is open
};

}  // namespace quillory
