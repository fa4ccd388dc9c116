#pragma once

#include "hostile-volume/HostileVolume.h"

#include <stop_token>
#include <string>
#include <thread>

namespace veridane::test {

/// Moves, swaps, empties and refills files and folders of the toys in a thread of its own, one
/// after the other without a pause, and leaves each as it was.
class Mover {
public:
    /// The volumes must outlive it.
    Mover(const VolumeBuilder& mac, const VolumeBuilder& outside);

private:
    void playAll(const std::stop_token& stop) const;
    void play(const std::string& toy, int way) const;

    const VolumeBuilder& m_mac;
    const VolumeBuilder& m_outside;
    std::jthread m_thread; // the last one, as it uses the others
};

} // namespace veridane::test
