#pragma once

#include <QWidget>

#include <string_view>

class QPushButton;
class QVBoxLayout;

namespace veridane::ui {

class Label;
class Theme;
class WrapLabel;

/// What stands where there is nothing to show: a large symbol, what is missing, and how to get it.
class EmptyStateView : public QWidget {
    Q_OBJECT

public:
    EmptyStateView(const Theme& theme, std::string_view symbol, QWidget* parent = nullptr);

    void setTexts(std::string_view title, std::string_view description);
    /// Puts a button below the texts, which becomes the view's.
    void setButton(QPushButton* button);

private:
    Label* m_title;
    WrapLabel* m_description;
    QVBoxLayout* m_column;
};

} // namespace veridane::ui
