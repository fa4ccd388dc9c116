#pragma once

#include "coordination/AppCatalogue.h"
#include "ui/PaintedButton.h"

#include <QImage>

#include <memory>
#include <string>

namespace veridane::ui {

class PictureLoader;

/// Leads to the page of another application: its icon, its name and one line about it.
class CatalogueRow : public PaintedButton {
    Q_OBJECT

public:
    /// Both must outlive the row. The icon is fetched when the row appears; a placeholder stands
    /// there until it has come, and for good if it does not.
    CatalogueRow(PictureLoader& pictures, const Theme& theme, QWidget* parent = nullptr);

    void setApp(const MirefoldApp& app);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] int textHeight() const;
    void paintIcon(QPainter& painter, const QRect& rect) const;
    [[nodiscard]] QRect textRect() const;

    PictureLoader& m_pictures;
    MirefoldApp m_app;
    QString m_tagline;
    QImage m_icon;
    std::weak_ptr<const std::string> m_wish; // the address of an icon that is on its way
};

} // namespace veridane::ui
