#include <quillory/exchange/Form.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/RecordWriter.h>
#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <fuzz/Expect.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {
namespace {

using zorby::fuzz::Expect;

// Files of this run, which go with it.
class Folder {
public:
    Folder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "fuzz_convert.XXXXXX").string();
        Expect(mkdtemp(name.data()) != nullptr, "there is a place for files");
        path_ = name;
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string File(const char* name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

const Folder& WorkFolder() {
    static const Folder folder;
    return folder;
}

// A record that outlives its reader.
struct Copy {
    std::string leader;
    std::vector<std::pair<std::string, std::string>> fields;

    explicit Copy(const Record& record) : leader(record.leader) {
        for (const zorby::CommFormatField& field : record.fields) {
            fields.emplace_back(field.tag, field.content);
        }
    }
};

// What to do with a file, out of its first byte.
struct Options {
    explicit Options(unsigned byte)
        : from(kForms[byte % 3]),
          to(kForms[byte / 3 % 3]),
          charset(static_cast<Charset>(byte / 9 % 4)),
          lenient(byte / 36 % 2 != 0),
          oversize(byte / 72 % 2 != 0 ? kOversizeCut : kOversizeRefuse) {}

    static constexpr Form kForms[] = {kFormMarc, kFormMrk, kFormMicrolif};
    Form from;
    Form to;
    Charset charset;
    bool lenient;
    Oversize oversize;
};

// Old MicroLIF has numbers for tags, and no field without content.
bool FormHolds(Form form, const Record& record) {
    if (form != kFormMicrolif) return true;
    return std::all_of(record.fields.begin(), record.fields.end(), [](const auto& field) {
        const bool isNumber = std::all_of(field.tag.begin(), field.tag.end(),
                                          [](char c) { return c >= '0' && c <= '9'; });
        return isNumber && field.tag != "000" && !field.content.empty();
    });
}

// Carries the records of a file. Gives nothing if one of them is cut, or is not given back in full.
std::vector<Copy> Carry(const Options& options, const std::string& from, const std::string& to) {
    std::vector<Copy> records;
    Input input(from);
    Output output(to);
    const auto reader = MakeReader(options.from, input, options.lenient);
    const auto writer = MakeWriter(options.to, output, options.oversize);
    Recoder recoder({kCharsetAuto, options.charset, {}});
    Item item;
    std::uint64_t end = 0;
    while (reader->Next(item)) {
        Expect(item.offset == end, "nothing of a file is passed over");
        end = item.offset + item.bytes.size();
        if (item.kind != kItemRecord || !FormHolds(options.to, item.record)) continue;
        Losses losses;
        recoder.Recode(item.record, losses);
        losses.Clear();
        const Copy copy(item.record);
        const WriteResult result = writer->Write(item.record, losses);
        if (!result.reason.empty() || !losses.Empty()) return {};
        if (result.written) records.push_back(copy);
    }
    output.Finish();
    Expect(end == input.Offset(), "a file is read to its end");
    return records;
}

std::vector<Copy> ReadAll(const std::string& path, Form form) {
    std::vector<Copy> records;
    Input input(path);
    const auto reader = MakeReader(form, input, false);
    Item item;
    while (reader->Next(item)) {
        Expect(item.kind == kItemRecord, "all that was written is records");
        records.emplace_back(item.record);
    }
    return records;
}

// The leader but for its length, counts, base address and entry map, which a form writes itself.
std::string OwnPart(const std::string& leader) {
    return leader.substr(5, 5) + leader.substr(17, 3);
}

void Compare(const std::vector<Copy>& written, const std::vector<Copy>& read) {
    Expect(written.size() == read.size(), "every record that was written is read");
    for (std::size_t i = 0; i < written.size(); ++i) {
        Expect(OwnPart(written[i].leader) == OwnPart(read[i].leader), "a leader comes back");
        Expect(written[i].fields == read[i].fields, "fields come back");
    }
}

}  // namespace
}  // namespace quillory

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    if (size == 0) return 0;
    const Options options(data[0]);
    const std::string from = WorkFolder().File("in");
    const std::string to = WorkFolder().File("out");
    std::ofstream(from, std::ios::binary)
        .write(reinterpret_cast<const char*>(data) + 1, static_cast<std::streamsize>(size - 1));
    try {
        const std::vector<Copy> written = Carry(options, from, to);
        if (!written.empty()) Compare(written, ReadAll(to, options.to));
    } catch (const FileError&) {
        // Damaged gzip data.
    }
    return 0;
}
