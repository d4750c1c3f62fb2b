#include <quillory/cards/Pages.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/Charset.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <map>
#include <pango/pangocairo.h>
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
    const bool isUtf8 = IsValidUtf8(text);
    for (char& c : clean) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) c = ' ';
        if (byte > 0x7F && !isUtf8) c = '?';
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

}  // namespace

struct FontTypesetter::Engine {
    Engine()
        : fonts(pango_cairo_font_map_new()),
          context(pango_font_map_create_context(fonts.get())),
          layout(pango_layout_new(context.get())),
          line(pango_layout_new(context.get())) {
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        pango_cairo_context_set_font_options(context.get(), options);
        cairo_font_options_destroy(options);
        pango_context_set_round_glyph_positions(context.get(), FALSE);
        for (PangoLayout* one : {layout.get(), line.get()}) {
            pango_layout_set_single_paragraph_mode(one, TRUE);
        }
        pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
        pango_layout_set_auto_dir(line.get(), FALSE);
    }

    bool HasFonts() const {
        PangoFontFamily** families = nullptr;
        int count = 0;
        pango_font_map_list_families(fonts.get(), &families, &count);
        g_free(families);
        return count > 0;
    }

    const KnownFont& Font(const zorby::CFont& font) {
        const auto key = std::tuple(font.faceName, font.pointSize, font.weight, font.italic);
        auto known = known_.find(key);
        if (known == known_.end()) {
            known = known_.emplace(key, LoadFont(context.get(), font)).first;
        }
        return known->second;
    }

    ObjectPtr<PangoFontMap> fonts;
    ObjectPtr<PangoContext> context;
    ObjectPtr<PangoLayout> layout;  // of paragraphs to be broken
    ObjectPtr<PangoLayout> line;    // of lines to be drawn

private:
    std::map<std::tuple<std::string, int, int, bool>, KnownFont> known_;
};

FontTypesetter::FontTypesetter() : engine_(std::make_unique<Engine>()) {
    if (!engine_->HasFonts()) throw FileError({FaultCode::kNoFonts});
}

FontTypesetter::~FontTypesetter() = default;

double FontTypesetter::LineHeight(const zorby::CFont& font) {
    return engine_->Font(font).height;
}

