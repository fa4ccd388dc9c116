#pragma once

#include "model/ScanItem.h"
#include "ui/Refresh.h"
#include "ui/Retranslated.h"

#include <QWidget>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QVBoxLayout;

namespace veridane {
class ScanCoordinator;
}

namespace veridane::ui {

class ChoiceGroup;
class DisclosureButton;
class Label;
class SidebarRow;
class Theme;

/// The left column: who the program and the machine are, and the filters by status, kind and
/// vendor with their counts.
class SidebarView : public Retranslated<QWidget> {
    Q_OBJECT

public:
    /// Both must outlive the view.
    SidebarView(ScanCoordinator& coordinator, const Theme& theme, QWidget* parent = nullptr);
    ~SidebarView() override;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHeaderCard();
    [[nodiscard]] QWidget* makeSystemLines();
    [[nodiscard]] Label* addSectionTitle(QVBoxLayout& column, int room);
    void addStatusRows(QVBoxLayout& column);
    [[nodiscard]] SidebarRow* addRow(QVBoxLayout& column, ChoiceGroup& group,
                                     std::string_view symbol, bool isVerbatim = false);
    void addKindRows(QVBoxLayout& column);
    void addVendorGroup(QVBoxLayout& column);
    void addVendorRow();
    /// Choosing what is chosen already, or nothing, clears the filter.
    void chooseKind(std::optional<ItemKind> kind);
    void chooseVendor(std::optional<std::string> vendor);
    void retranslate() final;
    void refresh();
    void refreshKinds();
    void refreshVendors();

    ScanCoordinator& m_coordinator;
    const Theme& m_theme;
    Refresh m_refresh;

    Label* m_maker = nullptr;
    Label* m_systemTitle = nullptr;
    Label* m_processor = nullptr;
    Label* m_rosetta = nullptr;
    Label* m_statusTitle = nullptr;
    ChoiceGroup* m_statusRows; // by the number of the filter
    ChoiceGroup* m_kindRows;
    ChoiceGroup* m_vendorRows;
    Label* m_kindTitle = nullptr;
    SidebarRow* m_allKinds = nullptr;
    std::array<SidebarRow*, itemKindCount> m_kinds{};
    DisclosureButton* m_vendorsExpanded = nullptr;
    QWidget* m_vendorGroup = nullptr;
    QVBoxLayout* m_vendorColumn = nullptr;
    SidebarRow* m_allVendors = nullptr;
    struct VendorRow {
        SidebarRow* row;
        std::string vendor; // a title does not give every text back
    };
    std::vector<VendorRow> m_vendors; // those behind the available vendors are hidden
};

} // namespace veridane::ui
