#include <quillory/jobs/Library.h>
#include <quillory/places/Tag.h>
#include <quillory/reports/DictionaryNames.h>
#include <quillory/reports/RecordShower.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

namespace quillory {
namespace {

// Names as the settings want names and codes to be shown.
void AddNames(ScreenOptions& screen) {
    const auto display =
        static_cast<zorby::EDISPLAYOPTIONS>(zorby::GetZorbyProfileInt(zorby::ZP_DisplayNameOrMARC));
    screen.fieldName = [display](std::string_view tag) {
        const unsigned number = TagNumber(tag);
        return number == kNoTag ? "" : FieldName(number, display);
    };
    screen.subfieldName = [display](std::string_view tag, char code) {
        const unsigned number = TagNumber(tag);
        return number == kNoTag ? "$" + std::string(1, code) : SubfieldName(number, code, display);
    };
}

}  // namespace

RecordShower::RecordShower(const ShowOptions& options, Charset from, Output& output,
                           Reporter& reporter)
    : screen_{options.width, options.colour},
      output_(output),
      reporter_(reporter),
      recoder_({from, kCharsetUtf8, {}}),
      showsDamaged_(options.damaged) {
    if (options.names) AddNames(screen_);
    if (options.decode) lists_.emplace(LoadCodeLists());
}

void RecordShower::Take(Item& item) {
    if (item.fault && !item.continues) {
        reporter_.SayFault(item);
        status_ = kStatusFindings;
    }
    if (item.kind == kItemRecord) {
        Write(item, item.isPartial ? "(damaged: what is left of the record)" : "");
    } else if (item.kind == kItemDamaged && showsDamaged_ && !item.continues) {
        ShowDamaged(item);
    }
}

// A person can look at whatever there is.
void RecordShower::ShowDamaged(Item& item) {
    if (item.record.leader.empty() && item.record.fields.empty()) return;
    std::string leader(item.record.leader);
    leader.resize(zorby::kLeaderSize, ' ');
    item.record.leader = leader;
    Write(item, "(damaged: what can be read of the record)");
}

// `mark` is a line above the record; empty for none.
void RecordShower::Write(Item& item, std::string_view mark) {
    label_ = item.record.leader;
    // Positions are those of the bytes as they came.
    std::vector<DecodedField> decoded;
    if (lists_) decoded = DecodeRecord(item.record, Decoder(*lists_));
    const Recoder::Result recoded = recoder_.Recode(item.record, losses_);
    item.record.leader = label_;
    if (recoded.mislabelled) reporter_.Say(item, *recoded.mislabelled);
    text_ = shown_ ? "\n" : "";
    shown_ = true;
    if (!mark.empty()) text_.append(mark).append("\n");
    AppendScreen(item.record, decoded, screen_, text_);
    output_.Write(text_);
}

void RecordShower::Finish() {
    if (losses_.Empty()) return;
    reporter_.Say("characters not shown as they are:\n" + losses_.Text("    "));
}

}  // namespace quillory
