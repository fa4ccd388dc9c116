#pragma once

#include "support/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <random>

namespace veridane::test {

/// Damages bytes in the ways that hurt whoever parses them. The same seed gives the same damage on
/// every machine and with every library.
class Mutator {
public:
    explicit Mutator(std::uint64_t seed) : m_random(seed) {}

    /// A copy with one to four damages: flipped bits, extreme and slightly wrong integers, bytes
    /// that are missing, foreign, twice there, swapped or nested thousands deep, cut characters.
    /// Headers, which hold the lengths and offsets, are hit more often than the rest.
    [[nodiscard]] Bytes damaged(Bytes bytes);

    /// A number below `bound`, which is at least 1.
    [[nodiscard]] std::size_t below(std::size_t bound) {
        // The library's distributions give other numbers with each library.
        return static_cast<std::size_t>(m_random() % bound);
    }

private:
    struct Range {
        std::size_t start, size;
    };
    using Way = void (Mutator::*)(Bytes&);

    [[nodiscard]] std::size_t place(const Bytes& bytes);
    [[nodiscard]] Range range(const Bytes& bytes, std::size_t most);
    [[nodiscard]] Range element(const Bytes& bytes);

    void flipBit(Bytes& bytes);
    void writeExtreme(Bytes& bytes);
    void nudge(Bytes& bytes);
    void truncate(Bytes& bytes);
    void insertForeign(Bytes& bytes);
    void erase(Bytes& bytes);
    void duplicate(Bytes& bytes);
    void swapRanges(Bytes& bytes);
    void nest(Bytes& bytes);
    void cutCharacter(Bytes& bytes);

    std::mt19937_64 m_random;
};

} // namespace veridane::test
