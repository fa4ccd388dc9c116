#pragma once

#include <QIcon>
#include <QWidget>

namespace veridane::ui {

class Theme;

/// A picture of the program's or the maker's own. Assistive technology passes over the program's
/// icon, which stands beside its name, and reads the maker's name from its word mark.
class BrandPicture : public QWidget {
    Q_OBJECT

public:
    /// The program's icon, in a square of `size` logical pixels.
    [[nodiscard]] static BrandPicture* applicationIcon(const Theme& theme, int size);
    /// The maker's word mark, as high as that.
    [[nodiscard]] static BrandPicture* makerLogo(const Theme& theme, int height);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    BrandPicture(const Theme& theme, const QString& light, const QString& dark, int height);

    const Theme& m_theme;
    QIcon m_light;
    QIcon m_dark;
};

} // namespace veridane::ui
