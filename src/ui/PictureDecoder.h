#pragma once

#include "platform/ByteView.h"

#include <QImage>

namespace veridane::ui {

/// Decodes a small picture that somebody else made: PNG, JPEG or the first frame of a GIF, as the
/// bytes themselves say. Other formats are not tried, above all none that can refer to files or
/// addresses. A larger picture is scaled down, in its proportions, to what an icon in a list needs
/// on any screen. Null if it is none of these, damaged, or so made that it takes much memory or
/// time: with more than 2048 pixels on a side, for one. Colour profiles are ignored. Safe on any
/// thread; takes a fraction of a second at most.
[[nodiscard]] QImage decodedPicture(ByteView bytes);

} // namespace veridane::ui
