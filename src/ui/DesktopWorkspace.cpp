#include "ui/DesktopWorkspace.h"

#include "platform/Url.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <filesystem>
#include <string_view>
#include <system_error>

namespace veridane::ui {
namespace {

// Milliseconds. A file manager may have to be started first.
constexpr int longestWait = 10'000;

/// Without a slash at the end: what is put behind it begins with one.
std::string absoluteRoot(const std::string& volume) {
    std::error_code error;
    std::string root = std::filesystem::absolute(volume, error).string();
    if (error)
        root = volume;
    while (root.ends_with('/'))
        root.pop_back();
    return root;
}

Path folderOf(const Path& path) {
    return Path(std::string_view(path.bytes()).substr(0, path.bytes().rfind('/')));
}

/// Names are bytes: a text in between would lose those that are not UTF-8.
QByteArray fileUri(const std::string& place) {
    return "file://" + QByteArray::fromStdString(place).toPercentEncoding("/");
}

/// Whether somebody here might open it. The pages of a Mac's settings are nowhere else, and what
/// desktops do with a scheme that they do not know is a browser or an error that helps nobody.
bool isForThisDesktop(const QString& scheme) {
#ifdef __APPLE__
    return !scheme.isEmpty();
#else
    return !scheme.isEmpty() && scheme != QLatin1String("x-apple.systempreferences");
#endif
}

void openFolder(const std::string& place) {
    QDesktopServices::openUrl(QUrl::fromEncoded(fileUri(place), QUrl::StrictMode));
}

} // namespace

DesktopWorkspace::DesktopWorkspace(const std::string& volume, const QDBusConnection& bus)
    : m_root(absoluteRoot(volume)), m_files(volume), m_bus(bus) {}

void DesktopWorkspace::openAddress(const std::string& address) {
    const auto url = Url::parse(address);
    if (!url)
        return;
    const QUrl parsed = QUrl::fromEncoded(QByteArray::fromStdString(url->text()), QUrl::StrictMode);
    // Some addresses come from the network, and a file might be a program.
    if (!parsed.isValid() || !isForThisDesktop(parsed.scheme()) || parsed.isLocalFile())
        return;
    QDesktopServices::openUrl(parsed);
}

void DesktopWorkspace::revealFile(const Path& path) {
    if (path != Path() && m_files.resourceValues(path)) {
        select(placeOf(path));
        return;
    }
    const auto isFolder = [this](const Path& candidate) {
        const auto values = m_files.targetValues(candidate);
        return values && values->type == EntryType::directory;
    };
    Path folder = path;
    while (folder != Path() && !isFolder(folder))
        folder = folderOf(folder);
    openFolder(m_root + m_files.resolvingLinks(folder).bytes());
}

/// Links on the way are resolved as the Mac means them: an absolute one stays on its volume. The
/// last one is the entry that is meant.
std::string DesktopWorkspace::placeOf(const Path& path) const {
    return m_root + (m_files.resolvingLinks(folderOf(path)) / path.name()).bytes();
}

#ifdef __APPLE__

void DesktopWorkspace::select(const std::string& place) {
    QProcess::startDetached(QStringLiteral("/usr/bin/open"),
                            {QStringLiteral("-R"), QFile::decodeName(place.c_str())});
}

void DesktopWorkspace::openApplication(const std::string& name) {
    QProcess::startDetached(QStringLiteral("/usr/bin/open"),
                            {QStringLiteral("-a"), QString::fromStdString(name)});
}

#else

void DesktopWorkspace::select(const std::string& place) {
    const std::string folder = place.substr(0, place.rfind('/')) + '/';
    if (!m_bus.isConnected()) { // a call on it would never be answered
        openFolder(folder);
        return;
    }
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("/org/freedesktop/FileManager1"),
                                               QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("ShowItems"));
    call << QStringList{QString::fromLatin1(fileUri(place))} << QString();
    auto* const answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call, longestWait), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, folder] {
        answer->deleteLater();
        if (answer->isError())
            openFolder(folder);
    });
}

void DesktopWorkspace::openApplication(const std::string& name) {
    if (name != "Terminal")
        return;
    for (const char* terminal : {"x-terminal-emulator", "gnome-terminal", "konsole",
                                 "xfce4-terminal", "foot", "kitty", "xterm"}) {
        const QString program = QStandardPaths::findExecutable(QString::fromLatin1(terminal));
        if (!program.isEmpty() && QProcess::startDetached(program, {}, QDir::homePath()))
            return;
    }
}

#endif

} // namespace veridane::ui
