#pragma once

#include <quillory/text/Losses.h>

#include <iconv.h>
#include <string>
#include <string_view>

namespace quillory {

// Carries text between UTF-8 and a character set of the C library.
class IconvConverter {
public:
    // Whether the C library converts a set of this name both ways, and ASCII in it is as it is.
    static bool HasSet(const std::string& name);

    // Throws std::runtime_error if HasSet is false.
    explicit IconvConverter(const std::string& name);
    ~IconvConverter();
    IconvConverter(const IconvConverter&) = delete;
    IconvConverter& operator=(const IconvConverter&) = delete;

    // A byte that is no character becomes U+FFFD.
    void AppendUtf8(std::string_view text, std::string& utf8, Losses& losses);
    // Characters that the set does not have are written as &#xXXXX;
    void AppendFromUtf8(std::string_view utf8, std::string& text, Losses& losses);

private:
    iconv_t toUtf8_;
    iconv_t fromUtf8_;
};

}  // namespace quillory
