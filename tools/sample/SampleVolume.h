#pragma once

#include "support/VolumeBuilder.h"

/// A believable Mac with about sixty objects of invented makers: every status, urgency, kind and
/// update source that a scan can come to, and some objects that are broken. What a scan shows of it
/// is the same each time; only the certificates in the signatures are new.
namespace veridane::sample {

/// Writes into an empty volume.
void writeSampleVolume(test::VolumeBuilder& volume);

} // namespace veridane::sample
