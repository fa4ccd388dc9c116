#pragma once

#include "platform/FileSystem.h"
#include "support/MachOBuilder.h"
#include "support/PlistBuilder.h"
#include "support/SignatureBuilder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A Mac's volume made on the spot. All paths are the Mac's, absolute on the volume; folders on the
/// way to them are made where missing.
namespace veridane::test {

class BundleBuilder;

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
    VolumeBuilder& file(std::string_view path, std::string_view text) {
        return file(path, Bytes(text.begin(), text.end()));
    }
    VolumeBuilder& plist(std::string_view path, const PlistValue& root,
                         PlistForm form = PlistForm::xml) {
        return file(path, plistFile(root, form));
    }

    /// A symbolic link with `target` as its text.
    VolumeBuilder& link(std::string_view path, const std::string& target);
    VolumeBuilder& fifo(std::string_view path);
    VolumeBuilder& socket(std::string_view path);

    /// One of this machine's devices that a careless reader would wait at or never come back from.
    /// Only root may make it; nothing stands there where that is refused.
    VolumeBuilder& device(std::string_view path);

    /// A second name for a file of the volume.
    VolumeBuilder& hardLink(std::string_view path, std::string_view existing);

    /// Sets the permission bits. A closed folder takes nothing new.
    VolumeBuilder& mode(std::string_view path, unsigned bits);

    /// A file that begins with `content` and is as large as the disk lets one be.
    VolumeBuilder& largestFile(std::string_view path, const Bytes& content);

    /// `count` names of empty files in one folder, which are numbers.
    VolumeBuilder& crowd(std::string_view path, int count);

    /// Folders of one name, one in the other, deeper than a path can say. Each tenth holds a second
    /// name for `part`: "part-10", "part-20" and so on.
    VolumeBuilder& tower(std::string_view path, int levels, const std::string& name,
                         std::string_view part);

    /// Sets the modification date of what stands at the path itself, in seconds since 1970.
    /// Whatever is added to a folder afterwards dates it anew.
    VolumeBuilder& modified(std::string_view path, std::int64_t seconds);

    /// A bundle, written when the value given goes out of scope.
    [[nodiscard]] BundleBuilder bundle(std::string path);

    /// The volume as the engine sees it.
    [[nodiscard]] FileSystem files() const { return FileSystem(m_root); }

    /// Where the volume, or something on it, stands on this machine.
    [[nodiscard]] const std::string& root() const { return m_root; }
    [[nodiscard]] std::string hostPath(std::string_view path) const {
        return m_root + std::string(path);
    }

    /// The first failure, with its path and the system's description.
    [[nodiscard]] const std::optional<std::string>& failure() const { return m_failure; }

private:
    std::string prepared(std::string_view path);
    VolumeBuilder& check(bool succeeded, std::string_view path);

    std::string m_root;
    bool m_isTemporary;
    std::optional<std::string> m_failure;
};

/// An application, plug-in or extension in the making, from VolumeBuilder::bundle. Its Info.plist
/// and executable are written when it goes out of scope, everything else at once.
class BundleBuilder {
public:
    using Self = BundleBuilder&;

    BundleBuilder(VolumeBuilder& volume, std::string path)
        : m_volume(volume.folder(path)), m_path(std::move(path)) {}
    ~BundleBuilder();
    BundleBuilder(const BundleBuilder&) = delete;

    /// An entry of Info.plist. A bundle without any entry has no Info.plist.
    Self info(const std::string& key, const PlistValue& value) {
        m_info.push_back({key, value});
        return *this;
    }
    Self infoForm(PlistForm form) {
        m_infoForm = form;
        return *this;
    }
    Self identifier(const std::string& text) { return info("CFBundleIdentifier", text); }
    Self version(const std::string& marketing, const std::string& build) {
        return info("CFBundleShortVersionString", marketing).info("CFBundleVersion", build);
    }
    Self category(const std::string& name) { // without "public.app-category."
        return info("LSApplicationCategoryType", "public.app-category." + name);
    }
    Self sparkleFeed(const std::string& address) { return info("SUFeedURL", address); }

    /// The main executable, named by CFBundleExecutable. `size` as in VolumeBuilder::file.
    Self executable(const std::string& name, std::vector<Slice> slices, std::int64_t size = 0) {
        m_executable = name;
        m_slices = std::move(slices);
        m_executableSize = size;
        return info("CFBundleExecutable", name);
    }

    /// Signs each slice of the executable.
    Self signedBy(const SignatureSpec& signature) {
        m_signature = embeddedSignature(signature);
        return *this;
    }

    /// Anything else, by its path in the bundle.
    Self file(const std::string& path, const Bytes& content, std::int64_t size = 0) {
        m_volume.file(m_path + '/' + path, content, size);
        return *this;
    }
    Self file(const std::string& path, std::string_view text) {
        return file(path, Bytes(text.begin(), text.end()));
    }
    Self link(const std::string& path, const std::string& target) {
        m_volume.link(m_path + '/' + path, target);
        return *this;
    }

    /// A framework with its Versions folder and the links into it.
    Self framework(const std::string& name, const Bytes& binary, std::int64_t size = 0);

    /// The Mac App Store's receipt.
    Self receipt() { return file("Contents/_MASReceipt/receipt", "receipt"); }

    /// The modification date of the bundle's folder, in seconds since 1970.
    Self modified(std::int64_t seconds) {
        m_modified = seconds;
        return *this;
    }

private:
    VolumeBuilder& m_volume;
    std::string m_path, m_executable;
    PlistDictionary m_info;
    PlistForm m_infoForm = PlistForm::xml;
    std::vector<Slice> m_slices;
    std::int64_t m_executableSize = 0;
    Bytes m_signature;
    std::optional<std::int64_t> m_modified;
};

} // namespace veridane::test
