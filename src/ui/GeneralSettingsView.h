#pragma once

#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

class QComboBox;
class QPushButton;

namespace veridane::ui {

class Label;
class Preferences;
class Relauncher;
class SegmentedControl;
class SymbolLabel;
class Theme;
class WrapLabel;

/// Appearance and language. A choice takes effect the moment that it is made.
class GeneralSettingsView : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// All must outlive the view.
    GeneralSettingsView(Preferences& preferences, Relauncher& relauncher, const Theme& theme,
                        QWidget* parent = nullptr);
    ~GeneralSettingsView() override;

private:
    [[nodiscard]] QWidget* makeAppearanceGroup();
    [[nodiscard]] QWidget* makeLanguageGroup();
    [[nodiscard]] QWidget* makeRestartHint();
    void chooseLanguage(int index);
    void retranslate() final;
    void refresh();

    Preferences& m_preferences;
    Relauncher& m_relauncher;
    const Theme& m_theme;
    Refresh m_refresh;

    Label* m_appearanceTitle = nullptr;
    Label* m_modeLabel = nullptr;
    SegmentedControl* m_modes = nullptr;
    SymbolLabel* m_modeSymbol = nullptr;
    WrapLabel* m_modeDescription = nullptr;
    Label* m_languageTitle = nullptr;
    Label* m_languageLabel = nullptr;
    QComboBox* m_languages = nullptr;
    QWidget* m_restartHint = nullptr; // from the first change of the language on
    WrapLabel* m_restartText = nullptr;
    QPushButton* m_restart = nullptr;
};

} // namespace veridane::ui
