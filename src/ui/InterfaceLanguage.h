#pragma once

#include "platform/Language.h"
#include "ui/AppLanguage.h"

#include <memory>
#include <optional>
#include <string>

class QTranslator;

namespace veridane::ui {

/// Puts the whole process into a language: our texts, those of the toolkit, and the form of dates
/// and numbers. For the main thread, at most one at a time.
class InterfaceLanguage {
public:
    InterfaceLanguage();
    ~InterfaceLanguage();
    InterfaceLanguage(const InterfaceLanguage&) = delete;
    InterfaceLanguage& operator=(const InterfaceLanguage&) = delete;

    /// If that changes anything, every widget gets one `QEvent::LanguageChange` in the next turn of
    /// the event loop.
    void apply(AppLanguage language);

private:
    struct Choice {
        Language texts;
        std::string locale;

        bool operator==(const Choice&) const = default;
    };

    std::optional<Choice> m_choice;
    std::unique_ptr<QTranslator> m_toolkitTexts;
};

} // namespace veridane::ui
