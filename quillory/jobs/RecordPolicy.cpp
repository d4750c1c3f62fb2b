#include <quillory/jobs/Library.h>
#include <quillory/jobs/RecordPolicy.h>

namespace quillory {

std::optional<Checker> MakeChecker(const PolicyOptions& options, Charset charset) {
    LoadSettings();
    PutInForce(options.policy);
    if (!LoadDictionaries(options.userDefined)) return std::nullopt;
    return Checker({charset, options.userDefined.empty()});
}

}  // namespace quillory
