#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>

#include <algorithm>
#include <fuzz/Expect.h>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {
namespace {

using fuzz::Expect;
using Fields = std::vector<CommFormatField>;

bool SameFields(const Fields& a, const Fields& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.tag == y.tag && x.content == y.content;
    });
}

// The record put together anew; empty if the format does not hold it.
std::string Written(std::string_view leader, const Fields& fields) {
    CommFormatWriter writer;
    writer.SetLeader(leader);
    for (const CommFormatField& field : fields) {
        if (field.content.size() >= kLongestField) return {};
        if (!writer.AddField(field.tag, field.content)) return {};
    }
    std::string bytes;
    return writer.Finish(bytes) == 0 ? bytes : std::string();
}

void ExpectToReadBack(const std::string& bytes, const Fields& fields) {
    CommFormatFields back;
    Expect(!ReadCommFormat(bytes, back), "a record that was written can be read");
    Expect(SameFields(back.fields, fields), "a written record has the same fields");
}

void CheckSoundRecord(std::string_view bytes, const CommFormatFields& read) {
    if (read.fields.empty()) return;
    const std::string written = Written(read.leader, read.fields);
    Expect(written.size() == bytes.size(), "a sound record keeps its size");
    Expect(written.substr(0, kLeaderSize) == read.leader, "a sound record keeps its leader");
    ExpectToReadBack(written, read.fields);

    CPmarc record;
    Expect(!ReadCommFormat(bytes, record), "a list of fields reads what the views read");
    Expect(record.FieldCount() == read.fields.size() + 1, "a list of fields holds all of them");
    std::string fromList;
    record.ConvertToUSMARCCommFormat(fromList);
    Expect(fromList == written.substr(0, written.find('\0')), "a list of fields writes the same");
}

// Rescue leaves out delimiters at the end of a field, and nothing else.
std::string_view WithoutLastDelimiters(std::string_view content) {
    while (content.ends_with(kDelimiter)) content.remove_suffix(1);
    return content;
}

void CheckRescueOfSound(const CommFormatFields& read, const CommFormatRescue& rescue) {
    Fields expected = read.fields;
    for (CommFormatField& field : expected) field.content = WithoutLastDelimiters(field.content);
    Expect(SameFields(rescue.fields, expected), "rescue of a sound record gives its fields");
}

void CheckFault(const CommFormatFault& fault, std::size_t size) {
    Expect(fault.offset <= size, "a fault lies in the record");
    Expect(CommFormatFaultText(fault.reason) != "unknown fault", "a fault has words");
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace zorby;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CommFormatFields read;
    const CommFormatFault fault = ReadCommFormat(bytes, read);
    CommFormatRescue rescue;
    const CommFormatFault rescueFault = RescueCommFormat(bytes, rescue);
    CheckFault(fault, size);
    CheckFault(rescueFault, size);
    if (!fault) CheckSoundRecord(bytes, read);
    if (!fault && !rescueFault) CheckRescueOfSound(read, rescue);
    if (!rescueFault) {
        const std::string written = Written(rescue.leader, rescue.fields);
        if (!written.empty()) ExpectToReadBack(written, rescue.fields);
    }
    return 0;
}
