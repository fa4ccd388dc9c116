#pragma once

#include "platform/Descriptor.h"
#include "platform/FileSystem.h"
#include "support/BundleBuilder.h"
#include "support/MachOBuilder.h"
#include "support/PlistBuilder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// A Mac's volume made on the spot. All paths are the Mac's, absolute on the volume; folders on the
/// way to them are made where missing.
namespace veridane::test {

class VolumeBuilder {
public:
    /// A volume in a temporary folder that is removed with this object, whatever it then holds.
    /// Aborts where it cannot be built: a test without its world proves nothing.
    VolumeBuilder();

    /// A volume in `directory` of this machine, made where missing, that stays. `failure` tells of
    /// what could not be written.
    explicit VolumeBuilder(const std::string& directory);

    ~VolumeBuilder();
    VolumeBuilder(const VolumeBuilder&) = delete;
    VolumeBuilder& operator=(const VolumeBuilder&) = delete;

    VolumeBuilder& folder(std::string_view path);

    /// A file of at least `size` bytes; what the content does not fill is a hole that takes no room
    /// on the disk. A file that exists is replaced.
    VolumeBuilder& file(std::string_view path, const Bytes& content, std::int64_t size = 0);
    VolumeBuilder& file(std::string_view path, std::string_view text);
    VolumeBuilder& plist(std::string_view path, const PlistValue& root,
                         PlistForm form = PlistForm::xml);

    /// A symbolic link with `target` as its text.
    VolumeBuilder& link(std::string_view path, const std::string& target);
    VolumeBuilder& fifo(std::string_view path);
    VolumeBuilder& socket(std::string_view path);

    /// Sets the modification date of what stands at the path itself, in seconds since 1970.
    /// Whatever is added to a folder afterwards dates it anew.
    VolumeBuilder& modified(std::string_view path, std::int64_t seconds);

    /// A bundle, written when the value given goes out of scope.
    [[nodiscard]] BundleBuilder bundle(std::string path);

    /// The volume as the engine sees it.
    [[nodiscard]] FileSystem files() const { return FileSystem(m_root); }

    /// Where the volume, or something on it, stands on this machine.
    [[nodiscard]] const std::string& root() const { return m_root; }
    [[nodiscard]] std::string hostPath(std::string_view path) const;

    /// The first failure, with its path and the system's description.
    [[nodiscard]] const std::optional<std::string>& failure() const { return m_failure; }

private:
    struct Place {
        int folder = -1;
        std::string name;
    };

    int enter(std::string_view path);
    Place place(std::string_view path);
    void check(bool succeeded, std::string_view path);
    void openRoot();

    std::string m_root;
    bool m_isTemporary;
    Descriptor m_rootFolder;
    Descriptor m_lastFolder; // most files stand beside the one written before
    std::string m_lastFolderPath;
    std::optional<std::string> m_failure;
};

} // namespace veridane::test
