#include <quillory/jobs/ResultFile.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace quillory {

ResultFile::ResultFile(std::string path)
    : path_(std::move(path)), name_(path_ == "-" ? std::string(kStandardInput) : path_) {
    std::error_code unknown;
    const bool canBeReadAgain = path_ != "-" && std::filesystem::is_regular_file(path_, unknown);
    if (!canBeReadAgain) kept_ = std::make_unique<SpillFile>();
}

TextLines ResultFile::LinesOf(Input& input) const {
    return {name_, [&input, this](std::span<char> target) {
                const std::string_view window = input.Peek(1);
                const std::size_t size = std::min(window.size(), target.size());
                window.copy(target.data(), size);
                if (kept_) kept_->Write(window.substr(0, size));
                input.Skip(size);
                return size;
            }};
}

void ResultFile::ReadFirst(const Take& take) {
    Input input(path_);
    TextLines lines = LinesOf(input);
    for (std::string_view line; lines.Next(line);) take(line, lines);
}

TextLines& ResultFile::Begin() {
    if (kept_) {
        lines_ = std::make_unique<TextLines>(name_, [this](std::span<char> target) {
            const std::size_t size = kept_->ReadAt(reached_, target);
            reached_ += size;
            return size;
        });
    } else {
        input_ = std::make_unique<Input>(path_);
        lines_ = std::make_unique<TextLines>(LinesOf(*input_));
    }
    return *lines_;
}

void ResultFile::End() {
    lines_.reset();
    input_.reset();
    kept_.reset();
}

}  // namespace quillory
