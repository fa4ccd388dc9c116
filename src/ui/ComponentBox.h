#pragma once

#include "ui/TintedBox.h"

#include <cstddef>
#include <string>
#include <vector>

class QVBoxLayout;

namespace veridane::ui {

class Label;
class SelectableLabel;
class WrapLabel;

/// The files in a native bundle that need Rosetta 2, and what that means. Only the first are named.
class ComponentBox : public TintedBox {
    Q_OBJECT

public:
    explicit ComponentBox(const Theme& theme, QWidget* parent = nullptr);

    /// Hidden without any. The texts may be anything.
    void showComponents(const std::vector<std::string>& components);

private:
    [[nodiscard]] SelectableLabel& row(std::size_t index);

    const Theme& m_theme;
    WrapLabel* m_title;
    WrapLabel* m_explanation;
    QVBoxLayout* m_paths;
    std::vector<SelectableLabel*> m_rows; // kept from one object to the next
    Label* m_further;
};

} // namespace veridane::ui
