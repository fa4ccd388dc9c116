#pragma once

#include "ui/WrapLabel.h"

namespace veridane::ui {

/// A text from scanned objects that can be selected and copied, with the mouse and the keyboard. It
/// wraps wherever it must, but behind a slash where it can, and never asks for more width.
class SelectableLabel : public WrapLabel {
    Q_OBJECT

public:
    SelectableLabel(const Theme& theme, TextStyle style, Tone tone = Tone::primary,
                    QWidget* parent = nullptr);
};

} // namespace veridane::ui
