#pragma once

#include "platform/Observed.h"
#include "ui/AppLanguage.h"
#include "ui/AppearanceMode.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <string>

class QSettings;

namespace veridane::ui {

/// What the program keeps for the user between two starts, in the file Mirefold/Veridane.conf of
/// the user's configuration directory (on a Mac, the native preferences). A file that is missing,
/// broken or of a later version gives the defaults; one that cannot be written keeps nothing.
class Preferences {
public:
    Preferences();
    /// For a file of the caller's choice.
    explicit Preferences(const QString& file);
    ~Preferences();
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;

    /// The stored texts, as they stand; "system" where there is none.
    [[nodiscard]] const Observed<std::string>& appearanceRaw() const { return m_appearanceRaw; }
    [[nodiscard]] const Observed<std::string>& languageRaw() const { return m_languageRaw; }
    [[nodiscard]] AppearanceMode appearanceMode() const {
        return appearanceModeFromRawString(m_appearanceRaw.get());
    }
    [[nodiscard]] AppLanguage appLanguage() const {
        return appLanguageFromRawString(m_languageRaw.get());
    }
    void setAppearanceMode(AppearanceMode mode);
    void setAppLanguage(AppLanguage language);

    /// Writes the language of the next start where the system looks for it: under `AppleLanguages`,
    /// which is gone where the system chooses.
    void applyLanguage(AppLanguage language);

    /// Sizes and places that the user has given to windows and columns, each under a name.
    [[nodiscard]] QByteArray layout(const QString& name) const;
    void setLayout(const QString& name, const QByteArray& state);

private:
    void read();

    std::unique_ptr<QSettings> m_settings;
    Observed<std::string> m_appearanceRaw;
    Observed<std::string> m_languageRaw;
};

} // namespace veridane::ui