SetText FontTypesetter::Break(std::string_view utf8, const zorby::CFont& font, double firstWidth,
                              double width) {
    const std::string text = InOneLine(utf8);
    PangoLayout* layout = engine_->layout.get();
    pango_layout_set_font_description(layout, engine_->Font(font).description.get());
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

struct PageCanvas::Drawing {
    SurfacePtr surface;
    PenPtr pen;
};

PageCanvas::PageCanvas(FontTypesetter& typesetter)
    : typesetter_(typesetter), drawing_(std::make_unique<Drawing>()) {}

PageCanvas::~PageCanvas() = default;

void PageCanvas::Draw(const Panel& panel, PaperPoint at, bool withEdges) {
    cairo_t* pen = drawing_->pen.get();
    cairo_save(pen);
    cairo_translate(pen, at.x, at.y);
    cairo_rectangle(pen, 0, 0, panel.width, panel.height);
    if (withEdges) {
        constexpr double kGrey = 0.6;
        cairo_set_source_rgb(pen, kGrey, kGrey, kGrey);
        cairo_set_line_width(pen, 0.5);
        cairo_stroke_preserve(pen);
        cairo_new_sub_path(pen);
        if (panel.holeCenter > 0) {
            cairo_arc(pen, panel.width / 2, panel.holeCenter, kHoleRadius, 0, 2 * G_PI);
            cairo_stroke(pen);
        }
        cairo_new_path(pen);
        cairo_rectangle(pen, 0, 0, panel.width, panel.height);
    }
    cairo_clip(pen);
    cairo_set_source_rgb(pen, 0, 0, 0);
    if (panel.isTurned) {
        cairo_translate(pen, 0, panel.height);
        cairo_rotate(pen, -G_PI / 2);
    }
    DrawLines(panel);
    cairo_restore(pen);
}

void PageCanvas::DrawLines(const Panel& panel) {
    FontTypesetter::Engine& engine = *typesetter_.engine_;
    for (const PlacedLine& line : panel.lines) {
        const KnownFont& font = engine.Font(line.font);
        pango_context_set_base_dir(engine.context.get(),
                                   line.isRightToLeft ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
        pango_layout_context_changed(engine.line.get());
        pango_layout_set_font_description(engine.line.get(), font.description.get());
        pango_layout_set_text(engine.line.get(), line.text.data(),
                              static_cast<int>(line.text.size()));
        cairo_move_to(drawing_->pen.get(), line.x, line.y + font.ascent);
        pango_cairo_show_layout_line(drawing_->pen.get(),
                                     pango_layout_get_line_readonly(engine.line.get(), 0));
    }
}

namespace {

// Where the libraries write what they draw. An exception can't pass through them: it waits here.
struct Sink {
    std::function<void(std::string_view)> take;
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
            throw FileError(std::string("the pages can't be drawn: ") +
                            cairo_status_to_string(status));
        }
    }
};

class PdfPages : public PageCanvas {
public:
    PdfPages(FontTypesetter& typesetter, Output& output)
        : PageCanvas(typesetter), sink_{[&output](std::string_view bytes) {
              output.Write(bytes);
          }} {
        ToDraw().surface.reset(cairo_pdf_surface_create_for_stream(Sink::Write, &sink_, 0, 0));
        ToDraw().pen.reset(cairo_create(ToDraw().surface.get()));
    }
    PdfPages(const PdfPages&) = delete;
    PdfPages& operator=(const PdfPages&) = delete;
    ~PdfPages() override {
        ToDraw().pen.reset();
        ToDraw().surface.reset();
    }

    void BeginPage(double width, double height) override {
        cairo_pdf_surface_set_size(ToDraw().surface.get(), width, height);
    }
    void EndPage() override {
        cairo_show_page(ToDraw().pen.get());
        sink_.Check(cairo_status(ToDraw().pen.get()));
    }
    void Finish() override {
        ToDraw().pen.reset();
        cairo_surface_finish(ToDraw().surface.get());
        sink_.Check(cairo_surface_status(ToDraw().surface.get()));
    }

private:
    Sink sink_;
};

class PngPages : public PageCanvas {
public:
    PngPages(FontTypesetter& typesetter, PictureTaker take)
        : PageCanvas(typesetter), take_(std::move(take)) {}

    void BeginPage(double width, double height) override {
        constexpr double kScale = kDotsPerInch / kPointsPerInch;
        ToDraw().surface.reset(cairo_image_surface_create(
            CAIRO_FORMAT_RGB24, static_cast<int>(std::lround(width * kScale)),
            static_cast<int>(std::lround(height * kScale))));
        ToDraw().pen.reset(cairo_create(ToDraw().surface.get()));
        cairo_set_source_rgb(ToDraw().pen.get(), 1, 1, 1);
        cairo_paint(ToDraw().pen.get());
        cairo_scale(ToDraw().pen.get(), kScale, kScale);
    }
    void EndPage() override {
        std::string png;
        Sink sink{[&png](std::string_view bytes) { png += bytes; }};
        sink.Check(cairo_status(ToDraw().pen.get()));
        sink.Check(cairo_surface_write_to_png_stream(ToDraw().surface.get(), Sink::Write, &sink));
        take_(png);
    }
    void Finish() override {}

private:
    PictureTaker take_;
};

}  // namespace

std::unique_ptr<PageCanvas> MakePdfPages(FontTypesetter& typesetter, Output& output) {
    return std::make_unique<PdfPages>(typesetter, output);
}

std::unique_ptr<PageCanvas> MakePngPages(FontTypesetter& typesetter, PictureTaker take) {
    return std::make_unique<PngPages>(typesetter, std::move(take));
}

}  // namespace quillory

#ifdef __SANITIZE_ADDRESS__
// Fontconfig keeps its configuration, as long as the program runs, by offsets from one object to
// another, where the search for leaks does not find it. Cairo forgets an array of a PDF that it
// ends.
extern "C" __attribute__((visibility("default"))) const char*
__lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
    return "leak:libfontconfig\nleak:libcairo\n";
}
#endif
