#include <quillory/jobs/ResultFile.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace quillory {

ResultFile::ResultFile(std::string path)
    : path_(std::move(path)), name_(path_ == "-" ? std::string(kStandardInput) : path_) {}

bool ResultFile::CanBeReadAgain() const {
    std::error_code unknown;
    return path_ != "-" && std::filesystem::is_regular_file(path_, unknown);
}

TextLines ResultFile::LinesOf(Input& input) const {
    return {name_, [&input, this](std::span<char> target) {
                const std::string_view window = input.Peek(1);
                const std::size_t size = std::min(window.size(), target.size());
                window.copy(target.data(), size);
                if (kept_ != nullptr) kept_->Write(window.substr(0, size));
                input.Skip(size);
                return size;
            }};
}

void ResultFile::ReadFirst(const Take& take, PipedText& piped) {
    Input input(path_);
    if (!CanBeReadAgain()) {
        kept_ = &piped.File();
        reached_ = kept_->Size();
    }
    TextLines lines = LinesOf(input);
    for (std::string_view line; lines.Next(line);) take(line, lines);
    if (kept_ != nullptr) keptEnd_ = kept_->Size();
}

std::size_t ResultFile::ReadKept(std::span<char> target) {
    const std::uint64_t left = keptEnd_ - reached_;
    const std::size_t size =
        kept_->ReadAt(reached_, target.first(std::min<std::uint64_t>(target.size(), left)));
    reached_ += size;
    return size;
}

TextLines& ResultFile::Begin() {
    if (kept_ != nullptr) {
        lines_ = std::make_unique<TextLines>(
            name_, [this](std::span<char> target) { return ReadKept(target); });
    } else {
        input_ = std::make_unique<Input>(path_);
        lines_ = std::make_unique<TextLines>(LinesOf(*input_));
    }
    return *lines_;
}

void ResultFile::End() {
    lines_.reset();
    input_.reset();
}

}  // namespace quillory
