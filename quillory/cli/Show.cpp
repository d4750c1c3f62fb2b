#include <quillory/cli/Commands.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/Library.h>
#include <quillory/cli/RecordScreen.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/QmText.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdlib>
#include <memory>
#include <optional>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quillory {
namespace {

struct ShowOptions {
    InputOptions input;
    std::size_t width = 0;
    bool widthGiven = false;
    std::uint64_t record = 0;  // 0 for all
    bool names = false;
    bool decode = false;
};

ScreenOptions ScreenOf(const ShowOptions& options) {
    ScreenOptions screen;
    const bool terminal = isatty(STDOUT_FILENO) != 0;
    const char* noColour = std::getenv("NO_COLOR");
    screen.colour = terminal && (noColour == nullptr || *noColour == 0);
    winsize size{};
    if (options.widthGiven) {
        screen.width = options.width;
    } else if (terminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {
        screen.width = size.ws_col;
    }
    return screen;
}

std::optional<unsigned> NumberOf(std::string_view tag) {
    unsigned number = 0;
    const auto read = std::from_chars(tag.data(), tag.data() + tag.size(), number);
    const bool isTag = tag.size() == 3 && read.ptr == tag.data() + tag.size();
    return isTag ? std::optional(number) : std::nullopt;
}

// Names as the settings want names and codes to be shown.
void AddNames(ScreenOptions& screen) {
    const auto display =
        static_cast<zorby::EDISPLAYOPTIONS>(zorby::GetZorbyProfileInt(zorby::ZP_DisplayNameOrMARC));
    screen.fieldName = [display](std::string_view tag) {
        std::string name;
        if (const auto number = NumberOf(tag)) {
            zorby::CMARCFormat::FieldName(*number, display, name);
        }
        return QmToUtf8(name);
    };
    screen.subfieldName = [display](std::string_view tag, char code) {
        std::string name = "$" + std::string(1, code);
        if (const auto number = NumberOf(tag)) {
            zorby::CMARCFormat::SubfieldName(*number, code, display, name);
        }
        return QmToUtf8(name);
    };
}

class Shower {
public:
    explicit Shower(const ShowOptions& options)
        : options_(options),
          screen_(ScreenOf(options)),
          reporter_(options.input.quiet, options.input.verbose),
          recoder_({options.input.charset, kCharsetUtf8, {}}),
          output_("-") {
        if (options.names) AddNames(screen_);
        if (options.decode) lists_.emplace(LoadCodeLists());
    }

    Status Run() {
        try {
            const Status read =
                ReadFiles(options_.input, reporter_, [this](Item& item) { return Take(item); });
            status_ = std::max(status_, read);
            if (!losses_.Empty()) {
                reporter_.Say("characters not shown as they are:\n" + losses_.Text("    "));
            }
            output_.Finish();
        } catch (const ClosedPipe&) {
            return status_;
        }
        return status_;
    }

private:
    bool Take(Item& item) {
        if (options_.record != 0 && item.number > options_.record) return false;
        if (options_.record != 0 && item.number < options_.record) return true;
        if (!item.reason.empty() && !item.continues) {
            const char* outcome = item.kind == kItemRecord ? "read from its terminators" : "";
            reporter_.SayFault(item, outcome);
            status_ = kStatusFindings;
        }
        if (item.kind == kItemRecord) Show(item);
        return true;
    }

    void Show(Item& item) {
        const std::string label(item.record.leader);
        // Positions are those of the bytes as they came.
        std::vector<DecodedField> decoded;
        if (lists_) decoded = DecodeRecord(item.record, Decoder(*lists_));
        const Recoder::Result recoded = recoder_.Recode(item.record, losses_);
        item.record.leader = label;
        if (recoded.mislabelled) {
            reporter_.Say(item, "leader byte 09 names another character set",
                          "leader byte 09 says " +
                              std::string(CharsetName(LabelledCharset(label))) +
                              ", the bytes are " + std::string(CharsetName(recoded.from)));
        }
        text_ = shown_ ? "\n" : "";
        shown_ = true;
        AppendScreen(item.record, decoded, screen_, text_);
        output_.Write(text_);
    }

    const ShowOptions& options_;
    ScreenOptions screen_;
    Reporter reporter_;
    Recoder recoder_;
    Output output_;
    Losses losses_;
    std::optional<CodeLists> lists_;
    std::string text_;
    bool shown_ = false;
    Status status_ = kStatusWell;
};

}  // namespace

void AddShow(CLI::App& program, Run& run) {
    auto options = std::make_shared<ShowOptions>();
    CLI::App* command = program.add_subcommand("show", "Show records as a person reads them");
    AddInputOptions(*command, options->input);
    command->add_flag("--names", options->names, "With the names of fields and subfields");
    command->add_flag("--decode", options->decode,
                      "With Leader, 006, 007 and 008 spelled out; a question mark stands before "
                      "what the format has not");
    command->add_option("--record", options->record, "Only the record of this number, from 1");
    CLI::Option* width =
        command->add_option("--width", options->width,
                            "Columns of a line, 0 for no limit; the terminal's if not given");
    command->callback([options, width, &run] {
        options->widthGiven = width->count() > 0;
        run = [options] {
            if (options->names) {
                LoadSettings();
                if (!LoadDictionaries({})) return kStatusFailed;
            }
            return Shower(*options).Run();
        };
    });
}

}  // namespace quillory
