#include "ui/SheetShadow.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace veridane::ui {
namespace {

struct Layer {
    int drop;     // downwards, in pixels
    double sigma; // of the blur
    double opacity;
};

constexpr double nearOpacity = 0.12;
constexpr double farOpacity = 0.26;
constexpr double darkFarOpacity = 0.60;
constexpr int shadowMargin = 90; // beyond it nothing of the shadow can be seen

/// How much of a blurred bar from `begin` to `end` is left at each of the places from 0 on. The
/// blur is so wide that the round corners of the sheet do not show in it.
std::vector<double> blurredBar(int places, int begin, int end, double sigma) {
    const double scale = 1 / (sigma * std::numbers::sqrt2);
    std::vector<double> bar(static_cast<std::size_t>(places));
    for (int place = 0; place < places; ++place) {
        const double middle = place + 0.5;
        bar[static_cast<std::size_t>(place)] =
            (std::erf((middle - begin) * scale) - std::erf((middle - end) * scale)) / 2;
    }
    return bar;
}

} // namespace

SheetShadow SheetShadow::of(const QSize& sheet, bool isDark) {
    const Layer layers[] = {{18, 25, isDark ? darkFarOpacity : farOpacity}, {2, 4, nearOpacity}};
    const QSize size = sheet.grownBy({shadowMargin, shadowMargin, shadowMargin, shadowMargin});
    std::vector<double> columns[2];
    std::vector<double> rows[2];
    for (std::size_t i = 0; i < 2; ++i) {
        const Layer& layer = layers[i];
        const int top = shadowMargin + layer.drop;
        columns[i] =
            blurredBar(size.width(), shadowMargin, shadowMargin + sheet.width(), layer.sigma);
        rows[i] = blurredBar(size.height(), top, top + sheet.height(), layer.sigma);
    }
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const auto row = static_cast<std::size_t>(y);
        for (std::size_t x = 0; x < columns[0].size(); ++x) {
            double light = 1; // that comes through both layers
            for (std::size_t i = 0; i < 2; ++i)
                light *= 1 - layers[i].opacity * rows[i][row] * columns[i][x];
            line[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(255 * (1 - light))));
        }
    }
    return {sheet, isDark, picture, shadowMargin};
}

} // namespace veridane::ui
