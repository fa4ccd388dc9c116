#pragma once

#include "ui/Retranslated.h"

#include <QWidget>

class QPushButton;

namespace veridane {
class ScanCoordinator;
struct ScanItem;
} // namespace veridane

namespace veridane::ui {

class FactRow;
class Label;
class Theme;
class WrapLabel;

/// Where a newer version of the selected object would come from, and whether there is one.
class UpdateBlock : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// Both must outlive the block.
    UpdateBlock(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent = nullptr);

    void showItem(const ScanItem& item);

private:
    void retranslate() final;
    void checkSelected();

    ScanCoordinator& m_coordinator;
    Label* m_title;
    FactRow* m_source;
    FactRow* m_appcast;
    Label* m_statusTitle;
    WrapLabel* m_status;
    QPushButton* m_check;
};

} // namespace veridane::ui
