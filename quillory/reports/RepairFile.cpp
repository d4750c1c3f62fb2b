#include <quillory/exchange/Output.h>
#include <quillory/exchange/SpillFile.h>
#include <quillory/reports/CheckPage.h>
#include <quillory/reports/HtmlText.h>
#include <quillory/reports/RepairMessages.h>
#include <quillory/text/JsonWriter.h>

#include <algorithm>

namespace quillory {
namespace {

// Each byte as the character of its number, so that none is lost.
std::string Utf8OfBytes(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | byte >> 6);
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

class JsonlFile : public RepairReport {
public:
    JsonlFile(const std::string& path, const CodeLists& lists, const Reporter& reporter)
        : words_(lists), reporter_(reporter), output_(path, OutputRole::kBeside) {}

    void TakeRecord(const Item& item, const std::vector<Repair>& repairs) override {
        const std::string controlNumber = Utf8OfBytes(item.record.ControlNumber());
        for (const Repair& repair : repairs) {
            output_.Write(RowOf(item, controlNumber, repair) + "\n");
        }
    }
    void Complete(const RepairTotals& /*totals*/) override { output_.Complete(); }
    void Finish(const RepairTotals& /*totals*/, bool /*isDryRun*/) override { output_.Finish(); }

private:
    std::string RowOf(const Item& item, const std::string& controlNumber,
                      const Repair& repair) const {
        std::string line;
        Losses unused;  // there can't be any
        JsonWriter json(line, unused);
        json.BeginObject();
        json.Member("file", reporter_.File());
        json.Member("record", item.number);
        json.Member("offset", item.offset);
        json.Member("control_number", controlNumber);
        json.Member("outcome", OutcomeOf(repair));
        json.Member("class", NameOf(repair.repairClass));
        json.Member("place", GeneralPlace(repair));
        json.Member("occurrence", std::max(repair.place.occurrence, 1U));
        json.Member("name", ElementNameOf(repair));
        json.Member("old", Utf8OfBytes(repair.before));
        json.Member("old_text", words_.MeaningOf(repair, repair.before));
        json.Member("new", Utf8OfBytes(repair.after));
        json.Member("new_text", words_.MeaningOf(repair, repair.after));
        json.Member("reason", Utf8OfBytes(ReasonOf(repair)));
        json.EndObject();
        return line;
    }

    RepairWords words_;
    const Reporter& reporter_;
    Output output_;
};

std::string RepairCell(std::string_view text) {
    return "<td>" + HtmlText(text) + "</td>";
}

// A page that stands alone. Its rows wait in a file of their own until the table is known that
// stands above them.
class HtmlFile : public RepairReport {
public:
    HtmlFile(const std::string& path, const CodeLists& lists, const Reporter& reporter)
        : words_(lists), reporter_(reporter), output_(path, OutputRole::kBeside) {}

    void TakeRecord(const Item& item, const std::vector<Repair>& repairs) override {
        const std::string controlNumber = RepairCell(item.record.ControlNumber());
        for (const Repair& repair : repairs) {
            if (++repairs_ > kMostRows) continue;
            rows_.Write("<tr>" + RepairCell(NameOf(repair.repairClass)) +
                        RepairCell(ElementTextOf(repair)) + RepairCell(words_.ChangeOf(repair)) +
                        RepairCell(ReasonOf(repair)) + RepairCell(std::to_string(item.number)) +
                        controlNumber + RepairCell(reporter_.File()) + "</tr>\n");
        }
    }

    void Complete(const RepairTotals& totals) override {
        const PageSlots slots = {
            {"style", [this] { output_.Write(kCheckStyle); }},
            {"tiles", [&] { output_.Write(Tiles(totals)); }},
            {"table", [&] { output_.Write(Table(totals)); }},
            {"note", [this] { output_.Write(Note()); }},
            {"rows", [this] { rows_.CopyTo(output_); }},
            {"script", [this] { output_.Write(kCheckScript); }},
        };
        WritePagePart(kRepairPage, slots, output_);
        output_.Complete();
    }
    void Finish(const RepairTotals& /*totals*/, bool /*isDryRun*/) override { output_.Finish(); }

private:
    static constexpr std::uint64_t kMostRows = 5000;

    static std::string Tiles(const RepairTotals& totals) {
        return Tile("", totals.records, "records") +
               Tile("ok", totals.recordsRepaired, "records repaired") +
               Tile("ok", totals.repaired, "repairs") + Tile("warning", totals.left, "left");
    }

    std::string Table(const RepairTotals& totals) const {
        std::string text;
        for (const auto& [key, row] : totals.rows) {
            const bool isLeft = row.first.kind == RepairKind::Left;
            text += "<tr>" + RepairCell(NameOf(row.first.repairClass)) +
                    RepairCell(isLeft ? "left" : "") + RepairCell(ElementTextOf(row.first)) +
                    "<td class=\"number\">" + std::to_string(row.count) + "</td>" +
                    RepairCell(words_.ChangeOf(row.first)) + "</tr>\n";
        }
        return text;
    }

    std::string Note() const {
        if (repairs_ <= kMostRows) return {};
        return "<p class=\"note\">The first " + std::to_string(kMostRows) + " of " +
               std::to_string(repairs_) + ". The table above counts all of them.</p>\n";
    }

    RepairWords words_;
    const Reporter& reporter_;
    Output output_;
    SpillFile rows_;
    std::uint64_t repairs_ = 0;
};

}  // namespace

std::unique_ptr<RepairReport> MakeRepairFile(const std::string& path, const CodeLists& lists,
                                             const Reporter& reporter) {
    if (path.empty()) return nullptr;
    if (path.ends_with(".html")) return std::make_unique<HtmlFile>(path, lists, reporter);
    return std::make_unique<JsonlFile>(path, lists, reporter);
}

}  // namespace quillory
