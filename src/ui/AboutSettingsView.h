#pragma once

#include "ui/Retranslated.h"

#include <QWidget>

#include <vector>

namespace veridane {
class Workspace;
}

namespace veridane::ui {

class Label;
class LinkRow;
class Theme;
class WrapLabel;

/// The program's version, the maker and the maker's pages, which open in the browser.
class AboutSettingsView : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// Both must outlive the view.
    AboutSettingsView(Workspace& workspace, const Theme& theme, QWidget* parent = nullptr);

private:
    [[nodiscard]] QWidget* makeHeaderCard();
    [[nodiscard]] QWidget* makeAppsCard();
    [[nodiscard]] QWidget* makeLegalCard();
    [[nodiscard]] QWidget* makeFooter();
    void retranslate() final;

    Workspace& m_workspace;
    const Theme& m_theme;

    Label* m_maker = nullptr;
    Label* m_version = nullptr;
    Label* m_legalTitle = nullptr;
    std::vector<LinkRow*> m_links;
    WrapLabel* m_rights = nullptr;
};

} // namespace veridane::ui
