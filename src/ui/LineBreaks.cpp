#include "ui/LineBreaks.h"

namespace veridane::ui {

QString boundForLayout(QString text) {
    const QChar blank = QLatin1Char(' ');
    const QChar bound(QChar::Nbsp);
    const auto bind = [&](const QString& words) {
        text.replace(words, QString(words).replace(blank, bound));
    };
    for (const QString& name : {QStringLiteral("Rosetta 2"), QStringLiteral("macOS 27"),
                                QStringLiteral("macOS 28"), QStringLiteral("z. B. ")})
        bind(name);
    return text.replace(QStringLiteral(" – "), bound + QStringLiteral("– "));
}

} // namespace veridane::ui
