#include <quillory/cataloging/RecordMaker.h>
#include <zorby/workforms/TemplateList.h>

#include <fuzz/Home.h>

namespace quillory::fuzz {
namespace {

zorby::TemplateHolder AnyWorkform(const std::string& /*name*/) {
    return zorby::TemplateHolder(
        zorby::CTemplateList::GetStandardTemplate(zorby::CTemplateList::kFallbackName));
}

std::tm FirstOfMay() {
    std::tm day{};
    day.tm_year = 126;
    day.tm_mon = 4;
    day.tm_mday = 1;
    return day;
}

void CheckRecord(const Record& record) {
    Expect(record.leader.size() == zorby::kLeaderSize, "a record has a leader");
    for (const zorby::CommFormatField& field : record.fields) {
        Expect(field.content.find_first_of("\x1D\x1E") == field.content.npos,
               "no text ends a field");
    }
}

void Make(RecordMaker& maker, const Description& description) {
    for (const Entry& entry : description.entries) {
        const std::optional<Place> again = ParsePlace(PlaceText(entry.place));
        Expect(again && PlaceText(*again) == PlaceText(entry.place), "a place is read back");
    }
    try {
        Draft draft = maker.Begin(description);
        CheckRecord(maker.Finish(draft, description));
    } catch (const EntryError& error) {
        Expect(bool(error.What()), "an error says what is wrong");
    }
}

}  // namespace
}  // namespace quillory::fuzz

// A file of descriptions, whose parts are all of it, in order.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    using fuzz::Expect;
    static const bool isReady = (fuzz::PutAllInForce(), true);
    static RecordMaker maker(fuzz::AnyWorkform, LoadCodeLists, fuzz::FirstOfMay());
    const std::string_view toml(reinterpret_cast<const char*>(data), size);
    DescriptionReader reader(toml);
    Description description;
    std::uint64_t end = 0;
    while (isReady && reader.Next(description)) {
        Expect(end <= description.offset, "a description begins after the one before");
        end = description.offset + description.size;
        Expect(end <= toml.size(), "a description is inside of its file");
        if (!description.error) fuzz::Make(maker, description);
    }
    return 0;
}
