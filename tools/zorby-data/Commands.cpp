#include <quillory/coded/CodeStatus.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/Output.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>

#include <algorithm>
#include <cstdio>
#include <memory>

#include <tools/zorby-data/Commands.h>
#include <tools/zorby-data/Dump.h>
#include <tools/zorby-data/FormatCompiler.h>
#include <tools/zorby-data/HoldingsCompiler.h>

namespace datatool {
namespace {

std::unique_ptr<Compiler> MakeCompiler(Kind kind, Faults& faults) {
    if (kind == kKindFormat) return std::make_unique<FormatCompiler>(faults);
    return std::make_unique<HoldingsCompiler>(faults);
}

std::string ReadWhole(const std::string& path, const std::string& output) {
    quillory::Input input(path);
    if (input.IsSameFileAs(output)) throw quillory::FileError(path + ": is the output file too");
    std::string bytes;
    for (;;) {
        const std::string_view window = input.Peek(1);
        if (window.empty()) return bytes;
        bytes += window;
        input.Skip(window.size());
    }
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

std::string Dumped(Kind kind, const std::string& path, std::string_view bytes) {
    Faults none({});
    const auto compiler = MakeCompiler(kind, none);
    Load(path, bytes, compiler->Dictionary());
    return compiler->Dump();
}

// Only what a source gives back is worth writing.
void CheckSame(std::string_view bytes, std::string_view again) {
    if (bytes == again) return;
    const auto offset = std::ranges::mismatch(bytes, again).in1 - bytes.begin();
    throw NoSource("offset " + std::to_string(offset) +
                   ": no source gives these bytes; compiling it would store others");
}

}  // namespace

Kind KindOfName(const std::string& path) {
    if (path.ends_with(".tfm")) return kKindFormat;
    if (path.ends_with(".hld")) return kKindHoldings;
    throw quillory::FileError(path + ": not named .tfm or .hld: say --kind format or holdings");
}

Status CompileFiles(Kind kind, const std::vector<std::string>& sources, const std::string& output) {
    std::vector<std::string> texts;
    texts.reserve(sources.size());
    for (const std::string& source : sources) texts.push_back(ReadWhole(source, output));
    Faults faults(sources);
    const auto compiler = MakeCompiler(kind, faults);
    Compile(*compiler, texts, faults);
    if (faults.Empty()) WriteWhole(output, Stored(compiler->Dictionary()));
    return Tell(faults);
}

Status DumpFile(Kind kind, const std::string& path, const std::string& output) {
    const std::string bytes = ReadWhole(path, output);
    Faults faults({output == "-" ? "standard output" : output});
    try {
        const std::string source = Dumped(kind, path, bytes);
        const auto compiler = MakeCompiler(kind, faults);
        Compile(*compiler, {source}, faults);
        CheckSame(bytes, Stored(compiler->Dictionary()));
        WriteWhole(output, source);
    } catch (const NoSource& reason) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), reason.what());
        return kStatusFaults;
    }
    return Tell(faults);
}

Status JoinCodes(const std::vector<std::string>& sources, const std::string& output) {
    quillory::CodeStatus codes;
    std::string joined;
    for (const std::string& source : sources) {
        const std::string text = ReadWhole(source, output);
        codes.Add(text, source);
        joined += text;
    }
    WriteWhole(output, joined);
    return kStatusWell;
}

}  // namespace datatool
