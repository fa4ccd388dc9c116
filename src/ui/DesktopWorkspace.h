#pragma once

#include "coordination/Workspace.h"
#include "platform/FileSystem.h"

#include <QDBusConnection>
#include <QObject>

#include <string>

namespace veridane::ui {

/// Asks the desktop to open and show things. Never waits for another program.
class DesktopWorkspace : public QObject, public Workspace {
public:
    /// `volume` is the folder of this machine in which the examined Mac stands. The bus is the one
    /// of the user's session; it may be one that is not connected.
    explicit DesktopWorkspace(const std::string& volume = "/",
                              const QDBusConnection& bus = QDBusConnection::sessionBus());

    /// Only what is an address to the letter, with a scheme that this kind of desktop may know, and
    /// never that of files.
    void openAddress(const std::string& address) override;

    /// Selects the entry itself, also if it is a link, or opens its folder where no file manager
    /// can select. For an entry that has gone since, the nearest folder that is still there.
    void revealFile(const Path& path) override;

    /// Of a Mac's applications a desktop of another kind has a counterpart of "Terminal" alone.
    void openApplication(const std::string& name) override;

private:
    [[nodiscard]] std::string placeOf(const Path& path) const;
    void select(const std::string& place);

    std::string m_root;
    FileSystem m_files;
    QDBusConnection m_bus;
};

} // namespace veridane::ui
