#include <quillory/reports/DictionaryNames.h>
#include <quillory/text/QmText.h>
#include <zorby/format/MARCFormat.h>

namespace quillory {

std::string FieldName(unsigned tag, zorby::EDISPLAYOPTIONS display) {
    std::string name;
    zorby::CMARCFormat::FieldName(tag, display, name);
    return QmToUtf8(name);
}

std::string SubfieldName(unsigned tag, char code, zorby::EDISPLAYOPTIONS display) {
    std::string name;
    zorby::CMARCFormat::SubfieldName(tag, code, display, name);
    return QmToUtf8(name);
}

std::string IndicatorText(char indicator) {
    return indicator == '_' || indicator == '\0' ? "#" : QmToUtf8({&indicator, 1});
}

}  // namespace quillory
