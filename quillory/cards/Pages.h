#pragma once

#include <quillory/cards/Panel.h>
#include <quillory/cards/Sheet.h>
#include <quillory/cards/Typesetter.h>
#include <quillory/exchange/Output.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillory {

// Characters for which the installed fonts have no sign. Boxes stand in their places.
struct MissingSigns {
    std::uint64_t count = 0;
    char32_t first = 0;
};

// Sets text in the fonts that are installed, in any script.
class FontTypesetter : public Typesetter {
public:
    // Throws FileError if no font is installed.
    FontTypesetter();
    ~FontTypesetter() override;
    FontTypesetter(const FontTypesetter&) = delete;
    FontTypesetter& operator=(const FontTypesetter&) = delete;

    double LineHeight(const zorby::CFont& font) override;
    SetText Break(std::string_view utf8, const zorby::CFont& font, double firstWidth,
                  double width) override;
    const MissingSigns& Missing() const { return missing_; }

private:
    friend class PageCanvas;
    struct Engine;

    std::unique_ptr<Engine> engine_;
    MissingSigns missing_;
};

// Pages on which panels are drawn. All throw what the place of the pages throws.
class PageCanvas {
public:
    virtual ~PageCanvas();
    PageCanvas(const PageCanvas&) = delete;
    PageCanvas& operator=(const PageCanvas&) = delete;

    virtual void BeginPage(double width, double height) = 0;
    // Draws a panel at a point of the page; with its edges and its hole, if so asked.
    void Draw(const Panel& panel, PaperPoint at, bool withEdges);
    virtual void EndPage() = 0;
    // Comes once, after the last page.
    virtual void Finish() = 0;

protected:
    struct Drawing;

    explicit PageCanvas(FontTypesetter& typesetter);
    Drawing& ToDraw() { return *drawing_; }

private:
    void DrawLines(const Panel& panel);

    FontTypesetter& typesetter_;
    std::unique_ptr<Drawing> drawing_;
};

// A PDF file, written as its pages come. The output is finished by the caller.
std::unique_ptr<PageCanvas> MakePdfPages(FontTypesetter& typesetter, Output& output);

// Pictures, each of a page, as PNG; `take` is given each when it is complete.
using PictureTaker = std::function<void(std::string_view png)>;
std::unique_ptr<PageCanvas> MakePngPages(FontTypesetter& typesetter, PictureTaker take);

}  // namespace quillory
