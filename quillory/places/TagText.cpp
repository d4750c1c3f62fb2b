#include <quillory/places/TagText.h>

#include <cstdio>

namespace quillory {

std::string TagText(unsigned tag) {
    char text[16];
    std::snprintf(text, sizeof text, "%03u", tag);
    return text;
}

}  // namespace quillory
