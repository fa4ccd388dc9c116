#pragma once

#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

class QAction;
class QMenu;
class QToolButton;

namespace veridane {
class ScanCoordinator;
}

namespace veridane::ui {

class SavePanel;
class SearchField;
class Theme;

/// The bar above content and details: the title, the menus, the four tools and the search field.
class Bar : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// All of it must outlive the bar.
    Bar(ScanCoordinator& coordinator, SavePanel& savePanel, const Theme& theme,
        QWidget* parent = nullptr);
    ~Bar() override;

Q_SIGNALS:
    void settingsRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void makeActions();
    void makeMenus();
    void makeTools();
    void makeSearchField();
    [[nodiscard]] QToolButton* makeTool(const char* name, const char* symbol);
    void retranslate() final;
    void refresh();

    ScanCoordinator& m_coordinator;
    SavePanel& m_savePanel;
    const Theme& m_theme;
    Refresh m_refresh;

    QAction* m_scanAgain = nullptr;
    QAction* m_exportCSV = nullptr;
    QAction* m_exportJSON = nullptr;
    QAction* m_exportMarkdown = nullptr;
    QAction* m_openSettings = nullptr;
    QAction* m_quit = nullptr;
    QMenu* m_fileMenu = nullptr;
    QMenu* m_viewMenu = nullptr;
    QMenu* m_exportMenu = nullptr;
    QToolButton* m_scan = nullptr;
    QToolButton* m_checkUpdates = nullptr;
    QToolButton* m_export = nullptr;
    QToolButton* m_settings = nullptr;
    SearchField* m_searchField = nullptr;
};

} // namespace veridane::ui
