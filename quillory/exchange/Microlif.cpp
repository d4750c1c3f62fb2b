#include <quillory/exchange/Microlif.h>

#include <algorithm>
#include <iterator>

namespace quillory {
namespace {

constexpr std::string_view kFillers(" \t\r\n\x1A\0", 6);
constexpr char kRecordEndSign = '`';

// A record ends behind the line that closes with the record end, or before the next head.
class MicrolifBlock : public LineBlock {
public:
    std::size_t EndOfRecord(std::string_view window) const override {
        std::string_view rest = window;
        bool begun = false;
        while (!rest.empty()) {
            const std::size_t at = window.size() - rest.size();
            const std::string_view line = TakeLine(rest);
            if (line.starts_with("LDR")) {
                if (begun) return at;
                begun = true;
            }
            const std::size_t end = window.size() - rest.size();
            // The second byte of a line end may not be in the window yet.
            const bool wholeLine = !rest.empty() || window.ends_with('\n');
            if (line.ends_with(kRecordEndSign) && wholeLine) return end;
        }
        return window.npos;
    }
};

const MicrolifBlock kBlock;

bool Fail(Item& item, std::string reason) {
    item.reason = std::move(reason);
    return false;
}

bool IsControlTag(std::string_view tag) {
    return tag.starts_with("00");
}

void CountMicrolifLosses(const zorby::CommFormatField& field, Losses& losses) {
    for (const char c : MicrolifLosses(field)) {
        losses.Add(kLossMicrolifSign, static_cast<unsigned char>(c));
    }
}

}  // namespace

MicrolifReader::MicrolifReader(Input& input) : LineReader(input, kBlock) {}

bool MicrolifReader::Fits(std::string_view head) {
    return head.starts_with("LDR") || head.starts_with("HDR");
}

std::size_t MicrolifReader::StrayBytes(std::string_view block, std::string& what) {
    const std::size_t first = std::min(block.find_first_not_of(kFillers), block.size());
    if (first != 0) {
        what = "stray bytes between records";
        return first;
    }
    if (!block.starts_with("HDR")) return 0;
    what = "file header";
    std::string_view rest = block;
    TakeLine(rest);
    return block.size() - rest.size();
}

bool MicrolifReader::TakeFields(Item& item) {
    bool haveLeader = false;
    for (const std::string& field : pmarc_) {
        const std::string_view tag = std::string_view(field).substr(0, 3);
        const std::string_view content = std::string_view(field).substr(tag.size());
        item.tag = tag;
        if (tag.size() < 3) return Fail(item, "a line without a tag");
        if (tag == "000" && !haveLeader) {
            leader_.assign(content);
            leader_.resize(zorby::kLeaderSize, ' ');
            haveLeader = true;
            continue;
        }
        const std::size_t first = std::min(content.find(zorby::kDelimiter), content.size());
        if (!IsControlTag(tag) && first != 2) {
            return Fail(item, "no two indicators before the first delimiter (_)");
        }
        if (content.ends_with(zorby::kDelimiter) ||
            (!IsControlTag(tag) && content.find("\x1F\x1F") != content.npos)) {
            return Fail(item, "a delimiter (_) without a subfield code");
        }
        item.record.fields.push_back({tag, content});
    }
    item.tag.clear();
    item.record.leader = leader_;
    return haveLeader ? true : Fail(item, "no head (LDR)");
}

bool MicrolifReader::Read(std::string_view block, Item& item) {
    pmarc_.Clear();
    std::string_view rest = block;
    while (!rest.empty()) {
        std::string line(TakeLine(rest));
        pmarc_.AddOldMicrolifField(line.data(), static_cast<int>(line.size()));
    }
    return TakeFields(item);
}

void AppendMicrolif(const Record& record, std::string& text) {
    zorby::CPmarc pmarc;
    pmarc.FieldAppend("000", record.leader);
    for (const zorby::CommFormatField& field : record.fields) {
        pmarc.FieldAppend(field.tag, field.content);
    }
    std::string one;
    pmarc.ConvertToOldMicrolif(one);
    text += one;
}

std::string MicrolifLosses(const zorby::CommFormatField& field) {
    const std::string_view content = field.content;
    std::string lost;
    std::copy_if(content.begin(), content.end(), std::back_inserter(lost), [&](char c) {
        return c == '\r' || c == '\n' || c == (IsControlTag(field.tag) ? zorby::kDelimiter : '_');
    });
    std::copy_if(field.tag.begin(), field.tag.end(), std::back_inserter(lost),
                 [](char c) { return c < '0' || c > '9'; });
    const std::size_t last = content.find_last_not_of("^`");
    lost += content.substr(last == content.npos ? 0 : last + 1);
    return lost;
}

WriteResult MicrolifWriter::Write(const Record& record, Losses& losses) {
    if (record.fields.empty()) return {false, false, "no field to write"};
    WriteResult result;
    CountMicrolifLosses({"000", record.leader}, losses);
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.content.empty()) {
            result.reason = "field " + std::string(field.tag) + " has no content and is left out";
        }
        CountMicrolifLosses(field, losses);
    }
    text_.clear();
    AppendMicrolif(record, text_);
    output_.Write(text_);
    return result;
}

}  // namespace quillory
