#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/SpillFile.h>
#include <quillory/jobs/TextLines.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillory {

// A file of lines that is read twice. What comes through a pipe is kept for the second time in a
// temporary file. It is open only while it is read. Throws FileError.
class ResultFile {
public:
    using Take = std::function<void(std::string_view line, const TextLines& lines)>;

    explicit ResultFile(std::string path);

    // "standard input" for "-".
    const std::string& Name() const { return name_; }
    void ReadFirst(const Take& take);

    // The lines for the second time, until End.
    TextLines& Begin();
    void End();

private:
    TextLines LinesOf(Input& input) const;

    std::string path_;
    std::string name_;
    std::unique_ptr<SpillFile> kept_;  // null for a file that can be opened again
    std::uint64_t reached_ = 0;        // in what is kept
    std::unique_ptr<Input> input_;
    std::unique_ptr<TextLines> lines_;
};

}  // namespace quillory
