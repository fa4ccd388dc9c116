#include "ui/SheetShadow.h"

#include "ui/Metrics.h"
#include "ui/ThemeColours.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace veridane::ui {
namespace {

struct Layer {
    int drop; // downwards
    int blur;
    double opacity;
};

/// How much of a blurred bar from `begin` to `end` is left at each of the places from 0 on. The
/// blur is so wide that the round corners of the sheet do not show in it.
std::vector<double> blurredBar(int places, int begin, int end, int blur) {
    const double sigma = blur / 2.0;
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
    using namespace metrics;
    const Layer layers[] = {
        {sheetShadowDrop, sheetShadowBlur,
         isDark ? opacity::sheetShadowInDark : opacity::sheetShadow},
        {sheetContactShadowDrop, sheetContactShadowBlur, opacity::sheetContactShadow}};
    constexpr int margin = sheetShadowMargin;
    const QSize size = sheet.grownBy({margin, margin, margin, margin});
    std::vector<double> columns[2];
    std::vector<double> rows[2];
    for (std::size_t i = 0; i < 2; ++i) {
        const Layer& layer = layers[i];
        const int top = margin + layer.drop;
        columns[i] = blurredBar(size.width(), margin, margin + sheet.width(), layer.blur);
        rows[i] = blurredBar(size.height(), top, top + sheet.height(), layer.blur);
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
    return {sheet, isDark, picture, margin};
}

} // namespace veridane::ui
