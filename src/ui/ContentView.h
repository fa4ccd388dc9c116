#pragma once

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QSplitter;

namespace veridane {
class ScanCoordinator;
class Workspace;
} // namespace veridane

namespace veridane::ui {

class Preferences;
class ResultsTableView;
class SavePanel;
class Sheet;
class Theme;
class WelcomeView;

/// What the main window shows. All of it must outlive the window.
struct ContentServices {
    ScanCoordinator& coordinator;
    Workspace& workspace;
    Preferences& preferences;
    SavePanel& savePanel;
    const Theme& theme;
    /// Makes what greets the user; empty where nobody is to be greeted.
    std::function<std::unique_ptr<WelcomeView>()> makeWelcome{};
};

/// The main window: sidebar, content and details side by side below their bar. When it appears for
/// the first time, it greets the user and starts a scan unless there is a kept one to show.
class ContentView : public QMainWindow {
    Q_OBJECT

public:
    /// `launchArguments` are those of the process; tests that drive the window put theirs there.
    ContentView(const ContentServices& services, std::vector<std::string> launchArguments,
                QWidget* parent = nullptr);
    ~ContentView() override;

Q_SIGNALS:
    void settingsRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void runStartTask();
    void showWelcome();
    void showRosettaGuide();
    template <typename View>
    void openSheet(std::unique_ptr<View> view, void (View::*endOfView)());
    [[nodiscard]] QWidget* makeContentColumn();
    void restoreLayout();
    void saveLayout();

    ContentServices m_services;
    std::vector<std::string> m_launchArguments;
    bool m_hasStarted = false;
    ResultsTableView* m_results = nullptr;
    QPointer<Sheet> m_sheet;   // the one that is open
    QSplitter* m_outerColumns; // the sidebar and the rest
    QSplitter* m_innerColumns; // content and details
};

} // namespace veridane::ui
