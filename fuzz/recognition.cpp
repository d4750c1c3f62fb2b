#include <quillory/arguments/Arguments.h>
#include <quillory/exchange/Form.h>
#include <quillory/text/Charset.h>

#include <fuzz/Carry.h>
#include <string>
#include <string_view>
#include <vector>

namespace quillory::fuzz {
namespace {

struct Options {
    std::vector<std::string> files;
    const Form* form = nullptr;
    std::uint64_t number = 0;
    bool flag = false;
};

int Nothing(const Options&) {
    return 0;
}

// Whatever begins a file, it is of one form or none, and reading it by that form comes to its end.
void RecognizeContent(const std::string& path) {
    Input input(path);
    const Form* form = FormOfContent(input);
    const auto reader = (form == nullptr ? Forms().front() : *form).makeReader(input, true);
    std::uint64_t end = 0;
    for (Item item; reader->Next(item); end = item.offset + item.bytes.size()) {
        Expect(item.offset == end, "nothing of a file is passed over");
    }
    Expect(end == input.Offset(), "a file is read to its end");
}

void RecognizeName(const std::string& name) {
    const Form* form = FormOfFileName(name);
    Expect(form == nullptr || FormOfFileName("x" + name) == form, "a form is told by the ending");
    if (const Form* named = FormNamed(name)) {
        Expect(named->name == name || named->alias == name, "a form goes by its names");
    }
    if (const auto charset = CharsetNamed(name)) {
        Expect(CharsetNamed(CharsetName(*charset)) == charset, "a character set has a name");
    }
}

// Words of a command line, divided by line ends.
void ReadWords(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        words.emplace_back(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(words.back().size() + 1, text.size()));
    }
    Arguments arguments("program", "A program");
    const Options* given = nullptr;
    arguments.Command("convert", "A command", [&given](Arguments& command) {
        Options& options = command.Runs(Nothing);
        given = &options;
        command.Positional("FILE", options.files, "Files");
        command.Choice("--to", options.form, {{"marc", nullptr}, {"mrk", nullptr}}, "Form");
        command.Option("-n,--number", options.number, "Number").Range(1, 9);
        command.Flag("-f,--flag", options.flag, "Flag");
    });
    const Call call = arguments.Parse(words);
    Expect(call.text.empty() || call.error.empty(), "help is no error");
    Expect(given == nullptr || given->number < 10, "a number is in its range");
}

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory::fuzz;
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        RecognizeContent(FileOf(data, size));
    } catch (const quillory::FileError&) {
        // Damaged gzip data.
    }
    RecognizeName(text.substr(0, text.find('\n')));
    ReadWords(text);
    return 0;
}
