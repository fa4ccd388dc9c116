// The walk as one would first write it: standard library, one path and one stream a file. It finds
// the bundles below a folder, measures them and lists their files that do not run natively, as the
// scan does, and shares no line with it. What it prints is what the scan has to agree with:
//     <files> files <bytes> bytes
//     component <bundle, relative to the folder> <tab> <path in the bundle>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

const std::vector<std::string> bundleExtensions = {".app", ".vst3"};

struct Totals {
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
    std::vector<std::string> components;
};

bool isHidden(const fs::path& path) {
    return path.filename().string().front() == '.';
}

std::uint32_t readWord(std::istream& stream, bool isBigEndian) {
    std::array<unsigned char, 4> bytes{};
    stream.read(reinterpret_cast<char*>(bytes.data()), bytes.size());
    if (!isBigEndian)
        std::ranges::reverse(bytes);
    std::uint32_t word = 0;
    for (const unsigned char byte : bytes)
        word = word << 8 | byte;
    return stream ? word : 0;
}

bool runsNatively(std::uint32_t cpuType) {
    return cpuType == 0x0100000C;
}

/// A Mach-O file without code for Apple silicon. No file of the volumes is damaged.
bool isStranded(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::uint32_t magic = readWord(file, true);
    if (magic == 0xCAFEBABE) {
        const std::uint32_t count = readWord(file, true);
        for (std::uint32_t i = 0; i < count && file; ++i) {
            if (runsNatively(readWord(file, true)))
                return false;
            file.seekg(16, std::ios::cur); // subtype, offset, size, alignment
        }
        return true;
    }
    if (magic == 0xCEFAEDFE || magic == 0xCFFAEDFE)
        return !runsNatively(readWord(file, false));
    return (magic == 0xFEEDFACE || magic == 0xFEEDFACF) && !runsNatively(readWord(file, true));
}

void walkBundle(const fs::path& bundle, const fs::path& volume, Totals& totals) {
    const fs::path mainExecutable = fs::weakly_canonical(bundle / "Contents/MacOS" / bundle.stem());
    for (auto at = fs::recursive_directory_iterator(bundle); at != fs::end(at); ++at) {
        if (isHidden(at->path())) {
            at.disable_recursion_pending();
            continue;
        }
        if (at->is_symlink() || !at->is_regular_file())
            continue;
        ++totals.files;
        totals.bytes += at->file_size();
        if (isStranded(at->path()) && fs::canonical(at->path()) != mainExecutable)
            totals.components.push_back(fs::relative(bundle, volume).string() + '\t' +
                                        fs::relative(at->path(), bundle).string());
    }
}

Totals walkVolume(const fs::path& volume) {
    Totals totals;
    for (auto at = fs::recursive_directory_iterator(volume); at != fs::end(at); ++at) {
        const std::string extension = at->path().extension().string();
        if (std::ranges::find(bundleExtensions, extension) != bundleExtensions.end()) {
            at.disable_recursion_pending();
            walkBundle(at->path(), volume, totals);
        } else if (at->is_regular_file()) {
            ++totals.files; // a tool
            totals.bytes += at->file_size();
        }
    }
    std::ranges::sort(totals.components);
    return totals;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::cerr << "usage: bench-plain-walk DIR\n";
        return 2;
    }
    try {
        const Totals totals = walkVolume(arguments[1]);
        std::cout << totals.files << " files " << totals.bytes << " bytes\n";
        for (const std::string& component : totals.components)
            std::cout << "component " << component << '\n';
    } catch (const fs::filesystem_error& error) {
        std::cerr << "bench-plain-walk: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
