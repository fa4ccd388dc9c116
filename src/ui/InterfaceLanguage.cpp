#include "ui/InterfaceLanguage.h"

#include "ui/Text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <string>
#include <utility>

namespace veridane::ui {

InterfaceLanguage::InterfaceLanguage() = default;
InterfaceLanguage::~InterfaceLanguage() = default; // a translator takes itself out

void InterfaceLanguage::apply(AppLanguage language) {
    setLanguage(textLanguage(language)); // first: the locale may follow from it
    Choice choice{textLanguage(language), localeIdentifier(language)};
    if (m_choice == choice)
        return;
    QLocale::setDefault(QLocale(toQString(choice.locale)));

    // The texts of file dialogs and of menus in text fields.
    auto texts = std::make_unique<QTranslator>();
    static_cast<void>(texts->load(toQString("qtbase_" + std::string(languageCode(choice.texts))),
                                  QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QCoreApplication::installTranslator(texts.get());
    m_toolkitTexts = std::move(texts);
    m_choice = std::move(choice);

    // Taking translators in and out tells the widgets as well, but not where their files are
    // missing or empty. What they get is put together into one event.
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
}

} // namespace veridane::ui
