#pragma once

#include "ui/Refresh.h"

#include <QWidget>

class QScrollArea;

namespace veridane {
class ScanCoordinator;
struct ScanItem;
} // namespace veridane

namespace veridane::ui {

class EmptyStateView;
class Label;
class SymbolLabel;
class Theme;
class TintedBox;
class WrapLabel;

/// The right column: what the program thinks of the selected object, and why.
class DetailView : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the view.
    DetailView(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent = nullptr);
    ~DetailView() override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* makeBlocks();
    [[nodiscard]] QWidget* makeHeader();
    [[nodiscard]] QWidget* makeVerdictBox();
    void refresh();
    void showItem(const ScanItem& item);

    ScanCoordinator& m_coordinator;
    const Theme& m_theme;
    Refresh m_refresh;

    EmptyStateView* m_emptyState;
    QScrollArea* m_scrollArea = nullptr;
    SymbolLabel* m_kindSymbol = nullptr;
    WrapLabel* m_name = nullptr;
    Label* m_kind = nullptr;
    TintedBox* m_verdictBox = nullptr;
    SymbolLabel* m_urgencySymbol = nullptr;
    WrapLabel* m_verdict = nullptr;
    WrapLabel* m_advice = nullptr;
};

} // namespace veridane::ui
