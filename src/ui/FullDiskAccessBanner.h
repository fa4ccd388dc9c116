#pragma once

#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

class QPushButton;

namespace veridane {
class ScanCoordinator;
}

namespace veridane::ui {

class Theme;
class WrapLabel;

/// Says that the scan cannot see everything, and leads to the settings that allow it. There only
/// while access is missing.
class FullDiskAccessBanner : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// Both must outlive the banner.
    FullDiskAccessBanner(ScanCoordinator& coordinator, const Theme& theme,
                         QWidget* parent = nullptr);
    ~FullDiskAccessBanner() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void retranslate() final;

    ScanCoordinator& m_coordinator;
    const Theme& m_theme;
    Refresh m_refresh;

    WrapLabel* m_title;
    WrapLabel* m_hint;
    QPushButton* m_openSettings;
};

} // namespace veridane::ui
