#include "ui/Preferences.h"

#include "platform/UserDirectories.h"
#include "ui/Text.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>

namespace veridane::ui {
namespace {

constexpr QLatin1String appearanceKey("appearanceMode");
constexpr QLatin1String languageKey("appLanguage");
constexpr QLatin1String systemLanguagesKey("AppleLanguages");
constexpr QLatin1String layoutGroup("layout/");

// The file is read as a whole at every start; ours never come near this size.
constexpr qint64 largestFile = qint64{1} << 20;

std::unique_ptr<QSettings> settingsIn(const QString& file) {
    const QFileInfo info(file);
    // Reading from a pipe in the file's place would wait for ever.
    if (info.exists() && (!info.isFile() || info.size() > largestFile))
        return nullptr;
    return std::make_unique<QSettings>(file, QSettings::IniFormat);
}

std::unique_ptr<QSettings> userSettings() {
#ifdef __APPLE__
    return std::make_unique<QSettings>(QStringLiteral("Mirefold"), QStringLiteral("Veridane"));
#else
    // Not where the toolkit would look: it takes a relative path in the environment as it is.
    const auto directory = userConfigDirectory();
    return directory ? settingsIn(QFile::decodeName(directory->c_str()) +
                                  QLatin1String("/Mirefold/Veridane.conf"))
                     : nullptr;
#endif
}

std::string textIn(const QSettings* settings, const QString& key) {
    const QString fallback = QStringLiteral("system");
    return (settings ? settings->value(key, fallback).toString() : fallback).toStdString();
}

} // namespace

Preferences::Preferences() : m_settings(userSettings()) {
    read();
}

Preferences::Preferences(const QString& file) : m_settings(settingsIn(file)) {
    read();
}

Preferences::~Preferences() = default;

void Preferences::read() {
    // Another program's values of the same name are none of ours.
    if (m_settings)
        m_settings->setFallbacksEnabled(false);
    m_appearanceRaw.set(textIn(m_settings.get(), appearanceKey));
    m_languageRaw.set(textIn(m_settings.get(), languageKey));
}

void Preferences::setAppearanceMode(AppearanceMode mode) {
    const std::string text(rawString(mode));
    if (m_settings)
        m_settings->setValue(appearanceKey, toQString(text));
    m_appearanceRaw.set(text);
}

void Preferences::setAppLanguage(AppLanguage language) {
    const std::string text(rawString(language));
    if (m_settings)
        m_settings->setValue(languageKey, toQString(text));
    m_languageRaw.set(text);
}

void Preferences::applyLanguage(AppLanguage language) {
    // What is there already stays untouched, so that a start by itself never writes the file.
    if (!m_settings)
        return;
    if (language == AppLanguage::system) {
        if (m_settings->contains(systemLanguagesKey))
            m_settings->remove(systemLanguagesKey);
        return;
    }
    const QStringList languages{toQString(localeIdentifier(language))};
    if (m_settings->value(systemLanguagesKey).toStringList() != languages)
        m_settings->setValue(systemLanguagesKey, languages);
}

QByteArray Preferences::layout(const QString& name) const {
    return m_settings ? m_settings->value(layoutGroup + name).toByteArray() : QByteArray();
}

void Preferences::setLayout(const QString& name, const QByteArray& state) {
    if (!m_settings || layout(name) == state)
        return;
    m_settings->setValue(layoutGroup + name, state);
    m_settings->sync(); // at a restart the next instance reads it before this one has ended
}

} // namespace veridane::ui
