#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/SpillFile.h>
#include <quillory/jobs/TextLines.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillory {

// What comes through pipes, one after the other, in one temporary file, which is made for the first
// of them.
class PipedText {
public:
    SpillFile& File() { return file_ ? *file_ : file_.emplace(); }

private:
    std::optional<SpillFile> file_;
};

// A file of lines that is read twice, and is open only while it is read. What comes through a pipe
// is kept for the second time. Throws FileError.
class ResultFile {
public:
    using Take = std::function<void(std::string_view line, const TextLines& lines)>;

    explicit ResultFile(std::string path);

    // "standard input" for "-".
    const std::string& Name() const { return name_; }
    // Keeps the reference where the file is a pipe.
    void ReadFirst(const Take& take, PipedText& piped);

    // The lines for the second time, until End.
    TextLines& Begin();
    void End();

private:
    bool CanBeReadAgain() const;
    TextLines LinesOf(Input& input) const;
    std::size_t ReadKept(std::span<char> target);

    std::string path_;
    std::string name_;
    SpillFile* kept_ = nullptr;  // null for a file that can be opened again
    std::uint64_t reached_ = 0;  // in what is kept
    std::uint64_t keptEnd_ = 0;
    std::unique_ptr<Input> input_;
    std::unique_ptr<TextLines> lines_;
};

}  // namespace quillory
