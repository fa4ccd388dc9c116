#pragma once

#include <QEvent>

namespace veridane::ui {

/// A widget that writes its texts anew when the language in force changes. Whoever inherits it
/// calls `retranslate` once itself, as soon as its parts exist.
template <typename Widget>
class Retranslated : public Widget {
public:
    using Widget::Widget;

protected:
    virtual void retranslate() = 0;

    void changeEvent(QEvent* event) override {
        if (event->type() == QEvent::LanguageChange)
            retranslate();
        Widget::changeEvent(event);
    }
};

} // namespace veridane::ui
