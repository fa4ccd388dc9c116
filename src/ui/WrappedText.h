#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

#include <vector>

class QPainter;
class QPalette;

namespace veridane::ui {

/// How a text of several lines is broken and set.
struct WrappedTextForm {
    QFont font;
    int lineHeight = 0;
    bool isCentred = false;
    bool breaksBehindSlashes = false; // for paths and addresses

    bool operator==(const WrappedTextForm&) const = default;
};

/// A part of a text; empty without a length.
struct TextSpan {
    int start = 0;
    int length = 0;
};

/// A text broken into lines of one height: between words where it can, anywhere where it must. All
/// positions are those of the given text, whatever is laid out in its place.
class WrappedText {
public:
    WrappedText(const QString& text, const WrappedTextForm& form, int width);

    /// As wide as the widest line.
    [[nodiscard]] QSize size() const { return m_size; }

    /// With the colour of the painter's pen, the selected part in those of the palette.
    void draw(QPainter& painter, QPoint origin, const TextSpan& selected,
              const QPalette& palette) const;

    /// The gap between two characters that is nearest to the point, or the character at it.
    [[nodiscard]] int gapAt(QPoint point) const;
    [[nodiscard]] int characterAt(QPoint point) const;

private:
    void layOut(const WrappedTextForm& form, int width);
    [[nodiscard]] int cursorAt(QPoint point, QTextLine::CursorPosition kind) const;
    [[nodiscard]] int inLayout(int position) const;
    [[nodiscard]] int inText(int position) const;

    std::vector<int> m_breaks; // the characters of the text that a break is put in front of
    QTextLayout m_layout;
    int m_lineHeight;
    QSize m_size;
};

} // namespace veridane::ui
