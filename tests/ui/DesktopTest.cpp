#include "support/VolumeTest.h"
#include "ui/DesktopWorkspace.h"
#include "ui/SystemAppearance.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QDesktopServices>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QUrl>

#include <array>

namespace veridane::ui {
namespace {

using test::Texts;

/// The desktop's programs.
class Opener : public QObject {
    Q_OBJECT

public:
    Opener() {
        for (const char* scheme : schemes)
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
    }
    ~Opener() override {
        for (const char* scheme : schemes)
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }

    Texts opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened.push_back(url.toEncoded().toStdString()); }

private:
    static constexpr std::array schemes = {"https", "file", "macappstore"};
};

class WorkspaceTest : public test::VolumeTest {
protected:
    Opener opener;
    DesktopWorkspace workspace{volume.root() + "//", QDBusConnection(QStringLiteral("none"))};
};

TEST_F(WorkspaceTest, OnlyAddressesAreOpened) {
    const Texts addresses = {"https://example.com/a?b=%26&c=d#e", "macappstore://search?term=x"};
    for (const std::string& address : addresses)
        workspace.openAddress(address);
    for (const char* other :
         {"", "example.com", "//example.com", "-x", "file:///bin/true", "FILE:/x",
          "https://example.com/a b", "https://exa\nmple.com", "https://[::1",
          "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"})
        workspace.openAddress(other);
    EXPECT_EQ(opener.opened, addresses);
}

TEST_F(WorkspaceTest, WithoutAFileManagerTheNearestFolderOnTheVolumeIsOpened) {
    volume.file("/Apps/#1 a%20?/\xFF/tool", "")
        .link("/Apps/gone", "/no/where")
        .link("/opt", "/Apps/#1 a%20?");
    const std::pair<const char*, const char*> cases[] = {
        {"/Apps/#1 a%20?/\xFF/tool", "/Apps/%231%20a%2520%3F/%FF/"},
        {"/Apps/gone", "/Apps/"}, // the link is what is shown
        {"/opt/\xFF", "/Apps/%231%20a%2520%3F/"},
        {"/opt/\xFF/gone/since", "/Apps/%231%20a%2520%3F/%FF"},
        {"/gone", "/"},
        {"/", "/"},
    };
    for (const auto& [path, folder] : cases) {
        opener.opened.clear();
        workspace.revealFile(Path(path));
        EXPECT_EQ(opener.opened, Texts{"file://" + volume.root() + folder}) << path;
    }
}

TEST(SystemAppearance, TheLookFollowsFromThePlatformsPaletteAndFont) {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("fusion")));
    const QPalette standard = fusion->standardPalette();
    const auto palette = [&](QColor text, QColor window) {
        QPalette changed = standard;
        changed.setColor(QPalette::WindowText, text);
        changed.setColor(QPalette::Window, window);
        return changed;
    };
    QPalette green = palette(QColor(40, 40, 40), QColor(240, 240, 240));
    green.setColor(QPalette::Highlight, Qt::green);
    const std::tuple<const char*, QPalette, int, SystemLook> cases[] = {
        {"no desktop", standard, 12, {}},
        {"light", palette(QColor(40, 40, 40), QColor(240, 240, 240)), 15, {}},
        {"dark", palette(QColor(230, 230, 230), QColor(30, 30, 30)), 9, {.isDark = true}},
        {"black on white", palette(Qt::black, Qt::white), 13, {.wantsHighContrast = true}},
        {"an accent, large text", green, 26, {.accent = QColor(Qt::green), .textScale = 2}},
    };
    for (const auto& [what, shown, fontSize, look] : cases)
        EXPECT_EQ(lookOf(shown, standard, fontSize), look) << what;
}

TEST(SystemAppearance, ThePortalSaysWhatTheDesktopsHaveAgreedOn) {
    const auto wrapped = QVariant::fromValue(QDBusVariant(QVariant(1U)));
    const std::tuple<const char*, QVariant, PortalSettings> cases[] = {
        {"color-scheme", 1U, {.isDark = true}},
        {"color-scheme", 2U, {.isDark = false}},
        {"color-scheme", 0U, {}},
        {"color-scheme", QStringLiteral("1"), {}},
        {"color-scheme", wrapped, {.isDark = true}},
        {"contrast", 1U, {.wantsHighContrast = true}},
        {"accent-color", 1U, {}},
    };
    for (const auto& [key, value, expected] : cases) {
        PortalSettings settings;
        settings.take(QLatin1String(key), value);
        EXPECT_EQ(settings, expected) << key << value.toString().toStdString();
    }
}

} // namespace
} // namespace veridane::ui

#include "DesktopTest.moc"
