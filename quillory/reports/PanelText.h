#pragma once

#include <quillory/cards/PrintQueue.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/PrintTarget.h>

#include <string>

namespace quillory {

// Sets text in columns of a terminal: twelve to the inch, and six lines.
class ColumnTypesetter : public Typesetter {
public:
    double LineHeight(const zorby::CFont& font) override;
    SetText Break(std::string_view utf8, const zorby::CFont& font, double firstWidth,
                  double width) override;
};

// A card or a label as lines of text in a frame.
std::string ToText(const Panel& panel);

// Shows cards and labels as text.
class TextTarget : public PrintTarget {
public:
    // The output is finished by the caller.
    explicit TextTarget(Output& output) : output_(output) {}

    Typesetter& Setter() override { return typesetter_; }
    void Begin(const Sheet&) override {}
    void Take(const PrintItem& item, const std::vector<Panel>& panels) override;
    Status Finish(Reporter&) override { return kStatusWell; }

private:
    Output& output_;
    ColumnTypesetter typesetter_;
};

// "1234  main entry   Proust, Marcel, 1871-1922. Du côté de chez Swann. (2 cards)": an item in a
// list. `noun` is what it is printed on, if that takes several.
std::string ToText(const QueuedItem& queued, const std::string& noun);

}  // namespace quillory
