#include "ui/WrappedText.h"

#include "ui/LineBreaks.h"

#include <QPainter>
#include <QPalette>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace veridane::ui {
namespace {

/// Lines may end behind a slash, but not behind the first of two, and not before a line is begun.
std::vector<int> breaksBehindSlashes(const QString& text) {
    const QChar slash = QLatin1Char('/');
    std::vector<int> breaks;
    for (int at = 1; at < text.size(); ++at)
        if (text[at - 1] == slash && text[at] != slash)
            breaks.push_back(at);
    return breaks;
}

/// By themselves lines end behind a slash as well, but not where a digit or a dot follows.
QString withBreaks(const QString& text, const std::vector<int>& breaks) {
    const QChar zeroWidthSpace(0x200B);
    QString result;
    result.reserve(text.size() + static_cast<qsizetype>(breaks.size()));
    int from = 0;
    for (const int at : breaks) {
        result.append(QStringView(text).mid(from, at - from)).append(zeroWidthSpace);
        from = at;
    }
    return result.append(QStringView(text).mid(from));
}

} // namespace

WrappedText::WrappedText(const QString& text, const WrappedTextForm& form, int width)
    : m_breaks(form.breaksBehindSlashes ? breaksBehindSlashes(text) : std::vector<int>()),
      m_layout(withBreaks(boundForLayout(text), m_breaks), form.font),
      m_lineHeight(form.lineHeight) {
    layOut(form, width);
}

void WrappedText::layOut(const WrappedTextForm& form, int width) {
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    double widest = 0;
    int top = 0;
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        const double room = width - line.naturalTextWidth();
        line.setPosition({form.isCentred ? room / 2 : 0, top + (m_lineHeight - line.height()) / 2});
        widest = std::max(widest, line.naturalTextWidth());
        top += m_lineHeight;
    }
    m_layout.endLayout();
    m_size = {static_cast<int>(std::ceil(widest)), top};
}

void WrappedText::draw(QPainter& painter, QPoint origin, const TextSpan& selected,
                       const QPalette& palette) const {
    QList<QTextLayout::FormatRange> selections;
    if (selected.length > 0) {
        const int start = inLayout(selected.start);
        QTextCharFormat format;
        format.setBackground(palette.highlight());
        format.setForeground(palette.highlightedText());
        selections.push_back({start, inLayout(selected.start + selected.length) - start, format});
    }
    m_layout.draw(&painter, origin, selections);
}

int WrappedText::gapAt(QPoint point) const {
    return inText(cursorAt(point, QTextLine::CursorBetweenCharacters));
}

int WrappedText::characterAt(QPoint point) const {
    return inText(cursorAt(point, QTextLine::CursorOnCharacter));
}

int WrappedText::cursorAt(QPoint point, QTextLine::CursorPosition kind) const {
    const int lines = m_layout.lineCount();
    if (lines == 0 || point.y() < 0)
        return 0;
    if (point.y() >= lines * m_lineHeight)
        return static_cast<int>(m_layout.text().size());
    return m_layout.lineAt(point.y() / m_lineHeight).xToCursor(point.x(), kind);
}

int WrappedText::inLayout(int position) const {
    return position +
           static_cast<int>(std::ranges::upper_bound(m_breaks, position) - m_breaks.begin());
}

int WrappedText::inText(int position) const {
    int breaks = 0; // in front of the position
    while (breaks < std::ssize(m_breaks) &&
           m_breaks[static_cast<std::size_t>(breaks)] + breaks < position)
        ++breaks;
    return position - breaks;
}

} // namespace veridane::ui
