#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/Pieces.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/RecordWriter.h>
#include <zorby/record/CommFormat.h>

#include <fuzz/Expect.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillory::fuzz {

using zorby::fuzz::Expect;

// A file that no disk has to write.
class MemoryFile {
public:
    MemoryFile() : descriptor_(memfd_create("fuzz", MFD_CLOEXEC)) {
        Expect(descriptor_ >= 0, "there is a place for a file");
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    // Result: the path, where the file has these bytes until the next call.
    std::string Hold(std::string_view bytes) const {
        Expect(ftruncate(descriptor_, 0) == 0, "a file can be emptied");
        const ssize_t written = pwrite(descriptor_, bytes.data(), bytes.size(), 0);
        Expect(written == static_cast<ssize_t>(bytes.size()), "a file can be written");
        return "/proc/self/fd/" + std::to_string(descriptor_);
    }

private:
    int descriptor_;
};

inline std::string_view TextOf(const unsigned char* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// The path of a file with these bytes, until the next call.
inline std::string FileOf(const unsigned char* data, std::size_t size) {
    static const MemoryFile file;
    return file.Hold(TextOf(data, size));
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

    Record View() const {
        Record record{leader, {}, {}};
        for (const auto& [tag, content] : fields) record.fields.push_back({tag, content});
        return record;
    }

    friend bool operator==(const Copy&, const Copy&) = default;
};

struct CarryOptions {
    const Form* from = FormNamed("marc");
    const Form* to = FormNamed("marc");
    Charset charset = kCharsetAuto;
    bool lenient = false;
    Oversize oversize = kOversizeRefuse;
    // Whether a record is to be carried.
    bool (*takes)(const Item& item) = [](const Item&) { return true; };
};

inline constexpr const char* kInputName = "input";

// Carries records from one text into another. Gives nothing if one of them is cut, or is not given
// back in full.
inline std::vector<Copy> Carry(const CarryOptions& options, std::string_view from,
                               std::string& to) {
    std::vector<Copy> records;
    bool whole = true;
    Input input(Input::kFromMemory, from, kInputName);
    Pieces pieces;
    Output output(Output::kToMemory, pieces);
    const auto reader = options.from->makeReader(input, options.lenient);
    const auto writer = options.to->makeWriter(output, options.oversize);
    Recoder recoder({kCharsetAuto, options.charset, {}});
    Item item;
    std::uint64_t end = 0;
    while (reader->Next(item)) {
        Expect(item.offset == end, "nothing of a file is passed over");
        end = item.offset + item.bytes.size();
        if (item.kind != kItemRecord || !options.takes(item)) continue;
        Losses losses;
        recoder.Recode(item.record, losses);
        losses.Clear();
        const Copy copy(item.record);
        const WriteResult result = writer->Write(item.record, losses);
        whole = whole && result.faults.empty() && losses.Empty();
        if (result.written) records.push_back(copy);
    }
    writer->Finish();
    output.Finish();
    pieces.ForEach([&to](std::string_view bytes) { to += bytes; });
    Expect(end == input.Offset(), "a file is read to its end");
    if (!whole) records.clear();
    return records;
}

inline std::vector<Copy> ReadAll(std::string_view from, const Form& form) {
    std::vector<Copy> records;
    Input input(Input::kFromMemory, from, kInputName);
    const auto reader = form.makeReader(input, false);
    Item item;
    while (reader->Next(item)) {
        if (item.kind == kItemFrame) continue;
        Expect(item.kind == kItemRecord, "all that was written is records");
        records.emplace_back(item.record);
    }
    return records;
}

// The leader without its length, counts, base address and entry map, which a form writes itself.
inline std::string OwnPart(const std::string& leader) {
    return leader.substr(5, 5) + leader.substr(17, 3);
}

inline void Compare(const std::vector<Copy>& written, const std::vector<Copy>& read) {
    Expect(written.size() == read.size(), "every record that was written is read");
    for (std::size_t i = 0; i < written.size(); ++i) {
        Expect(OwnPart(written[i].leader) == OwnPart(read[i].leader), "a leader comes back");
        Expect(written[i].fields == read[i].fields, "fields come back");
    }
}

// Carries the records of a text, and reads them back.
inline void CarryThereAndBack(const CarryOptions& options, std::string_view from) {
    std::string to;
    const std::vector<Copy> written = Carry(options, from, to);
    if (!written.empty()) Compare(written, ReadAll(to, *options.to));
}

}  // namespace quillory::fuzz
