#pragma once

#include "ui/Retranslated.h"

#include <QFrame>

#include <chrono>
#include <functional>

class QPushButton;

namespace veridane::ui {

class Theme;

/// A command for the terminal, and a button that copies it.
class CommandBox : public Retranslated<QFrame> {
    Q_OBJECT

public:
    /// Runs a task once after that time, unless the context has gone before.
    using Delay = std::function<void(std::chrono::milliseconds time, QObject* context,
                                     std::function<void()> task)>;
    /// The one that takes that time.
    static void after(std::chrono::milliseconds time, QObject* context, std::function<void()> task);

    CommandBox(const QString& command, const Theme& theme, Delay delay = after,
               QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void copy();
    void setCopied(bool copied);
    void retranslate() final;

    const QString m_command;
    const Theme& m_theme;
    Delay m_delay;
    bool m_copied = false;
    QPushButton* m_copyButton;
};

} // namespace veridane::ui
