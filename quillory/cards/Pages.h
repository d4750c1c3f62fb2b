#pragma once

#include <quillory/cards/PageEngine.h>
#include <quillory/exchange/Output.h>

#include <memory>
#include <string_view>

namespace quillory {

// Sets text in the fonts that are installed, in any script.
class FontTypesetter : public Typesetter {
public:
    // Throws FileError if no font is installed, or what draws pages can't be loaded.
    FontTypesetter();

    double LineHeight(const zorby::CFont& font) override { return engine_->LineHeight(font); }
    SetText Break(std::string_view utf8, const zorby::CFont& font, double firstWidth,
                  double width) override {
        return engine_->Break(utf8, font, firstWidth, width);
    }
    const MissingSigns& Missing() const { return engine_->Missing(); }
    FontEngine& Engine() { return *engine_; }

private:
    std::unique_ptr<FontEngine> engine_;
};

// A PDF file, written as its pages come. The output is finished by the caller.
std::unique_ptr<PageCanvas> MakePdfPages(FontTypesetter& typesetter, Output& output);

// Pictures, each of a page, as PNG; `take` is given each when it is complete.
std::unique_ptr<PageCanvas> MakePngPages(FontTypesetter& typesetter, ByteTaker take);

}  // namespace quillory
