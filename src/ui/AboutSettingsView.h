#pragma once

#include <QWidget>

#include <vector>

class QScrollArea;

namespace veridane {
class Workspace;
}

namespace veridane::ui {

class AppsCard;
class Label;
class LinkRow;
class PaintedButton;
class Theme;
class WrapLabel;

/// The program's version, the maker and the maker's pages, which open in the browser.
class AboutSettingsView : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the view.
    AboutSettingsView(Workspace& workspace, const Theme& theme, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHeaderCard();
    [[nodiscard]] QWidget* makeAppsCard();
    [[nodiscard]] QWidget* makeLegalCard();
    [[nodiscard]] QWidget* makeFooter();
    void retranslate();

    Workspace& m_workspace;
    const Theme& m_theme;

    QScrollArea* m_scrollArea = nullptr;
    Label* m_maker = nullptr;
    Label* m_version = nullptr;
    AppsCard* m_apps = nullptr;
    Label* m_legalTitle = nullptr;
    std::vector<LinkRow*> m_links;
    WrapLabel* m_rights = nullptr;
};

} // namespace veridane::ui
