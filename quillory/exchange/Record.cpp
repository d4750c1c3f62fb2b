#include <quillory/exchange/Record.h>

namespace quillory {

std::string_view Record::ControlNumber() const {
    for (const zorby::CommFormatField& field : fields) {
        if (field.tag == "001") return field.content;
    }
    return {};
}

}  // namespace quillory
