#pragma once

#include "coordination/AppCatalogue.h"
#include "coordination/NetworkMonitor.h"
#include "ui/PictureLoader.h"
#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

#include <array>
#include <memory>
#include <vector>

class QPushButton;
class QScrollArea;

namespace veridane {
class HttpClient;
class MainQueue;
class Workspace;
} // namespace veridane

namespace veridane::ui {

class Label;
class MakerCard;
class Theme;
class WrapLabel;

/// What the welcome sheet works with. All that is a reference must outlive the view.
struct WelcomeServices {
    HttpClient& client;
    MainQueue& queue;
    Workspace& workspace;
    std::unique_ptr<PathWatcher> watcher;
};

/// Greets the user: what the program is for, why it matters now, and what else its maker offers.
/// The content of a sheet. Asks the maker's site for the list of applications when it appears, and
/// shows the list only while the machine is online.
class WelcomeView : public Retranslated<QWidget> {
    Q_OBJECT

public:
    WelcomeView(WelcomeServices services, const Theme& theme);
    ~WelcomeView() override;

    /// Empty until the site has answered or failed; then the site's list, or else the program's.
    [[nodiscard]] const Observed<std::vector<MirefoldApp>>& apps() const { return m_apps; }

Q_SIGNALS:
    void dismissed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QWidget* makePage();
    [[nodiscard]] QLayout* makeGreeting();
    [[nodiscard]] QLayout* makeFeatures();
    [[nodiscard]] QWidget* makeBottomBar();
    void fetchCatalogue();
    void finish(const AppCatalogue::Outcome& outcome);
    void refresh();
    void retranslate() final;

    HttpClient& m_client;
    MainQueue& m_queue;
    const Theme& m_theme;
    NetworkMonitor m_network;
    PictureLoader m_pictures;
    Observed<std::vector<MirefoldApp>> m_apps;
    bool m_isBuiltIn = false; // and so follows the language
    bool m_hasStarted = false;
    std::shared_ptr<WelcomeView*> m_self; // answers that come too late find it gone
    Refresh m_refresh;

    QScrollArea* m_page = nullptr;
    Label* m_title = nullptr;
    WrapLabel* m_subtitle = nullptr;
    WrapLabel* m_introduction = nullptr;
    std::array<WrapLabel*, 3> m_features{};
    MakerCard* m_makerCard;
    QPushButton* m_start = nullptr;
};

} // namespace veridane::ui
