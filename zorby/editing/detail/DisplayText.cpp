#include <zorby/charset/Convert.h>
#include <zorby/charset/QmCode.h>
#include <zorby/editing/detail/DisplayText.h>

namespace zorby {

std::string DisplayText(std::string_view text) {
    const std::string source(text);
    std::string display(source.size() + 1, '\0');
    CSQmToDisplay(source.c_str(), display.data(), CSGetDisplayType(), 0);
    display.pop_back();
    return display;
}

}  // namespace zorby
