#include "ui/SearchField.h"

#include "platform/Language.h"
#include "ui/FocusRing.h"
#include "ui/Metrics.h"
#include "ui/PaintedButton.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace veridane::ui {
namespace {

constexpr int toolkitMargin = 2; // that a field keeps around its text by itself

} // namespace

class SearchField::ClearButton : public PaintedButton {
public:
    ClearButton(const Theme& theme, QWidget* parent) : PaintedButton(theme, parent) {
        setFocusPolicy(Qt::NoFocus); // Escape does the same
        setCursor(Qt::ArrowCursor);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        Q_UNUSED(event);
        QPainter painter(this);
        theme().drawSymbol(painter, rect(), "xmark.circle.fill", metrics::searchSymbol,
                           isDown() ? Tone::primary : Tone::secondary);
    }
};

SearchField::SearchField(const Theme& theme, QWidget* parent)
    : Retranslated(parent), m_theme(theme), m_clear(new ClearButton(theme, this)) {
    setFont(theme.font(TextStyle::body));
    const int room =
        metrics::searchPadding + metrics::searchSymbol + metrics::searchGap - toolkitMargin;
    setTextMargins(room, 0, room, 0);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setMaximumWidth(metrics::searchWidth);
    setRing(*this, {.gap = 0, .radius = metrics::fieldRadius, .isAlwaysShown = true});
    m_clear->setObjectName(QStringLiteral("clearSearchButton"));
    m_clear->hide();
    connect(m_clear, &QAbstractButton::clicked, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_clear->setVisible(!text.isEmpty()); });
    retranslate();
}

QSize SearchField::sizeHint() const {
    return {metrics::searchWidth, m_theme.scaled(metrics::searchHeight)};
}

QSize SearchField::minimumSizeHint() const {
    return {metrics::searchMinimum, m_theme.scaled(metrics::searchHeight)};
}

void SearchField::retranslate() {
    setPlaceholderText(toQString(localized("Name, Hersteller, Pfad …")));
    setAccessibleName(placeholderText());
    m_clear->setAccessibleName(toQString(localized("Suche löschen")));
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}

void SearchField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    m_theme.drawSymbol(painter, {metrics::searchPadding, 0, metrics::searchSymbol, height()},
                       "magnifyingglass", metrics::searchSymbol, Tone::secondary);
}

void SearchField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    const int width = metrics::searchSymbol + 2 * metrics::searchGap;
    m_clear->setGeometry(this->width() - metrics::searchPadding + metrics::searchGap - width, 0,
                         width, height());
}

} // namespace veridane::ui
