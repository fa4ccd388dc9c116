#pragma once

#include <QWidget>

namespace veridane {
struct ScanItem;
}

namespace veridane::ui {

class FactRow;
class Theme;

/// What is known of the selected object. Facts that it lacks have no row, save those that a reader
/// would miss.
class FactRows : public QWidget {
    Q_OBJECT

public:
    explicit FactRows(const Theme& theme, QWidget* parent = nullptr);

    void showItem(const ScanItem& item);

private:
    FactRow* m_architecture;
    FactRow* m_vendor;
    FactRow* m_teamIdentifier;
    FactRow* m_bundleIdentifier;
    FactRow* m_version;
    FactRow* m_category;
    FactRow* m_size;
    FactRow* m_modified;
    FactRow* m_path;
};

} // namespace veridane::ui
