#include <quillory/cli/Library.h>
#include <quillory/cli/RecordShower.h>
#include <quillory/exchange/QmText.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdlib>
#include <optional>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quillory {
namespace {

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

}  // namespace

void AddScreenOptions(CLI::App& command, ScreenChoice& choice) {
    command.add_flag("--names", choice.names, "With the names of fields and subfields");
    command.add_flag("--decode", choice.decode,
                     "With Leader, 006, 007 and 008 spelled out; a question mark stands before "
                     "what the format has not");
    AddWidthOption(command, choice);
}

void AddWidthOption(CLI::App& command, ScreenChoice& choice) {
    command.add_option_function<std::size_t>(
        "--width",
        [&choice](std::size_t width) {
            choice.width = width;
            choice.widthGiven = true;
        },
        "Columns of a line, 0 for no limit; the terminal's if not given");
}

ScreenOptions ScreenOf(const ScreenChoice& choice) {
    ScreenOptions screen;
    const bool terminal = isatty(STDOUT_FILENO) != 0;
    const char* noColour = std::getenv("NO_COLOR");
    screen.colour = terminal && (noColour == nullptr || *noColour == 0);
    winsize size{};
    if (choice.widthGiven) {
        screen.width = choice.width;
    } else if (terminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {
        screen.width = size.ws_col;
    }
    return screen;
}

bool LoadNames(const ScreenChoice& choice) {
    if (!choice.names) return true;
    LoadSettings();
    return LoadDictionaries({});
}

RecordShower::RecordShower(const ScreenChoice& choice, Charset from, Reporter& reporter)
    : screen_(ScreenOf(choice)),
      reporter_(reporter),
      recoder_({from, kCharsetUtf8, {}}),
      output_("-") {
    if (choice.names) AddNames(screen_);
    if (choice.decode) lists_.emplace(LoadCodeLists());
}

void RecordShower::Take(Item& item) {
    if (!item.reason.empty() && !item.continues) {
        reporter_.SayFault(item);
        status_ = kStatusFindings;
    }
    if (item.kind == kItemRecord) Show(item);
}

void RecordShower::Show(Item& item) {
    const std::string label(item.record.leader);
    // Positions are those of the bytes as they came.
    std::vector<DecodedField> decoded;
    if (lists_) decoded = DecodeRecord(item.record, Decoder(*lists_));
    const Recoder::Result recoded = recoder_.Recode(item.record, losses_);
    item.record.leader = label;
    if (recoded.mislabelled) {
        reporter_.Say(item, "leader byte 09 names another character set",
                      "leader byte 09 says " + std::string(CharsetName(LabelledCharset(label))) +
                          ", the bytes are " + std::string(CharsetName(recoded.from)));
    }
    text_ = shown_ ? "\n" : "";
    shown_ = true;
    AppendScreen(item.record, decoded, screen_, text_);
    output_.Write(text_);
}

void RecordShower::Finish() {
    if (!losses_.Empty()) {
        reporter_.Say("characters not shown as they are:\n" + losses_.Text("    "));
    }
    output_.Finish();
}

}  // namespace quillory
