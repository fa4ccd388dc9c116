#pragma once

#include "support/MachOBuilder.h"
#include "support/PlistBuilder.h"
#include "support/SignatureBuilder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veridane::test {

class VolumeBuilder;

/// An application, plug-in or extension in the making, from VolumeBuilder::bundle. Its Info.plist,
/// executable and signature are written when it goes out of scope, everything else at once.
class BundleBuilder {
public:
    BundleBuilder(VolumeBuilder& volume, std::string path);
    ~BundleBuilder();
    BundleBuilder(const BundleBuilder&) = delete;
    BundleBuilder& operator=(const BundleBuilder&) = delete;

    /// Without "Contents": Info.plist and the executable stand at the top level. To be said first.
    BundleBuilder& flat();

    /// An entry of Info.plist. A bundle without any entry has no Info.plist.
    BundleBuilder& info(std::string key, PlistValue value);
    BundleBuilder& infoForm(PlistForm form);
    BundleBuilder& identifier(std::string text);
    BundleBuilder& version(std::string marketing, std::string build);
    BundleBuilder& category(std::string_view name); // without "public.app-category."
    BundleBuilder& sparkleFeed(std::string address);

    /// The main executable, named by CFBundleExecutable: thin for one slice, universal for several
    /// and signed in each, or any bytes. `size` as in VolumeBuilder::file.
    BundleBuilder& executable(std::string name, std::vector<Slice> slices, std::int64_t size = 0);
    BundleBuilder& executable(std::string name, Bytes content, std::int64_t size = 0);

    /// Signs the slices of the executable; without such, beside the sealed resources.
    BundleBuilder& signedBy(SignatureSpec signature);

    /// Anything else, by its path in the bundle.
    BundleBuilder& file(std::string_view path, const Bytes& content, std::int64_t size = 0);
    BundleBuilder& file(std::string_view path, std::string_view text);
    BundleBuilder& link(std::string_view path, const std::string& target);

    /// A framework with its Versions folder and the links into it.
    BundleBuilder& framework(const std::string& name, const Bytes& binary, std::int64_t size = 0);

    /// The Mac App Store's receipt.
    BundleBuilder& receipt();

    /// The modification date of the bundle's folder, in seconds since 1970.
    BundleBuilder& modified(std::int64_t seconds);

private:
    [[nodiscard]] std::string inside(std::string_view path) const;
    [[nodiscard]] std::string contents(std::string_view path) const;
    void writeExecutable();
    void writeSeal();

    VolumeBuilder& m_volume;
    std::string m_path;
    bool m_isFlat = false;
    PlistDictionary m_info;
    PlistForm m_infoForm = PlistForm::xml;
    std::string m_executableName;
    std::vector<Slice> m_slices; // empty: the content as it stands
    Bytes m_executable;
    std::int64_t m_executableSize = 0;
    std::optional<SignatureSpec> m_signature;
    std::optional<std::int64_t> m_modified;
};

} // namespace veridane::test
