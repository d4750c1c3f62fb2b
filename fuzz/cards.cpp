#include <quillory/cards/Pages.h>
#include <quillory/jobs/PrintWork.h>
#include <quillory/reports/PanelText.h>

#include <functional>
#include <fuzz/Home.h>
#include <utility>

namespace quillory::fuzz {
namespace {

// The libraries that draw take a hundred times as long as all else. They get one text in so many.
constexpr std::size_t kDrawnOnce = 64;

using Panels = std::vector<Panel>;

// What a person sees of the items that are made of a record.
Panels LaidOut(PrintWork& work, const std::vector<PrintItem>& items, Typesetter& typesetter) {
    Panels all;
    for (const PrintItem& item : items) {
        for (Panel& panel : work.LayOut(item, typesetter)) {
            for (const PlacedLine& line : panel.lines) {
                Expect(line.y >= 0 && (line.y < panel.height || panel.lacksRoom || panel.isTurned),
                       "a line begins on its panel");
            }
            all.push_back(std::move(panel));
        }
    }
    Expect(all.size() >= items.size(), "an item is a panel at least");
    return all;
}

void Draw(const Panels& panels, FontTypesetter& typesetter) {
    std::string pdf;
    Output output(Output::kToMemory, pdf);
    const auto pages = MakePdfPages(typesetter, output);
    for (const Panel& panel : panels) {
        pages->BeginPage(panel.width, panel.height);
        pages->Draw(panel, {}, true);
        pages->EndPage();
    }
    pages->Finish();
}

void Print(const Record& record, PrintWork& work, bool draws) {
    ColumnTypesetter columns;
    const std::vector<PrintItem> items = work.Make(record);
    for (const Panel& panel : LaidOut(work, items, columns)) {
        const std::string text = ToText(panel);
        for (const PlacedLine& line : panel.lines) {
            Expect(text.find(line.text) != text.npos, "a line is seen on its panel");
        }
    }
    if (!draws) return;
    static FontTypesetter typesetter;
    Draw(LaidOut(work, items, typesetter), typesetter);
}

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    static const bool isReady = (fuzz::PutAllInForce(), true);
    if (!isReady) return 0;
    static const auto cards = MakePrintWork({}, kCharsetAuto);
    static const auto labels = MakePrintWork({.kind = PrintQueue::kLabels}, kCharsetAuto);
    const bool draws =
        std::hash<std::string_view>{}(fuzz::TextOf(data, size)) % fuzz::kDrawnOnce == 0;
    fuzz::ForEachRecord(data, size, [draws](const Item& item) {
        fuzz::Print(item.record, *cards, draws);
        fuzz::Print(item.record, *labels, draws);
    });
    return 0;
}
