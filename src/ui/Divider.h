#pragma once

#include <QWidget>

namespace veridane::ui {

class Theme;

/// A hairline between two parts of a column.
class Divider : public QWidget {
    Q_OBJECT

public:
    explicit Divider(const Theme& theme, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& m_theme;
};

} // namespace veridane::ui
