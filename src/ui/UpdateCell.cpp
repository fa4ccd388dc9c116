#include "ui/UpdateCell.h"

#include "model/ScanItem.h"
#include "platform/Language.h"
#include "ui/Text.h"
#include "updates/UpdateChecker.h"

#include <QPainter>

#include <string>

namespace veridane::ui {

UpdateCell::UpdateCell(const ScanItem& item) {
    using Case = UpdateCheckResult::Case;
    const std::string& payload = item.updateResult.payload;
    switch (item.updateResult.kind) {
    case Case::upToDate:
        m_text = toQString(localized("Aktuell (%@)", payload));
        m_symbol = "checkmark.circle";
        m_tone = Tone::green;
        return;
    case Case::updateAvailable:
        m_text = toQString(localized("→ %@", payload));
        m_symbol = "arrow.up.circle.fill";
        m_tone = Tone::blue;
        m_style = TextStyle::captionMedium;
        return;
    case Case::failed:
        m_text = toQString(localized("Fehler"));
        m_reason = toQString(payload);
        m_symbol = "exclamationmark.triangle";
        m_tone = Tone::red;
        return;
    case Case::checking:
        m_text = toQString(localized("Prüfe …"));
        m_isChecking = true;
        return;
    case Case::noFeed:
        m_text = toQString(localized("Keine Quelle"));
        return;
    case Case::notChecked:
        break;
    }
    if (!UpdateChecker::hasSource(item)) {
        m_text = toQString(displayName(item.updateSource));
        return;
    }
    m_text = toQString(localized("Prüfen"));
    m_tone = Tone::accent;
    m_style = TextStyle::callout;
    m_isLink = true;
}

void paintWheel(QPainter& painter, const QRect& rect, const QColor& colour, int step) {
    constexpr int spokes = 8;
    constexpr double grid = 16;
    constexpr QRectF spoke(-0.9, -6.5, 1.8, 4); // the upper one, on the grid, from the middle
    constexpr double faintest = 0.2;
    constexpr double perSpoke = 0.1;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.translate(QRectF(rect).center());
    painter.scale(rect.width() / grid, rect.height() / grid);
    for (int i = 0; i < spokes; ++i) {
        const int strength = (i + spokes - step % spokes) % spokes;
        painter.setBrush(faded(colour, faintest + perSpoke * strength));
        painter.drawRoundedRect(spoke, spoke.width() / 2, spoke.width() / 2);
        painter.rotate(360.0 / spokes);
    }
    painter.restore();
}

} // namespace veridane::ui
