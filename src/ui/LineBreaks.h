#pragma once

#include <QString>

namespace veridane::ui {

/// The text for a layout that breaks lines: what belongs together ("Rosetta 2", "macOS 28", "z.
/// B.") stays on one line, and no line begins with a dash. Only for painting: what a widget holds,
/// and assistive technology reads, keeps its ordinary blanks.
[[nodiscard]] QString boundForLayout(QString text);

} // namespace veridane::ui
