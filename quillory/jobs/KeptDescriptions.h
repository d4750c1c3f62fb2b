#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The bytes that are kept of descriptions from which no record was made. Together they are a file
// that can be mended and read again: what stood above the first record of a file goes with them.
class KeptDescriptions {
public:
    // `head` is what stands above the first record; the view has to last as long as the file is
    // read.
    void BeginFile(std::string_view head) { head_ = head; }

    // What is kept of a description. The view holds until the next call.
    std::string_view Keep(std::string_view description);

private:
    std::string_view head_;
    std::string first_;  // the head at the beginning of what is kept
    bool isBegun_ = false;
    std::string kept_;
};

}  // namespace quillory
