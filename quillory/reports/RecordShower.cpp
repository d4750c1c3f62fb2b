#include <quillory/jobs/Library.h>
#include <quillory/reports/RecordShower.h>
#include <quillory/text/QmText.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <charconv>
#include <cstdlib>
#include <optional>
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

RecordShower::RecordShower(const ShowOptions& options, Charset from, Reporter& reporter)
    : screen_{options.width, options.colour, {}, {}},
      reporter_(reporter),
      recoder_({from, kCharsetUtf8, {}}),
      output_("-") {
    if (options.names) AddNames(screen_);
    if (options.decode) lists_.emplace(LoadCodeLists());
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
