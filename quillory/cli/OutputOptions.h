#pragma once

#include <quillory/cli/Carrier.h>
#include <quillory/cli/Reporter.h>
#include <quillory/exchange/Form.h>
#include <quillory/exchange/Recoder.h>

#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace quillory {

// Where a command writes records, and how.
struct OutputOptions {
    std::string output = "-";
    std::string rejects;
    Form form = kFormUnknown;  // told by name, or ISO 2709
    Charset charset = kCharsetAuto;
    std::optional<NormalForm> normalForm;
    Oversize oversize = kOversizeRefuse;
    bool eachLoss = false;
    bool verify = false;  // as in RecoderOptions; no option of the command line
};

void AddOutputOptions(CLI::App& command, OutputOptions& options);

// The character set that records are written in; auto if each keeps its own. Throws
// std::invalid_argument for one that the form has not.
Charset CharsetOfOutput(const OutputOptions& options);

// Hands items to `take`, which says whether to go on.
using ItemSource = std::function<Status(const std::function<bool(Item& item)>& take)>;

// Writes what a source gives, of which the character set is `from`, with messages and a summary.
// `prepare` is done to each record (CarrierOptions). Throws FileError, and std::invalid_argument
// for a character set that the form has not.
Status WriteItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  Reporter& reporter, const Preparation& prepare = {});

}  // namespace quillory
