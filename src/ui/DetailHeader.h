#pragma once

#include <QWidget>

namespace veridane {
struct ScanItem;
}

namespace veridane::ui {

class Label;
class SymbolLabel;
class Theme;
class WrapLabel;

/// What the selected object is: the symbol of its kind, its name and its kind.
class DetailHeader : public QWidget {
    Q_OBJECT

public:
    explicit DetailHeader(const Theme& theme, QWidget* parent = nullptr);

    void showItem(const ScanItem& item);

private:
    SymbolLabel* m_symbol;
    WrapLabel* m_name;
    Label* m_kind;
};

} // namespace veridane::ui
