#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/jobs/Carrier.h>
#include <quillory/jobs/ItemWorker.h>

#include <functional>
#include <optional>
#include <string>

namespace quillory {

// Where a job writes records, and how.
struct OutputOptions {
    std::string output = "-";
    std::string rejects;
    bool force = false;          // replaces what is write-protected
    const Form* form = nullptr;  // null: by name, or ISO 2709 for a name without an ending
    Charset charset = kCharsetAuto;
    std::optional<NormalForm> normalForm;
    WriterOptions writing = {};
    bool eachLoss = false;
    // As in RecoderOptions; only a job itself asks for them. What is to be in UTF-8 is verified.
    bool verify = false;
    bool replaceInvalid = false;
    bool isDryRun = false;  // goes the whole way, and writes no records
    // Completes what a job itself writes beside the records, before these take their name.
    std::function<void()> completeBeside = {};
};

// The form by which records are written. Throws UsageError if the name of the output has an ending
// that is none of a form.
const Form& FormOfOutput(const OutputOptions& options);

// The character set that records are written in; auto if each keeps its own. Throws
// UsageError for one that the form lacks.
Charset CharsetOfOutput(const OutputOptions& options);

// Has the job done with items until it returns false, or by workers.
using ItemSource = std::function<Status(const ItemJob& job)>;

// A preparation of a worker's own, and what is called after each batch of its records.
struct PreparationShare {
    Preparation prepare = {};
    std::function<void()> endBatch = [] {};
};

// Its steps are done in the order of the input.
using PreparationMaker = std::function<PreparationShare(Reporter& reporter, Steps& steps)>;

// Writes what a source gives, in the character set `from`, with messages and a summary. Each record
// is prepared first (CarrierOptions); work on records that are prepared is shared out only if each
// worker can prepare them by itself. Throws FileError, and UsageError for a character set that the
// form lacks.
Status WriteItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  Reporter& reporter, const Preparation& prepare = {},
                  const PreparationMaker& makePreparation = {});

// How the outputs of a job are closed. None has its name before all are complete, rejects too.
struct Closing {
    std::function<void()> complete;
    std::function<void()> takeNames;
};

// The same for a writer and outputs of the job's own. The output's path in `options` only says
// which form.
Status CarryItems(const ItemSource& source, Charset from, const OutputOptions& options,
                  RecordWriter& writer, const Closing& closing, Reporter& reporter,
                  const Preparation& prepare = {});

}  // namespace quillory
