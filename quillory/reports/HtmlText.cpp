#include <quillory/reports/HtmlText.h>
#include <quillory/reports/ScreenText.h>

namespace quillory {

std::string HtmlText(std::string_view text) {
    std::string html;
    for (const char c : Visible(text)) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            case '\'':
                html += "&#39;";
                break;
            default:
                html += c;
        }
    }
    return html;
}

std::string Tile(std::string_view kind, std::uint64_t count, std::string_view text) {
    return "<li class=\"" + std::string(kind) + "\"><b>" + std::to_string(count) + "</b>" +
           std::string(text) + "</li>\n";
}

}  // namespace quillory
