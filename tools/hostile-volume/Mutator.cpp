#include "hostile-volume/Mutator.h"

#include <algorithm>
#include <iterator>

namespace veridane::test {
namespace {

auto at(auto& bytes, std::size_t position) {
    return bytes.begin() + static_cast<std::ptrdiff_t>(position);
}

} // namespace

Bytes Mutator::damaged(Bytes bytes) {
    static constexpr Way ways[] = {
        &Mutator::flipBit,       &Mutator::writeExtreme, &Mutator::writeExtreme,
        &Mutator::nudge,         &Mutator::nudge,        &Mutator::truncate,
        &Mutator::insertForeign, &Mutator::erase,        &Mutator::duplicate,
        &Mutator::swapRanges,    &Mutator::nest,         &Mutator::cutCharacter,
    };
    for (std::size_t times = 1 + below(4); times > 0 && !bytes.empty(); --times)
        (this->*ways[below(std::size(ways))])(bytes);
    return bytes;
}

/// Where to strike: at the head, at the end (where a binary list has its trailer), or anywhere.
std::size_t Mutator::place(const Bytes& bytes) {
    constexpr std::size_t headSize = 64, tailSize = 40;
    switch (below(4)) {
    case 0:
    case 1:
        return below(std::min(bytes.size(), headSize));
    case 2:
        return bytes.size() - 1 - below(std::min(bytes.size(), tailSize));
    default:
        return below(bytes.size());
    }
}

Mutator::Range Mutator::range(const Bytes& bytes, std::size_t most) {
    const std::size_t start = place(bytes);
    return {start, 1 + below(std::min(most, bytes.size() - start))};
}

/// A tag where there are tags, else a few bytes.
Mutator::Range Mutator::element(const Bytes& bytes) {
    const auto opening = std::find(at(bytes, below(bytes.size())), bytes.end(), '<');
    const auto closing = std::find(opening, bytes.end(), '>');
    if (closing == bytes.end())
        return range(bytes, 16);
    return {static_cast<std::size_t>(opening - bytes.begin()),
            static_cast<std::size_t>(closing - opening) + 1};
}

void Mutator::flipBit(Bytes& bytes) {
    bytes[place(bytes)] ^= static_cast<std::uint8_t>(1 << below(8));
}

void Mutator::writeExtreme(Bytes& bytes) {
    const std::uint64_t extremes[] = {0,
                                      1,
                                      0x7F,
                                      0xFF,
                                      0x7FFFFFFF,
                                      0x80000000,
                                      0xFFFFFFFF,
                                      0xFFFFFFFFFFFFFFFF,
                                      1ULL << 63,
                                      1ULL << 63 >> 1,
                                      bytes.size() - 1,
                                      bytes.size() + 1};
    const std::uint64_t value = extremes[below(std::size(extremes))];
    const std::size_t size = std::size_t{1} << below(4);
    const std::size_t start = place(bytes) / size * size;
    const bool isBigEndian = below(2) == 0;
    for (std::size_t i = 0; i < size && start + i < bytes.size(); ++i)
        bytes[start + i] = static_cast<std::uint8_t>(value >> 8 * (isBigEndian ? size - 1 - i : i));
}

void Mutator::nudge(Bytes& bytes) {
    std::uint8_t& byte = bytes[place(bytes)];
    byte = static_cast<std::uint8_t>(byte + 248 + below(16)); // eight less to seven more
}

void Mutator::truncate(Bytes& bytes) {
    bytes.resize(below(bytes.size()));
}

void Mutator::insertForeign(Bytes& bytes) {
    constexpr std::uint8_t fillings[] = {0, 0xFF, '<', '&', 0x80};
    const std::size_t filling = below(std::size(fillings) + 1), start = place(bytes);
    Bytes foreign(1 + below(200), fillings[filling % std::size(fillings)]);
    if (filling == std::size(fillings))
        std::ranges::generate(foreign, [this] { return static_cast<std::uint8_t>(below(256)); });
    bytes.insert(at(bytes, start), foreign.begin(), foreign.end());
}

void Mutator::erase(Bytes& bytes) {
    const auto [start, size] = range(bytes, 64);
    bytes.erase(at(bytes, start), at(bytes, start + size));
}

void Mutator::duplicate(Bytes& bytes) {
    const auto [start, size] = range(bytes, 256);
    const Bytes copy(at(bytes, start), at(bytes, start + size));
    bytes.insert(at(bytes, place(bytes)), copy.begin(), copy.end());
}

void Mutator::swapRanges(Bytes& bytes) {
    const std::size_t size = 1 + below(std::min<std::size_t>(64, bytes.size()));
    const std::size_t last = bytes.size() - size;
    const std::size_t first = below(last + 1), second = below(last + 1);
    const Bytes one(at(bytes, first), at(bytes, first + size));
    const Bytes other(at(bytes, second), at(bytes, second + size));
    std::ranges::copy(other, at(bytes, first));
    std::ranges::copy(one, at(bytes, second));
}

void Mutator::nest(Bytes& bytes) {
    constexpr std::size_t mostBytes = 64 * 1024;
    const auto [start, size] = element(bytes);
    const std::size_t mostTimes = below(4) == 0 ? 3000 : 30;
    const std::size_t times = 2 + below(mostTimes);
    Bytes nested;
    while (nested.size() < std::min(times * size, mostBytes))
        nested.insert(nested.end(), at(bytes, start), at(bytes, start + size));
    bytes.insert(at(bytes, start), nested.begin(), nested.end());
}

void Mutator::cutCharacter(Bytes& bytes) {
    const auto isContinuation = [](std::uint8_t byte) {
        return (byte & 0xC0) == 0x80;
    };
    const auto cut = std::find_if(at(bytes, below(bytes.size())), bytes.end(), isContinuation);
    if (cut != bytes.end())
        bytes.erase(cut);
    else
        bytes[place(bytes)] = 0xE2; // begins a character of three bytes
}

} // namespace veridane::test
