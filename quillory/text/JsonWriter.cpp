#include <quillory/text/JsonWriter.h>
#include <quillory/text/MarkupText.h>

#include <utility>

namespace quillory {

void JsonWriter::BreakLine() {
    if (indent_ == 0) return;
    out_ += '\n';
    out_.append(depth_ * indent_, ' ');
}

void JsonWriter::Separate() {
    if (std::exchange(isNamed_, false) || depth_ == 0) return;
    if (!std::exchange(isFirst_, false)) out_ += ',';
    BreakLine();
}

void JsonWriter::Begin(char bracket) {
    Separate();
    out_ += bracket;
    ++depth_;
    isFirst_ = true;
}

void JsonWriter::End(char bracket) {
    --depth_;
    if (!std::exchange(isFirst_, false)) BreakLine();
    out_ += bracket;
}

void JsonWriter::Name(std::string_view name) {
    AddText(name);
    out_ += indent_ == 0 ? ":" : ": ";
    isNamed_ = true;
}

void JsonWriter::AddWord(std::string_view word) {
    Separate();
    out_ += word;
}

void JsonWriter::AddText(std::string_view text) {
    Separate();
    out_ += '"';
    AppendJsonText(text, out_, losses_);
    out_ += '"';
}

}  // namespace quillory
