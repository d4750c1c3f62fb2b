#pragma once

#include <cstdint>
#include <string>

namespace quillory {

// One direction of libyaz's character conversion. No call depends on another.
class YazConverter {
public:
    enum Outcome : std::int32_t { kDone, kIncomplete, kFailed };

    // Throws std::runtime_error if libyaz does not know the names.
    YazConverter(const char* to, const char* from);
    ~YazConverter();
    YazConverter(const YazConverter&) = delete;
    YazConverter& operator=(const YazConverter&) = delete;

    // The result replaces `out`. A text that ends in a diacritic is incomplete.
    Outcome Convert(std::string in, std::string& out);

private:
    void* handle_;
};

}  // namespace quillory
