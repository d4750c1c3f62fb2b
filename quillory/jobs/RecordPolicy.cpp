#include <quillory/jobs/Library.h>
#include <quillory/jobs/RecordPolicy.h>

namespace quillory {

Checker MakeChecker(const PolicyOptions& options, Charset charset) {
    LoadSettings();
    PutInForce(options.policy);
    LoadDictionaries(options.userDefined);
    return Checker({charset, options.userDefined.empty()});
}

}  // namespace quillory
