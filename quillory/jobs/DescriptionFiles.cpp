#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/DescriptionFiles.h>

namespace quillory {

std::string ReadDescriptionFile(const std::string& path) {
    Input input(path);
    std::string text = ReadWhole(input);
    if (text.empty()) throw FileError(path + ": " + FaultReason({FaultCode::kEmptyFile}));
    return text;
}

}  // namespace quillory
