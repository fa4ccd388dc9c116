#pragma once

#include "ui/CommandBox.h"
#include "ui/Retranslated.h"

#include <QWidget>

#include <array>
#include <cstddef>

class QPushButton;

namespace veridane {
class Workspace;
}

namespace veridane::ui {

class Label;
class Theme;
class WrapLabel;

/// Explains the two ways to get Rosetta 2, which the program itself does not install. The content
/// of a sheet.
class RosettaInstallGuide : public Retranslated<QWidget> {
    Q_OBJECT

public:
    static constexpr const char* command = "softwareupdate --install-rosetta";

    /// `workspace` and `theme` must outlive the guide. A test gives a `delay` of its own.
    RosettaInstallGuide(Workspace& workspace, const Theme& theme,
                        CommandBox::Delay delay = CommandBox::after);

Q_SIGNALS:
    void closeRequested();

private:
    struct Step {
        Label* title;
        WrapLabel* text;
    };

    [[nodiscard]] QLayout* makeTitle();
    [[nodiscard]] QLayout* makeStep(std::size_t index);
    [[nodiscard]] QLayout* makeManualWay(CommandBox::Delay delay);
    [[nodiscard]] QLayout* makeClosingRow();
    void retranslate() final;

    Workspace& m_workspace;
    const Theme& m_theme;
    Label* m_title = nullptr;
    WrapLabel* m_introduction;
    std::array<Step, 2> m_steps{};
    QPushButton* m_openTerminal = nullptr;
    WrapLabel* m_note;
    QPushButton* m_done = nullptr;
};

} // namespace veridane::ui
