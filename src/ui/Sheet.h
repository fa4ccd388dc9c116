#pragma once

#include "ui/SheetShadow.h"

#include <QPointer>
#include <QWidget>

class QPushButton;
class QVariantAnimation;

namespace veridane::ui {

class Theme;

/// Shows a view in front of a window, which stays visible and goes on working but takes no input
/// until the sheet is closed. Return presses the default button of the view and Escape closes the
/// sheet. It is deleted once it is closed, and goes with its window.
class Sheet : public QWidget {
    Q_OBJECT

public:
    /// Opens at once. `content`, which becomes the sheet's own, gets its maximum width, and its
    /// maximum height or else what its layout needs, but never more than the window has. Assistive
    /// technology calls the sheet by the accessible name of the content.
    Sheet(const Theme& theme, QWidget* content, QWidget& window);
    ~Sheet() override;

    [[nodiscard]] QWidget* content() const { return m_content; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QPushButton* defaultButton() const;
    void fadeIn();
    void keepFocus(QWidget* old, QWidget* now);
    void place();

    const Theme& m_theme;
    QWidget* m_content;
    QPointer<QWidget> m_focusBefore;
    QVariantAnimation* m_entrance;
    SheetShadow m_shadow;
};

} // namespace veridane::ui
