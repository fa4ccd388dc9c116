#pragma once

#include "ui/Refresh.h"

#include <QWidget>

namespace veridane {
class ScanCoordinator;
class Workspace;
} // namespace veridane

namespace veridane::ui {

class Preferences;
class Theme;

/// The list of what a scan has found, or the invitation to the first one.
class ResultsTableView : public QWidget {
    Q_OBJECT

public:
    /// All of it must outlive the view.
    ResultsTableView(ScanCoordinator& coordinator, Workspace& workspace, Preferences& preferences,
                     Theme& theme, QWidget* parent = nullptr);
    ~ResultsTableView() override;
};

} // namespace veridane::ui
