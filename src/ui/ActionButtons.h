#pragma once

#include "model/Recommendation.h"
#include "ui/Retranslated.h"

#include <QWidget>

#include <string_view>

class QPushButton;

namespace veridane {
class ScanCoordinator;
class Workspace;
} // namespace veridane

namespace veridane::ui {

class FittingRowLayout;

/// What can be done about the selected object, as its urgency suggests.
class ActionButtons : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// Both must outlive the buttons.
    ActionButtons(ScanCoordinator& coordinator, Workspace& workspace, QWidget* parent = nullptr);

    void showFor(Urgency urgency);

Q_SIGNALS:
    void rosettaGuideRequested();

private:
    [[nodiscard]] QPushButton* addButton(FittingRowLayout& row, const char* name,
                                         std::string_view symbol);
    void retranslate() final;
    void searchNativeVersion();
    void searchAppStore();
    void reveal();

    ScanCoordinator& m_coordinator;
    Workspace& m_workspace;
    QPushButton* m_searchNative = nullptr;
    QPushButton* m_searchAppStore = nullptr;
    QPushButton* m_reveal = nullptr;
    QPushButton* m_installRosetta = nullptr;
};

} // namespace veridane::ui
