#include <quillory/jobs/ConvertFiles.h>
#include <quillory/jobs/OutputFiles.h>

namespace quillory {

Status ConvertFiles(const ConvertOptions& options, Reporter& reporter) {
    CheckNotAnInput(options.input.files, options.output.output);
    CheckNotAnInput(options.input.files, options.output.rejects);
    const ItemSource files = [&](const auto& take) {
        return ReadFiles(options.input, reporter, take);
    };
    OutputOptions output = options.output;
    output.replaceInvalid = options.input.lenient;
    return WriteItems(files, options.input.charset, output, reporter);
}

}  // namespace quillory
