#include <quillory/cards/CardLayout.h>
#include <quillory/cards/CardMaker.h>
#include <quillory/cards/LabelLayout.h>
#include <quillory/cards/LabelMaker.h>
#include <quillory/cards/PackedSetting.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/PrintWork.h>

namespace quillory {
namespace {

CardOptions CardOptionsOf(const PrintChoice& choice) {
    CardOptions options = CardOptionsOfProfile();
    options.cardsPerSheet = choice.cardsPerSheet.value_or(options.cardsPerSheet);
    return options;
}

LabelOptions LabelOptionsOf(const PrintChoice& choice) {
    LabelOptions options = LabelOptionsOfProfile();
    if (!choice.stock.empty()) options.stock = &StockNamed("--type", choice.stock);
    return options;
}

class CardWork : public PrintWork {
public:
    CardWork(const PrintChoice& choice, Charset charset)
        : options_(CardOptionsOf(choice)),
          paper_(choice.paper),
          callNumbers_(ParsePlaceList("--call-number", choice.callNumbers)),
          maker_(options_, choice.uses, callNumbers_, charset) {}

    std::vector<PrintItem> Make(const Record& record) override { return maker_.CardsOf(record); }
    FaultCode ReasonForNone() const override { return FaultCode::kNoTitleForCards; }
    std::vector<Panel> LayOut(const PrintItem& item, Typesetter& typesetter) const override {
        return LayOutCard(item, options_, typesetter);
    }
    Sheet SheetOf() const override { return CardSheet(options_, paper_); }

private:
    CardOptions options_;
    Paper paper_;
    CallNumbers callNumbers_;
    CardMaker maker_;
};

class LabelWork : public PrintWork {
public:
    LabelWork(const PrintChoice& choice, Charset charset)
        : options_(LabelOptionsOf(choice)),
          callNumbers_(ParsePlaceList("--call-number", choice.callNumbers)),
          maker_(options_, callNumbers_, charset) {}

    std::vector<PrintItem> Make(const Record& record) override { return maker_.LabelsOf(record); }
    FaultCode ReasonForNone() const override { return FaultCode::kNoCallNumber; }
    std::vector<Panel> LayOut(const PrintItem& item, Typesetter& typesetter) const override {
        return {LayOutLabel(item, options_, typesetter)};
    }
    Sheet SheetOf() const override { return LabelSheet(options_); }

private:
    LabelOptions options_;
    CallNumbers callNumbers_;
    LabelMaker maker_;
};

}  // namespace

std::unique_ptr<PrintWork> MakePrintWork(const PrintChoice& choice, Charset charset) {
    LoadSettings();
    LoadDictionaries();
    if (choice.kind == PrintQueue::kCards) return std::make_unique<CardWork>(choice, charset);
    return std::make_unique<LabelWork>(choice, charset);
}

std::string NounOf(PrintQueue::Kind kind) {
    return kind == PrintQueue::kCards ? "card" : "label";
}

}  // namespace quillory
