#pragma once

#include <quillory/cards/Panel.h>
#include <quillory/cards/Sheet.h>
#include <quillory/cards/Typesetter.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

namespace quillory {

// Characters for which the installed fonts have no sign. Boxes stand in their places.
struct MissingSigns {
    std::uint64_t count = 0;
    char32_t first = 0;
};

// Pages on which panels are drawn. All throw what the taker of the bytes throws, and
// std::runtime_error if a page can't be drawn.
class PageCanvas {
public:
    PageCanvas() = default;
    virtual ~PageCanvas() = default;
    PageCanvas(const PageCanvas&) = delete;
    PageCanvas& operator=(const PageCanvas&) = delete;

    virtual void BeginPage(double width, double height) = 0;
    // Draws a panel at a point of the page; with its edges and its hole, if so asked.
    virtual void Draw(const Panel& panel, PaperPoint at, bool withEdges) = 0;
    virtual void EndPage() = 0;
    // Comes once, after the last page.
    virtual void Finish() = 0;
};

using ByteTaker = std::function<void(std::string_view bytes)>;

// Sets and draws text in the fonts that are installed. It stands in a library of its own,
// quillory/pages, which is loaded when something is printed.
class FontEngine : public Typesetter {
public:
    virtual const MissingSigns& Missing() const = 0;
    // The pages use the engine, which must outlive them. A PDF is written as its pages come; of PNG
    // `take` is given each page when it is complete.
    virtual std::unique_ptr<PageCanvas> MakePdf(ByteTaker take) = 0;
    virtual std::unique_ptr<PageCanvas> MakePng(ByteTaker take) = 0;
};

// What the library gives by this name. The engine is owned by the caller; null without any font.
using FontEngineMaker = FontEngine*();
inline constexpr const char* kFontEngineMaker = "QuilloryMakeFontEngine";

}  // namespace quillory
