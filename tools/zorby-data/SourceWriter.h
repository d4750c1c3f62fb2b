#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include <tools/zorby-data/Sections.h>

namespace datatool {

// A source as SourceReader reads it. A section without rows is left out.
class SourceWriter {
public:
    void Open(const Section& section) { section_ = &section; }
    // The cells as EncodeCell gives them.
    void Row(std::initializer_list<std::string> cells);
    const std::string& Text() const { return text_; }

private:
    const Section* section_ = nullptr;  // whose header is not written yet
    std::string text_;
};

std::string TagCell(unsigned tag);
std::string CodeCell(char code);

}  // namespace datatool
