#include <quillory/cards/PageEngine.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <map>
#include <memory>
#include <pango/pangocairo.h>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>

#include <cairo-pdf.h>

namespace quillory {
namespace {

constexpr double kDotsPerInch = 150;  // of pictures
constexpr double kHoleRadius = 4 * kPointsPerMillimetre;

// Owns an object of the libraries that is freed by a function of theirs.
template <class Object, void (*Free)(Object*)>
struct Freed {
    void operator()(Object* object) const { Free(object); }
};
template <class Object>
struct Unreferenced {
    void operator()(Object* object) const { g_object_unref(object); }
};
template <class Object>
using ObjectPtr = std::unique_ptr<Object, Unreferenced<Object>>;
using FontPtr =
    std::unique_ptr<PangoFontDescription, Freed<PangoFontDescription, pango_font_description_free>>;
using MetricsPtr =
    std::unique_ptr<PangoFontMetrics, Freed<PangoFontMetrics, pango_font_metrics_unref>>;
using SurfacePtr = std::unique_ptr<cairo_surface_t, Freed<cairo_surface_t, cairo_surface_destroy>>;
using PenPtr = std::unique_ptr<cairo_t, Freed<cairo_t, cairo_destroy>>;

int ToPango(double points) {
    return static_cast<int>(std::lround(points * PANGO_SCALE));
}

double FromPango(int units) {
    return static_cast<double>(units) / PANGO_SCALE;
}

// One line of UTF-8 without signs that steer.
std::string InOneLine(std::string_view text) {
    std::string clean(text);
    const auto isControl = [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; };
    std::ranges::replace_if(clean, isControl, ' ');
    if (g_utf8_validate_len(clean.data(), clean.size(), nullptr) == FALSE) {
        std::ranges::replace_if(
            clean, [](unsigned char byte) { return byte > 0x7F; }, '?');
    }
    return clean;
}

struct KnownFont {
    FontPtr description;
    double ascent = 0;
    double height = 0;
};

KnownFont LoadFont(PangoContext* context, const zorby::CFont& font) {
    KnownFont known{FontPtr(pango_font_description_new()), 0, 0};
    pango_font_description_set_family(known.description.get(), font.faceName.c_str());
    pango_font_description_set_absolute_size(known.description.get(), ToPango(font.pointSize));
    pango_font_description_set_weight(known.description.get(),
                                      static_cast<PangoWeight>(font.weight));
    pango_font_description_set_style(known.description.get(),
                                     font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    const MetricsPtr metrics(pango_context_get_metrics(context, known.description.get(), nullptr));
    known.ascent = FromPango(pango_font_metrics_get_ascent(metrics.get()));
    known.height = known.ascent + FromPango(pango_font_metrics_get_descent(metrics.get()));
    return known;
}

// The first character of a line that has no sign, or 0.
char32_t FirstMissing(PangoLayoutLine* line) {
    for (GSList* run = line->runs; run != nullptr; run = run->next) {
        const PangoGlyphString* glyphs = static_cast<PangoLayoutRun*>(run->data)->glyphs;
        for (int i = 0; i < glyphs->num_glyphs; ++i) {
            const PangoGlyph glyph = glyphs->glyphs[i].glyph;
            if ((glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0) return glyph & ~PANGO_GLYPH_UNKNOWN_FLAG;
        }
    }
    return 0;
}

class PangoEngine : public FontEngine {
public:
    PangoEngine()
        : fonts_(pango_cairo_font_map_new()),
          context_(pango_font_map_create_context(fonts_.get())),
          paragraph_(pango_layout_new(context_.get())),
          line_(pango_layout_new(context_.get())) {
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        pango_cairo_context_set_font_options(context_.get(), options);
        cairo_font_options_destroy(options);
        pango_context_set_round_glyph_positions(context_.get(), FALSE);
        for (PangoLayout* layout : {paragraph_.get(), line_.get()}) {
            pango_layout_set_single_paragraph_mode(layout, TRUE);
        }
        pango_layout_set_wrap(paragraph_.get(), PANGO_WRAP_WORD_CHAR);
        pango_layout_set_auto_dir(line_.get(), FALSE);
    }

    bool HasFonts() const {
        PangoFontFamily** families = nullptr;
        int count = 0;
        pango_font_map_list_families(fonts_.get(), &families, &count);
        g_free(families);
        return count > 0;
    }

    double LineHeight(const zorby::CFont& font) override { return Font(font).height; }
    SetText Break(std::string_view utf8, const zorby::CFont& font, double firstWidth,
                  double width) override;
    const MissingSigns& Missing() const override { return missing_; }
    std::unique_ptr<PageCanvas> MakePdf(ByteTaker take) override;
    std::unique_ptr<PageCanvas> MakePng(ByteTaker take) override;

    // Shows a line where it stands on its panel.
    void Show(const PlacedLine& line, cairo_t* pen);

private:
    const KnownFont& Font(const zorby::CFont& font) {
        const auto key = std::tuple(font.faceName, font.pointSize, font.weight, font.italic);
        auto known = known_.find(key);
        if (known == known_.end()) {
            known = known_.emplace(key, LoadFont(context_.get(), font)).first;
        }
        return known->second;
    }

    ObjectPtr<PangoFontMap> fonts_;
    ObjectPtr<PangoContext> context_;
    ObjectPtr<PangoLayout> paragraph_;  // to be broken
    ObjectPtr<PangoLayout> line_;       // to be drawn
    std::map<std::tuple<std::string, int, int, bool>, KnownFont> known_;
    MissingSigns missing_;
};

SetText PangoEngine::Break(std::string_view utf8, const zorby::CFont& font, double firstWidth,
                           double width) {
    const std::string text = InOneLine(utf8);
    PangoLayout* layout = paragraph_.get();
    pango_layout_set_font_description(layout, Font(font).description.get());
    pango_layout_set_width(layout, ToPango(std::max(firstWidth, width)));
    pango_layout_set_indent(layout, ToPango(width - firstWidth));
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));

    SetText set;
    set.isRightToLeft = pango_layout_get_direction(layout, 0) == PANGO_DIRECTION_RTL;
    const int missing = pango_layout_get_unknown_glyphs_count(layout);
    missing_.count += static_cast<std::uint64_t>(missing);
    for (GSList* at = pango_layout_get_lines_readonly(layout); at != nullptr; at = at->next) {
        auto* line = static_cast<PangoLayoutLine*>(at->data);
        PangoRectangle extents{};
        pango_layout_line_get_extents(line, nullptr, &extents);
        const std::string_view part = std::string_view(text).substr(
            static_cast<std::size_t>(line->start_index), static_cast<std::size_t>(line->length));
        set.lines.push_back({std::string(Trimmed(part)), FromPango(extents.width)});
        if (missing > 0 && missing_.first == 0) missing_.first = FirstMissing(line);
    }
    return set;
}

void PangoEngine::Show(const PlacedLine& line, cairo_t* pen) {
    const KnownFont& font = Font(line.font);
    pango_context_set_base_dir(context_.get(),
                               line.isRightToLeft ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
    pango_layout_context_changed(line_.get());
    pango_layout_set_font_description(line_.get(), font.description.get());
    pango_layout_set_text(line_.get(), line.text.data(), static_cast<int>(line.text.size()));
    cairo_move_to(pen, line.x, line.y + font.ascent);
    pango_cairo_show_layout_line(pen, pango_layout_get_line_readonly(line_.get(), 0));
}

// What both kinds of pages draw with.
class CairoPages : public PageCanvas {
public:
    void Draw(const Panel& panel, PaperPoint at, bool withEdges) override;

protected:
    explicit CairoPages(PangoEngine& engine) : engine_(engine) {}

    cairo_surface_t* Surface() { return surface_.get(); }
    cairo_t* Pen() { return pen_.get(); }
    void DrawOn(cairo_surface_t* surface) {
        surface_.reset(surface);
        pen_.reset(cairo_create(surface));
    }
    void LayPenDown() { pen_.reset(); }

private:
    static void DrawEdges(const Panel& panel, cairo_t* pen);

    PangoEngine& engine_;
    SurfacePtr surface_;
    PenPtr pen_;
};

void CairoPages::DrawEdges(const Panel& panel, cairo_t* pen) {
    constexpr double kGrey = 0.6;
    cairo_rectangle(pen, 0, 0, panel.width, panel.height);
    cairo_set_source_rgb(pen, kGrey, kGrey, kGrey);
    cairo_set_line_width(pen, 0.5);
    cairo_stroke(pen);
    if (panel.holeCenter > 0) {
        cairo_arc(pen, panel.width / 2, panel.holeCenter, kHoleRadius, 0, 2 * G_PI);
        cairo_stroke(pen);
    }
}

void CairoPages::Draw(const Panel& panel, PaperPoint at, bool withEdges) {
    cairo_t* pen = Pen();
    cairo_save(pen);
    cairo_translate(pen, at.x, at.y);
    if (withEdges) DrawEdges(panel, pen);
    cairo_rectangle(pen, 0, 0, panel.width, panel.height);
    cairo_clip(pen);
    cairo_set_source_rgb(pen, 0, 0, 0);
    if (panel.isTurned) {
        cairo_translate(pen, 0, panel.height);
        cairo_rotate(pen, -G_PI / 2);
    }
    for (const PlacedLine& line : panel.lines) engine_.Show(line, pen);
    cairo_restore(pen);
}

// Where the libraries write what they draw. An exception can't pass through them: it waits here.
struct Sink {
    ByteTaker take;
    std::exception_ptr failure = {};

    static cairo_status_t Write(void* sink, const unsigned char* bytes, unsigned size) {
        auto& self = *static_cast<Sink*>(sink);
        try {
            self.take({reinterpret_cast<const char*>(bytes), size});
            return CAIRO_STATUS_SUCCESS;
        } catch (...) {
            self.failure = std::current_exception();
            return CAIRO_STATUS_WRITE_ERROR;
        }
    }

    void Check(cairo_status_t status) const {
        if (failure) std::rethrow_exception(failure);
        if (status != CAIRO_STATUS_SUCCESS) {
            throw std::runtime_error(std::string("the pages can't be drawn: ") +
                                     cairo_status_to_string(status));
        }
    }
};

class PdfPages : public CairoPages {
public:
    PdfPages(PangoEngine& engine, ByteTaker take) : CairoPages(engine), sink_{std::move(take)} {
        DrawOn(cairo_pdf_surface_create_for_stream(Sink::Write, &sink_, 0, 0));
    }
    PdfPages(const PdfPages&) = delete;
    PdfPages& operator=(const PdfPages&) = delete;
    // What is unfinished is written while the sink is there.
    ~PdfPages() override {
        LayPenDown();
        cairo_surface_finish(Surface());
    }

    void BeginPage(double width, double height) override {
        cairo_pdf_surface_set_size(Surface(), width, height);
    }
    void EndPage() override {
        cairo_show_page(Pen());
        sink_.Check(cairo_status(Pen()));
    }
    void Finish() override {
        LayPenDown();
        cairo_surface_finish(Surface());
        sink_.Check(cairo_surface_status(Surface()));
    }

private:
    Sink sink_;
};

class PngPages : public CairoPages {
public:
    PngPages(PangoEngine& engine, ByteTaker take) : CairoPages(engine), take_(std::move(take)) {}

    void BeginPage(double width, double height) override {
        constexpr double kScale = kDotsPerInch / kPointsPerInch;
        DrawOn(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                          static_cast<int>(std::lround(width * kScale)),
                                          static_cast<int>(std::lround(height * kScale))));
        cairo_set_source_rgb(Pen(), 1, 1, 1);
        cairo_paint(Pen());
        cairo_scale(Pen(), kScale, kScale);
    }
    void EndPage() override {
        std::string png;
        Sink sink{[&png](std::string_view bytes) { png += bytes; }};
        sink.Check(cairo_status(Pen()));
        sink.Check(cairo_surface_write_to_png_stream(Surface(), Sink::Write, &sink));
        take_(png);
    }
    void Finish() override {}

private:
    ByteTaker take_;
};

std::unique_ptr<PageCanvas> PangoEngine::MakePdf(ByteTaker take) {
    return std::make_unique<PdfPages>(*this, std::move(take));
}

std::unique_ptr<PageCanvas> PangoEngine::MakePng(ByteTaker take) {
    return std::make_unique<PngPages>(*this, std::move(take));
}

}  // namespace
}  // namespace quillory

extern "C" __attribute__((visibility("default"))) quillory::FontEngine* QuilloryMakeFontEngine() {
    auto engine = std::make_unique<quillory::PangoEngine>();
    return engine->HasFonts() ? engine.release() : nullptr;
}
