#include <quillory/cards/CardLayout.h>
#include <quillory/cards/CardMaker.h>
#include <quillory/cards/Pages.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <benchmark/benchmark.h>

#include <benchmarks/CatalogueRecord.h>
#include <string>
#include <vector>

namespace quillory::bench {
namespace {

constexpr std::size_t kCards = 10000;

// The cards of a record of 40 fields.
class Catalogue {
public:
    Catalogue() {
        zorby::CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(DATA_FOLDER "/");
        zorby::bench::BuildCatalogueRecord().ConvertToUSMARCCommFormat(bytes_);
        zorby::CommFormatFields parts;
        zorby::ReadCommFormat(bytes_, parts);
        record_ = {parts.leader, parts.fields, bytes_};
    }
    ~Catalogue() { zorby::CInfoAboutHoldingsTypeList::DestroyYourself(); }
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

    std::vector<PrintItem> Cards() { return maker_.CardsOf(record_); }
    const CardOptions& Options() const { return options_; }

private:
    std::string bytes_;
    Record record_;
    CardOptions options_ = CardOptionsOfProfile();
    CallNumbers callNumbers_{{}};
    CardMaker maker_{options_, {}, callNumbers_, kCharsetAuto};
};

void MakeCards(benchmark::State& state) {
    Catalogue catalogue;
    std::size_t cards = 0;
    for ([[maybe_unused]] auto _ : state) cards += catalogue.Cards().size();
    state.SetItemsProcessed(static_cast<std::int64_t>(cards));
}
BENCHMARK(MakeCards);

// From the record to the last byte of the file, three cards on a sheet.
void CardsToPdf(benchmark::State& state) {
    Catalogue catalogue;
    const Sheet sheet = CardSheet(catalogue.Options(), kPaperLetter);
    for ([[maybe_unused]] auto _ : state) {
        std::string pdf;
        Output output(Output::kToMemory, pdf);
        FontTypesetter typesetter;
        const auto pages = MakePdfPages(typesetter, output);
        std::size_t drawn = 0;
        while (drawn < kCards) {
            for (const PrintItem& card : catalogue.Cards()) {
                for (const Panel& panel : LayOutCard(card, catalogue.Options(), typesetter)) {
                    const std::size_t place = drawn++ % sheet.places.size();
                    if (place == 0) pages->BeginPage(sheet.width, sheet.height);
                    pages->Draw(panel, sheet.places[place], false);
                    if (place + 1 == sheet.places.size()) pages->EndPage();
                }
            }
        }
        pages->Finish();
        output.Flush();
        benchmark::DoNotOptimize(pdf.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCards));
}
BENCHMARK(CardsToPdf)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace
}  // namespace quillory::bench
