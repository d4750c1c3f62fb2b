#include <quillory/cards/PrintItem.h>

namespace quillory {

std::string_view UseName(ItemUse use) {
    switch (use) {
        case kUseShelfList:
            return "shelf list";
        case kUseMainEntry:
            return "main entry";
        case kUseTitle:
            return "title";
        case kUseName:
            return "name";
        case kUseSeries:
            return "series";
        case kUseSubject:
            return "subject";
        case kUseLabel:
            return "label";
    }
    return "unknown";
}

std::vector<std::string> PrintItem::Texts(BlockRole role) const {
    std::vector<std::string> texts;
    for (const Block& block : blocks) {
        if (block.role == role) texts.push_back(block.text);
    }
    return texts;
}

}  // namespace quillory
