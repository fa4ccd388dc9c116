#pragma once

#include <QLineEdit>

namespace veridane::ui {

class PaintedButton;
class Theme;

/// The field that narrows the table by text. Escape clears it.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(const Theme& theme, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class ClearButton;

    void retranslate();

    const Theme& m_theme;
    PaintedButton* m_clear;
};

} // namespace veridane::ui
