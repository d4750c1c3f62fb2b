#include <quillory/cli/Commands.h>
#include <quillory/cli/InputOptions.h>

#include <CLI/CLI.hpp>

#include <filesystem>
#include <map>
#include <memory>

namespace quillory {
namespace {

struct ConvertOptions {
    InputOptions input;
    std::string output = "-";
    std::string rejects;
    Form form = kFormUnknown;
    Charset charset = kCharsetAuto;
    std::string normalForm;
    Oversize oversize = kOversizeRefuse;
    bool eachLoss = false;
};

// The work of one call of the command.
class Converter {
public:
    explicit Converter(const ConvertOptions& options);
    Status Run();

private:
    void Take(Item& item);
    void TakeRecord(Item& item);
    void Reject(const Item& item);
    void CountLosses(const Item& item);
    void Finish();
    void Summarize() const;

    const ConvertOptions& options_;
    Reporter reporter_;
    Recoder recoder_;
    Output output_;
    std::unique_ptr<Output> rejects_;
    std::unique_ptr<RecordWriter> writer_;
    Losses losses_;
    Losses recordLosses_;
    Status status_ = kStatusWell;
    std::uint64_t written_ = 0;
    std::uint64_t rejected_ = 0;
    std::uint64_t stray_ = 0;
    std::uint64_t mislabelled_ = 0;
    std::uint64_t leadersMended_ = 0;
};

void CheckNotAnInput(const ConvertOptions& options, const std::string& path) {
    if (path.empty() || path == "-") return;
    for (const std::string& file : options.input.files) {
        if (file != "-" && Input(file).IsSameFileAs(path)) {
            throw FileError(path + ": is an input, and would be overwritten");
        }
    }
}

void CheckPlaces(const ConvertOptions& options) {
    CheckNotAnInput(options, options.output);
    CheckNotAnInput(options, options.rejects);
    std::error_code error;
    const bool same = options.rejects == options.output ||
                      std::filesystem::equivalent(options.rejects, options.output, error);
    if (!options.rejects.empty() && options.rejects != "/dev/null" && same) {
        throw FileError(options.rejects + ": can't take both the records and the rejects");
    }
}

RecoderOptions RecoderOptionsOf(const ConvertOptions& options) {
    RecoderOptions recoder{options.input.charset, options.charset, {}};
    if (options.normalForm == "nfc") recoder.form = kNormalFormC;
    if (options.normalForm == "nfd") recoder.form = kNormalFormD;
    return recoder;
}

Form FormOfOutput(const ConvertOptions& options) {
    const Form form = options.form != kFormUnknown ? options.form : FormOfName(options.output);
    return form != kFormUnknown ? form : kFormMarc;
}

Converter::Converter(const ConvertOptions& options)
    : options_(options),
      reporter_(options.input.quiet, options.input.verbose),
      recoder_(RecoderOptionsOf(options)),
      output_(options.output),
      writer_(MakeWriter(FormOfOutput(options), output_, options.oversize)) {
    if (!options.rejects.empty()) rejects_ = std::make_unique<Output>(options.rejects);
}

void Converter::Reject(const Item& item) {
    if (rejects_) rejects_->Write(item.bytes);
    status_ = kStatusFindings;
}

void Converter::CountLosses(const Item& item) {
    if (recordLosses_.Empty()) return;
    if (options_.eachLoss) {
        reporter_.Say(item, "characters not carried",
                      "characters not carried:\n" + recordLosses_.Text("    "));
    }
    if (recordLosses_.Real()) status_ = kStatusFindings;
    losses_.Add(recordLosses_);
    recordLosses_.Clear();
}

void Converter::TakeRecord(Item& item) {
    if (!item.reason.empty()) {
        reporter_.SayFault(item, "read from its terminators");
        status_ = kStatusFindings;
    }
    const Recoder::Result recoded = recoder_.Recode(item.record, recordLosses_);
    if (recoded.mislabelled) {
        ++mislabelled_;
        reporter_.Say(item, "leader byte 09 names another character set",
                      "leader byte 09 says " +
                          std::string(CharsetName(LabelledCharset(item.bytes))) +
                          ", the bytes are " + std::string(CharsetName(recoded.from)));
    }
    const WriteResult result = writer_->Write(item.record, recordLosses_);
    CountLosses(item);
    if (result.leaderMended) ++leadersMended_;
    if (!result.reason.empty()) {
        const char* kind = result.written ? "not written in full" : "can't be written";
        reporter_.Say(item, kind, result.reason);
        status_ = kStatusFindings;
    }
    if (result.written) {
        ++written_;
    } else {
        ++rejected_;
        Reject(item);
    }
}

void Converter::Take(Item& item) {
    if (item.kind == kItemRecord) {
        TakeRecord(item);
        return;
    }
    if (!item.continues) {
        if (item.kind == kItemStray) {
            ++stray_;
        } else {
            ++rejected_;
        }
        reporter_.SayFault(item, "");
    }
    Reject(item);
}

void Converter::Summarize() const {
    if (!losses_.Empty()) {
        reporter_.Say("characters not carried as they were:\n" + losses_.Text("    "));
    }
    if (options_.input.quiet) return;
    if (leadersMended_ > 0) {
        reporter_.Say("leader 10-11 and 20-23 set to \"22\" and \"4500\" in " +
                      Counted(leadersMended_, "record"));
    }
    if (status_ == kStatusWell) return;
    std::string text = Counted(written_, "record") + " written";
    if (rejected_ > 0) {
        text += ", " + std::to_string(rejected_) + " not";
        if (rejects_) text += " (kept in " + options_.rejects + ")";
    }
    if (stray_ > 0) text += ", stray bytes in " + Counted(stray_, "place");
    if (mislabelled_ > 0) text += ", " + std::to_string(mislabelled_) + " mislabelled";
    reporter_.Say(text);
}

void Converter::Finish() {
    output_.Finish();
    if (rejects_) rejects_->Finish();
}

Status Converter::Run() {
    try {
        const Status read = ReadFiles(options_.input, reporter_, [this](Item& item) {
            Take(item);
            return true;
        });
        status_ = std::max(status_, read);
        Finish();
    } catch (const ClosedPipe&) {
        if (rejects_) rejects_->Finish();
        return status_;
    }
    Summarize();
    return status_;
}

}  // namespace

void AddConvert(CLI::App& program, Run& run) {
    auto options = std::make_shared<ConvertOptions>();
    CLI::App* command =
        program.add_subcommand("convert", "Carry records between forms and character sets");
    AddInputOptions(*command, options->input);
    command->add_option("-o,--output", options->output,
                        "Where the records go; standard output if not given");
    AddFormOption(*command, "--to", options->form,
                  "Form of the output; told by its name, or marc, if not given");
    AddCharsetOption(*command, "--to-charset", options->charset,
                     "Character set of the output; as it is if not given");
    command
        ->add_option("--normalize", options->normalForm, "Normal form of UTF-8; nfc if not given")
        ->check(CLI::IsMember({"nfc", "nfd"}))
        ->option_text("nfc|nfd");
    command->add_option("--rejects", options->rejects,
                        "Where the bytes of everything go that is not written");
    const std::map<std::string, Oversize> policies{{"refuse", kOversizeRefuse},
                                                   {"cut", kOversizeCut}};
    command
        ->add_option(
            "--oversize", options->oversize,
            "A field of over 9,999 bytes, or a record of over 99,999: refuse the record, or "
            "cut it; refuse if not given")
        ->transform(CLI::CheckedTransformer(policies).description(""))
        ->option_text("refuse|cut");
    command->add_flag("--each-loss", options->eachLoss,
                      "Report the characters not carried for each record, too");
    command->callback([options, &run] {
        run = [options] {
            CheckPlaces(*options);
            return Converter(*options).Run();
        };
    });
}

}  // namespace quillory
