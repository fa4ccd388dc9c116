#pragma once

#include <QPalette>
#include <QProxyStyle>

namespace veridane::ui {

class Theme;

/// The look of the toolkit's own controls. Buttons are drawn by their `ButtonRole`. Colours come
/// from the theme at each drawing.
class VeridaneStyle : public QProxyStyle {
    Q_OBJECT

public:
    explicit VeridaneStyle(const Theme& theme);

    /// The theme's colours in the roles that widgets look them up by.
    [[nodiscard]] QPalette themePalette() const;

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl subControl, const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;

private:
    const Theme& m_theme;
};

} // namespace veridane::ui
