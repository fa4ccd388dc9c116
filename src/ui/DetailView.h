#pragma once

#include "model/ScanItem.h"
#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

#include <optional>

class QScrollArea;

namespace veridane {
class ScanCoordinator;
class Workspace;
} // namespace veridane

namespace veridane::ui {

class ActionButtons;
class ComponentBox;
class DetailHeader;
class EmptyStateView;
class FactRows;
class Theme;
class UpdateBlock;
class VerdictBox;

/// The right column: all that is known of the selected object, what the program thinks of it and
/// why, and what can be done about it.
class DetailView : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// All of them must outlive the view.
    DetailView(ScanCoordinator& coordinator, Workspace& workspace, const Theme& theme,
               QWidget* parent = nullptr);
    ~DetailView() override;

Q_SIGNALS:
    void rosettaGuideRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* makeBlocks();
    void refresh();
    void retranslate() final;
    void showItem(const ScanItem& item);

    ScanCoordinator& m_coordinator;
    const Theme& m_theme;
    Refresh m_refresh;
    std::optional<Uuid> m_shown;

    EmptyStateView* m_emptyState;
    QScrollArea* m_scrollArea = nullptr;
    DetailHeader* m_header;
    VerdictBox* m_verdict;
    FactRows* m_facts;
    ComponentBox* m_components;
    UpdateBlock* m_updates;
    ActionButtons* m_actions;
};

} // namespace veridane::ui
