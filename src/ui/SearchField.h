#pragma once

#include "ui/Retranslated.h"

#include <QLineEdit>

namespace veridane::ui {

class PaintedButton;
class Theme;

/// The field that narrows the table by text. Escape clears it.
class SearchField : public Retranslated<QLineEdit> {
    Q_OBJECT

public:
    explicit SearchField(const Theme& theme, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class ClearButton;

    void retranslate() final;

    const Theme& m_theme;
    PaintedButton* m_clear;
};

} // namespace veridane::ui
