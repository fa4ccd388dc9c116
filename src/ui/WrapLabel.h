#pragma once

#include "ui/Label.h"
#include "ui/WrappedText.h"

#include <memory>

namespace veridane::ui {

/// A text of several lines that keeps together what belongs together; see `boundForLayout`. It is
/// as high as its width demands.
class WrapLabel : public Label {
    Q_OBJECT

public:
    WrapLabel(const Theme& theme, TextStyle style, Tone tone = Tone::primary,
              QWidget* parent = nullptr);
    ~WrapLabel() override;

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool isCut() const override { return false; }

    void setBreaksBehindSlashes() { m_breaksBehindSlashes = true; }
    void paintLines(const TextSpan& selected);
    /// The lines that are shown, and where they begin in the widget.
    [[nodiscard]] const WrappedText& shownLines() const;
    [[nodiscard]] QPoint origin() const;

private:
    struct Lines;
    [[nodiscard]] const WrappedText& lines(int width) const;

    bool m_breaksBehindSlashes = false;
    mutable std::unique_ptr<Lines> m_lines; // the last ones: a layout asks often for the same
};

} // namespace veridane::ui
