#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size);

namespace {

void Replay(const std::filesystem::path& file) {
    std::printf("%s\n", file.c_str());
    std::fflush(stdout);
    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    constexpr unsigned kMostSeconds = 60;  // under sanitizers, on a machine that is busy
    alarm(kMostSeconds);
    LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    alarm(0);
}

}  // namespace

// Gives a fuzz target each file of a folder, and no bytes at all; names the file before, since the
// target ends the program where it finds a fault, and the system does where it takes too long.
int main(int argc, char** argv) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(""), 0);
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            Replay(entry.path());
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
