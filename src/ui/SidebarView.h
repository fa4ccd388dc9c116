#pragma once

#include "ui/Refresh.h"

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

class QButtonGroup;
class QVBoxLayout;

namespace veridane {
class ScanCoordinator;
enum class ItemKind : std::uint8_t;
} // namespace veridane

namespace veridane::ui {

class DisclosureButton;
class Label;
class SidebarRow;
class SymbolLabel;
class Theme;

/// The left column: who the program and the machine are, and the filters by status, kind and
/// vendor with their counts.
class SidebarView : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the view.
    SidebarView(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent = nullptr);
    ~SidebarView() override;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHeaderCard();
    [[nodiscard]] QWidget* makeSystemLines();
    void addSectionTitle(QVBoxLayout& column, Label*& title, int room);
    void addStatusRows(QVBoxLayout& column);
    void retranslate();
    void refresh();
    void refreshKinds();
    void refreshVendors();
    void chooseKind(ItemKind kind);
    void chooseVendor(const std::string& vendor);

    ScanCoordinator& m_coordinator;
    const Theme& m_theme;
    Refresh m_refresh;

    Label* m_maker = nullptr;
    Label* m_systemTitle = nullptr;
    Label* m_processor = nullptr;
    Label* m_rosetta = nullptr;
    Label* m_statusTitle = nullptr;
    QButtonGroup* m_statusRows = nullptr;
    Label* m_kindTitle = nullptr;
    SidebarRow* m_allKinds = nullptr;
    QVBoxLayout* m_kindColumn = nullptr;
    std::vector<std::pair<ItemKind, SidebarRow*>> m_kinds;
    DisclosureButton* m_vendorsExpanded = nullptr;
    QWidget* m_vendorGroup = nullptr;
    SidebarRow* m_allVendors = nullptr;
    QVBoxLayout* m_vendorColumn = nullptr;
    std::vector<std::pair<std::string, SidebarRow*>> m_vendors;
};

} // namespace veridane::ui
