#include <quillory/coded/CodeStatus.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/Output.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>

#include <tools/zorby-data/CodeSource.h>
#include <tools/zorby-data/Commands.h>
#include <tools/zorby-data/Dump.h>
#include <tools/zorby-data/FormatCompiler.h>
#include <tools/zorby-data/HoldingsCompiler.h>
#include <tools/zorby-data/WorkformCompiler.h>

namespace datatool {
namespace {

std::unique_ptr<Compiler> MakeCompiler(Kind kind, Faults& faults) {
    if (kind == kKindFormat) return std::make_unique<FormatCompiler>(faults);
    if (kind == kKindWorkforms) return std::make_unique<WorkformCompiler>(faults);
    return std::make_unique<HoldingsCompiler>(faults);
}

std::string ContentOf(const std::string& path, const std::string& output) {
    quillory::Input input(path);
    if (input.IsSameFileAs(output)) throw quillory::FileError(path + ": is the output file too");
    return quillory::ReadWhole(input);
}

void WriteWhole(const std::string& path, std::string_view bytes) {
    quillory::Output output(path);
    output.Write(bytes);
    output.Finish();
}

Status Tell(const Faults& faults) {
    std::fputs(faults.Text().c_str(), stderr);
    return faults.Empty() ? kStatusWell : kStatusFaults;
}

// An archive in memory doesn't know the name of its file.
void Load(const std::string& path, std::string_view bytes, zorby::CObject& dictionary) {
    zorby::MemoryViewStream stream(bytes);
    zorby::CArchive archive(stream, zorby::CArchive::load);
    try {
        dictionary.Serialize(archive);
    } catch (const zorby::CArchiveException& failure) {
        throw zorby::CArchiveException(failure.GetCause(), path, failure.GetOffset(),
                                       failure.GetSystemError());
    }
}

std::vector<Source> Dumped(Kind kind, const std::string& path, std::string_view bytes) {
    Faults none({});
    const auto compiler = MakeCompiler(kind, none);
    Load(path, bytes, compiler->Dictionary());
    return compiler->Sources();
}

std::vector<std::string> PathsOf(const std::vector<Source>& sources, const std::string& output) {
    std::vector<std::string> paths;
    paths.reserve(sources.size());
    for (const Source& source : sources) {
        paths.push_back(source.name.empty() ? output : output + '/' + source.name);
    }
    return paths;
}

std::vector<std::string> TextsOf(const std::vector<Source>& sources) {
    std::vector<std::string> texts;
    texts.reserve(sources.size());
    for (const Source& source : sources) texts.push_back(source.text);
    return texts;
}

void MakeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error) throw quillory::FileError(path + ": " + error.message());
}

// Only what a source gives back is worth writing.
void CheckSame(std::string_view bytes, std::string_view again) {
    if (bytes == again) return;
    const auto offset = std::ranges::mismatch(bytes, again).in1 - bytes.begin();
    throw NoSource("offset " + std::to_string(offset) +
                   ": no source gives these bytes; compiling it would store others");
}

Kind KindOfName(const std::string& path) {
    if (path.ends_with(".tfm")) return kKindFormat;
    if (path.ends_with(".hld")) return kKindHoldings;
    if (path.ends_with(".ttm")) return kKindWorkforms;
    throw quillory::FileError(path + ": not named .tfm, .hld or .ttm: say what it is by --kind");
}

}  // namespace

Status CompileFiles(const CompileOptions& options) {
    std::vector<std::string> texts;
    texts.reserve(options.sources.size());
    for (const std::string& source : options.sources) {
        texts.push_back(ContentOf(source, options.output));
    }
    Faults faults(options.sources);
    const auto compiler = MakeCompiler(options.kind, faults);
    compiler->Compile(texts);
    if (faults.Empty()) WriteWhole(options.output, Stored(compiler->Dictionary()));
    return Tell(faults);
}

Status DumpFile(const DumpOptions& options) {
    const std::string& path = options.file;
    const std::string& output = options.output;
    const Kind kind = options.kind ? *options.kind : KindOfName(path);
    const bool isFolder = kind == kKindWorkforms;
    if (isFolder && output == "-") throw quillory::FileError("name a folder for workforms by -o");
    const std::string bytes = ContentOf(path, output);
    try {
        const std::vector<Source> sources = Dumped(kind, path, bytes);
        const std::vector<std::string> paths = PathsOf(sources, output);
        Faults faults(output == "-" ? std::vector<std::string>{"standard output"} : paths);
        const auto compiler = MakeCompiler(kind, faults);
        compiler->Compile(TextsOf(sources));
        CheckSame(bytes, Stored(compiler->Dictionary()));
        if (isFolder) MakeFolder(output);
        for (std::size_t at = 0; at < paths.size(); ++at) WriteWhole(paths[at], sources[at].text);
        return Tell(faults);
    } catch (const NoSource& reason) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), reason.what());
        return kStatusFaults;
    }
}

Status JoinCodes(const JoinOptions& options) {
    quillory::CodeStatus codes;
    std::string joined;
    for (const std::string& source : options.sources) {
        const std::string text = ContentOf(source, options.output);
        const std::string published = PublishedPart(text, source);
        codes.Add(published, source);
        joined += WithoutEmptyLines(published);
    }
    WriteWhole(options.output, joined);
    return kStatusWell;
}

}  // namespace datatool
