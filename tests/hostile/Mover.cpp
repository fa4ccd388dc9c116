#include "hostile/Mover.h"

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

namespace veridane::test {
namespace {

namespace fs = std::filesystem;

/// Something else stands at the path for a moment.
void standIn(const fs::path& path, const std::function<void()>& put) {
    const fs::path kept = path.string() + ".kept";
    fs::rename(path, kept);
    put();
    fs::remove(path);
    fs::rename(kept, path);
}

} // namespace

Mover::Mover(const VolumeBuilder& mac, const VolumeBuilder& outside)
    : m_mac(mac), m_outside(outside),
      m_thread([this](const std::stop_token& stop) { playAll(stop); }) {}

void Mover::playAll(const std::stop_token& stop) const {
    for (int way = 0; !stop.stop_requested(); ++way) {
        for (int number = 0; number < HostileVolume::toyCount; ++number)
            play(m_mac.hostPath(HostileVolume::toy(number)), way + number);
    }
}

void Mover::play(const std::string& toy, int way) const {
    const std::string canary(HostileVolume::canary),
        contents = toy + "/Contents", program = contents + "/MacOS/main",
        parts = contents + "/PlugIns", old = parts + "/old",
        bundle = m_outside.hostPath('/' + canary + ".app"),
        foreign = bundle + "/Contents/MacOS/" + canary;
    switch (way % 9) {
    case 0:
        return standIn(toy, [] {});
    case 1:
        return standIn(toy, [&] { fs::create_symlink(bundle, toy); });
    case 2:
        return standIn(contents, [&] { fs::create_symlink(bundle + "/Contents", contents); });
    case 3:
        return standIn(program, [&] { fs::create_symlink(foreign, program); });
    case 4:
        return standIn(program, [&] { ::mkfifo(program.c_str(), 0644); });
    case 5:
        return standIn(old, [&] { fs::create_directory(old); });
    case 6:
        return standIn(parts, [&] { ::mkfifo(parts.c_str(), 0644); });
    case 7: // a folder that somebody may be in
        fs::rename(parts, toy + "/elsewhere");
        return fs::rename(toy + "/elsewhere", parts);
    default:
        fs::resize_file(old, 0);
        fs::resize_file(old, std::uintmax_t{1} << 30);
        const Bytes content = thinMachO(Slice::x86_64);
        std::ofstream(old, std::ios::binary)
            .write(reinterpret_cast<const char*>(content.data()), std::ssize(content));
    }
}

} // namespace veridane::test
