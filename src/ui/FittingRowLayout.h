#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace veridane::ui {

/// Puts its widgets side by side if all of them fit, else one above the other; over the full width
/// either way.
class FittingRowLayout : public QLayout {
    Q_OBJECT

public:
    /// The spacing parts the widgets in both directions.
    explicit FittingRowLayout(int spacing);
    ~FittingRowLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    [[nodiscard]] QLayoutItem* takeAt(int index) override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    void setGeometry(const QRect& rect) override;

private:
    /// Where each of the items that are shown goes.
    struct Place {
        QLayoutItem* item;
        QRect rect;
    };
    [[nodiscard]] std::vector<Place> places(const QRect& rect) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace veridane::ui
