#include <quillory/places/Tag.h>

#include <tools/zorby-data/CellText.h>
#include <tools/zorby-data/SourceWriter.h>

namespace datatool {
namespace {

// A row must not look like a comment or the name of a section.
std::string AtLineStart(const std::string& cell) {
    if (cell.starts_with('#')) return "\\x23" + cell.substr(1);
    if (cell.starts_with('[')) return "\\x5b" + cell.substr(1);
    return cell;
}

}  // namespace

void SourceWriter::Row(std::initializer_list<std::string> cells) {
    if (section_) {
        if (!text_.empty()) text_ += '\n';
        text_ += '[' + std::string(section_->name) + "]\n" + std::string(section_->header) + '\n';
        section_ = nullptr;
    }
    std::string line;
    for (const std::string& cell : cells) {
        line += &cell == cells.begin() ? AtLineStart(cell) : '\t' + cell;
    }
    text_ += line + '\n';
}

std::string TagCell(unsigned tag) {
    return quillory::TagText(tag);
}

std::string CodeCell(char code) {
    return EncodeCell({&code, 1});
}

}  // namespace datatool
