#pragma once

#include "ui/Metrics.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace veridane::ui {

class Theme;

/// Whether focus that came that way is to be shown. A click needs no ring: the eye is there.
[[nodiscard]] bool comesFromKeyboard(Qt::FocusReason reason);

/// Whether focus that came or went that way was with a menu, a pop-up or another window meanwhile,
/// so that it is shown as it was before.
[[nodiscard]] bool isInterruption(Qt::FocusReason reason);

/// How a widget wants its ring; without a call it gets none.
struct RingShape {
    int gap = metrics::focusRingGap; // between the widget and the ring; see `insideGap`
    int radius = 0;                  // of the widget's corners
    bool isAlwaysShown = false;
};
inline constexpr int insideGap = -metrics::focusRingWidth; // for a ring within the widget's edge
void setRing(QWidget& widget, const RingShape& shape);
[[nodiscard]] bool hasRing(const QWidget& widget);

/// Draws the ring around the widget that has the keyboard's focus, in every window. What the
/// keyboard reaches it also scrolls into view.
class FocusRing : public QObject {
    Q_OBJECT

public:
    FocusRing(const Theme& theme, QObject* parent);
    ~FocusRing() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Frame;

    const Theme& m_theme;
    QPointer<Frame> m_frame;
    QPointer<QWidget> m_interrupted; // whose ring waits for its window, or for a menu to close
};

} // namespace veridane::ui
