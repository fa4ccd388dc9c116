#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Runs every file of a corpus folder once. Each input stands in a buffer of exactly its size, so
// that the sanitizers see a read behind its end.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: fuzz-<parser> CORPUS-FOLDER\n", stderr);
        return 2;
    }
    int inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> content{std::istreambuf_iterator<char>(file), {}};
        const auto exact = std::make_unique<std::uint8_t[]>(content.size());
        std::copy(content.begin(), content.end(), exact.get());
        LLVMFuzzerTestOneInput(exact.get(), content.size());
        ++inputs;
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
