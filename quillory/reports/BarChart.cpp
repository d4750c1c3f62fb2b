#include <quillory/reports/BarChart.h>
#include <quillory/reports/HtmlText.h>

#include <algorithm>
#include <cstdio>

namespace quillory {
namespace {

// In units of the drawing.
constexpr int kWidth = 640;
constexpr int kRowHeight = 24;
constexpr int kBarHeight = 14;
constexpr int kLabelWidth = 290;
constexpr int kNumberWidth = 70;
constexpr double kBarWidth = kWidth - kLabelWidth - kNumberWidth;

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

std::string TextAt(double x, int y, std::string_view anchor, std::string_view text) {
    return "<text x=\"" + Number(x) + "\" y=\"" + std::to_string(y) + "\" text-anchor=\"" +
           std::string(anchor) + "\">" + HtmlText(text) + "</text>";
}

// As much of a label as there is room for.
std::string Shortened(const std::string& label) {
    constexpr std::size_t kLongest = 40;
    if (label.size() <= kLongest) return label;
    std::size_t end = kLongest;
    while (end > 0 && (static_cast<unsigned char>(label[end]) & 0xC0U) == 0x80U) --end;
    return label.substr(0, end) + "...";
}

std::string BarSvg(const Bar& bar, std::uint64_t most, int row) {
    const int top = row * kRowHeight + (kRowHeight - kBarHeight) / 2;
    const int baseline = row * kRowHeight + 16;
    std::string svg = "<g>" + TextAt(kLabelWidth - 8, baseline, "end", Shortened(bar.label));
    double x = kLabelWidth;
    for (const BarPart& part : bar.parts) {
        if (part.count == 0) continue;
        const double width =
            kBarWidth * static_cast<double>(part.count) / static_cast<double>(most);
        svg += "<rect class=\"" + std::string(part.colour) + "\" x=\"" + Number(x) + "\" y=\"" +
               std::to_string(top) + "\" width=\"" + Number(std::max(width, 1.0)) + "\" height=\"" +
               std::to_string(kBarHeight) + "\"><title>" +
               HtmlText(bar.label + ", " + std::string(part.name) + ": " +
                        std::to_string(part.count)) +
               "</title></rect>";
        x += std::max(width, 1.0);
    }
    return svg + TextAt(x + 6, baseline, "start", std::to_string(bar.Total())) + "</g>\n";
}

}  // namespace

std::uint64_t Bar::Total() const {
    std::uint64_t total = 0;
    for (const BarPart& part : parts) total += part.count;
    return total;
}

std::string BarChart(const std::string& name, const std::vector<Bar>& bars) {
    if (bars.empty()) return "<p>None.</p>\n";
    std::uint64_t most = 1;
    for (const Bar& bar : bars) most = std::max(most, bar.Total());
    const int height = static_cast<int>(bars.size()) * kRowHeight;
    std::string svg = "<svg role=\"img\" aria-label=\"" + HtmlText(name) + "\" viewBox=\"0 0 " +
                      std::to_string(kWidth) + " " + std::to_string(height) + "\">\n";
    int row = 0;
    for (const Bar& bar : bars) svg += BarSvg(bar, most, row++);
    return svg + "</svg>\n";
}

}  // namespace quillory
