#include <quillory/cards/Pages.h>
#include <quillory/jobs/PrintWork.h>

#include <fuzz/Home.h>

namespace quillory::fuzz {
namespace {

void Draw(const Item& item, PrintWork& work) {
    static FontTypesetter typesetter;
    std::string pdf;
    Output output(Output::kToMemory, pdf);
    const auto pages = MakePdfPages(typesetter, output);
    for (const PrintItem& made : work.Make(item.record)) {
        for (const Panel& panel : work.LayOut(made, typesetter)) {
            for (const PlacedLine& line : panel.lines) {
                Expect(line.y >= 0 && (line.y < panel.height || panel.lacksRoom || panel.isTurned),
                       "a line begins on its panel");
            }
            pages->BeginPage(panel.width, panel.height);
            pages->Draw(panel, {}, true);
            pages->EndPage();
        }
    }
    pages->Finish();
}

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    static const bool isReady = (fuzz::PutAllInForce(), true);
    if (!isReady) return 0;
    static const auto cards = MakePrintWork({}, kCharsetAuto);
    static const auto labels = MakePrintWork({.kind = PrintQueue::kLabels}, kCharsetAuto);
    fuzz::ForEachRecord(data, size, [](const Item& item) {
        fuzz::Draw(item, *cards);
        fuzz::Draw(item, *labels);
    });
    return 0;
}
