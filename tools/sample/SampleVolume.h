#pragma once

#include "support/VolumeBuilder.h"

/// A believable Mac with about sixty objects of invented makers: every status, urgency, kind and
/// update source that a scan can come to, and some objects that are broken. It is the same each
/// time.
namespace veridane::sample {

/// Writes into an empty volume.
void writeSampleVolume(test::VolumeBuilder& volume);

} // namespace veridane::sample
