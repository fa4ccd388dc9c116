#pragma once

#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

class QPushButton;
class QStackedLayout;

namespace veridane {
class ScanCoordinator;
class Workspace;
} // namespace veridane

namespace veridane::ui {

class EmptyStateView;
class Preferences;
class ResultsTable;
class Theme;

/// The list of what a scan has found, or the invitation to the first one.
class ResultsTableView : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// All of it must outlive the view.
    ResultsTableView(ScanCoordinator& coordinator, Workspace& workspace, Preferences& preferences,
                     const Theme& theme, QWidget* parent = nullptr);
    ~ResultsTableView() override;

private:
    void retranslate() final;
    void refresh();

    ScanCoordinator& m_coordinator;
    // The toolkit's children.
    QStackedLayout* m_stack;
    ResultsTable* m_table;
    EmptyStateView* m_emptyState;
    QPushButton* m_button;
    Refresh m_refresh;
};

} // namespace veridane::ui
