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

}  // namespace quillory
