#pragma once

#include "coordination/StatusFilter.h"
#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

#include <vector>

class QProgressBar;

namespace veridane {
class ScanCoordinator;
}

namespace veridane::ui {

class Label;
class ReadinessButton;
class TabularLabel;
class Theme;
class Tile;

/// Above the table: the progress of a running scan, else what the last one says of the machine as a
/// whole, with tiles that filter.
class SummaryHeaderView : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// Both must outlive the view.
    SummaryHeaderView(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent = nullptr);
    ~SummaryHeaderView() override;

private:
    [[nodiscard]] QWidget* makeProgressForm();
    [[nodiscard]] QWidget* makeOverviewForm();
    [[nodiscard]] QWidget* makeReadyLine();
    void retranslate() final;
    void refresh();
    void refreshProgress();
    void refreshOverview();
    void showFilter(StatusFilter filter);

    ScanCoordinator& m_coordinator;
    const Theme& m_theme;
    Refresh m_refresh;

    QWidget* m_progressForm = nullptr;
    QProgressBar* m_bar = nullptr;
    TabularLabel* m_count = nullptr;
    Label* m_phase = nullptr;

    QWidget* m_overviewForm = nullptr;
    QWidget* m_readyLine = nullptr;
    Label* m_readyText = nullptr;
    ReadinessButton* m_readiness = nullptr;
    std::vector<Tile*> m_tiles;
    Label* m_lastScan = nullptr;
};

} // namespace veridane::ui
