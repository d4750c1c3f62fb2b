#include <quillory/cards/Pages.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>

#include <dlfcn.h>
#include <filesystem>
#include <string>
#include <utility>

namespace quillory {
namespace {

namespace fs = std::filesystem;

// In a folder of its own where it is installed, with the other libraries where it was built.
std::string PathOfLibrary() {
    constexpr const char* kName = "libquillory-pages.so";
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path folder = program.parent_path().parent_path() / LIBRARY_FOLDER;
    const fs::path installed = folder / "quillory" / kName;
    return fs::exists(installed, error) ? installed : folder / kName;
}

// The library stays loaded: what it was linked with can't be unloaded.
FontEngineMaker* LoadMaker() {
    void* const library = dlopen(PathOfLibrary().c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const maker = library == nullptr ? nullptr : dlsym(library, kFontEngineMaker);
    if (maker == nullptr) throw FileError(std::string("pages can't be drawn: ") + dlerror());
    return reinterpret_cast<FontEngineMaker*>(maker);
}

}  // namespace

FontTypesetter::FontTypesetter() {
    static FontEngineMaker* const make = LoadMaker();
    engine_.reset(make());
    if (!engine_) throw FileError({FaultCode::kNoFonts});
}

std::unique_ptr<PageCanvas> MakePdfPages(FontTypesetter& typesetter, Output& output) {
    return typesetter.Engine().MakePdf([&output](std::string_view bytes) { output.Write(bytes); });
}

std::unique_ptr<PageCanvas> MakePngPages(FontTypesetter& typesetter, ByteTaker take) {
    return typesetter.Engine().MakePng(std::move(take));
}

}  // namespace quillory

#ifdef SEARCHES_FOR_LEAKS
// Fontconfig keeps its configuration, as long as the program runs, by offsets from one object to
// another, where the search for leaks does not find it. Cairo forgets an array of a PDF that it
// ends.
extern "C" __attribute__((visibility("default"))) const char*
__lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
    return "leak:libfontconfig\nleak:libcairo\n";
}
#endif
