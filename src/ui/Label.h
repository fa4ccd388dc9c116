#pragma once

#include "ui/Theme.h"

#include <QLabel>

namespace veridane::ui {

/// A text of one line in a style of the theme. What does not fit is cut at its end, and then the
/// whole text is its help tag.
class Label : public QLabel {
    Q_OBJECT

public:
    Label(const Theme& theme, TextStyle style, Tone tone = Tone::primary,
          QWidget* parent = nullptr);

    void setTone(Tone tone);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

    [[nodiscard]] const Theme& theme() const { return m_theme; }
    [[nodiscard]] TextStyle textStyle() const { return m_style; }
    [[nodiscard]] QColor colour() const;
    [[nodiscard]] QSize withMargins(const QSize& contents) const;
    [[nodiscard]] virtual bool isCut() const;

private:
    const Theme& m_theme;
    TextStyle m_style;
    Tone m_tone;
};

/// A count, or counts with signs between them.
class TabularLabel : public Label {
    Q_OBJECT

public:
    using Label::Label;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace veridane::ui
