#include "ui/CommandBox.h"

#include "platform/Language.h"
#include "ui/ButtonRole.h"
#include "ui/Layouts.h"
#include "ui/Metrics.h"
#include "ui/Painting.h"
#include "ui/SelectableLabel.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QTimer>

#include <utility>

namespace veridane::ui {
namespace {

constexpr std::chrono::milliseconds copiedTime{1500};

/// One line, cut in its middle where it does not fit: a command is known by both its ends. It can
/// be selected whole also then.
class CommandLabel : public SelectableLabel {
public:
    CommandLabel(const QString& command, const Theme& theme)
        : SelectableLabel(theme, TextStyle::monospacedCallout) {
        setText(command);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        const bool fits = fontMetrics().horizontalAdvance(text()) <= width();
        if (fits || hasSelectedText())
            return SelectableLabel::paintEvent(event);
        QPainter painter(this);
        painter.setPen(colour());
        painter.drawText(rect(), Qt::AlignVCenter,
                         fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
    }
};

} // namespace

CommandBox::CommandBox(const QString& command, const Theme& theme, Delay delay, QWidget* parent)
    : Retranslated(parent), m_command(command), m_theme(theme), m_delay(std::move(delay)),
      m_copyButton(new QPushButton) {
    m_copyButton->setObjectName(QStringLiteral("copyCommandButton"));
    setButtonRole(*m_copyButton, ButtonRole::borderedSmall);
    connect(m_copyButton, &QPushButton::clicked, this, &CommandBox::copy);

    auto* label = new CommandLabel(command, theme);
    label->setObjectName(QStringLiteral("commandLabel"));
    auto* row = makeRow(this, metrics::space8);
    row->setContentsMargins(metrics::space10, metrics::space10, metrics::space10, metrics::space10);
    row->addWidget(label, 1);
    row->addWidget(m_copyButton);
    retranslate();
}

void CommandBox::after(std::chrono::milliseconds time, QObject* context,
                       std::function<void()> task) {
    QTimer::singleShot(time, context, std::move(task));
}

void CommandBox::copy() {
    QGuiApplication::clipboard()->setText(m_command);
    setCopied(true);
    m_delay(copiedTime, this, [this] { setCopied(false); });
}

void CommandBox::setCopied(bool copied) {
    m_copied = copied;
    retranslate();
}

void CommandBox::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), metrics::boxRadius,
                          faded(m_theme.colours().quaternary, opacity::quietFill));
}

void CommandBox::retranslate() {
    setButtonSymbol(*m_copyButton, m_copied ? "checkmark" : "doc.on.doc");
    m_copyButton->setText(
        withoutMnemonics(m_copied ? localized("Kopiert") : localized("Kopieren")));
}

} // namespace veridane::ui
