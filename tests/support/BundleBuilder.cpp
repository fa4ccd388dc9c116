#include "support/BundleBuilder.h"

#include "support/VolumeBuilder.h"

#include <algorithm>
#include <utility>

namespace veridane::test {

BundleBuilder::BundleBuilder(VolumeBuilder& volume, std::string path)
    : m_volume(volume), m_path(std::move(path)) {
    m_volume.folder(m_path);
}

BundleBuilder::~BundleBuilder() {
    if (!m_info.empty())
        m_volume.plist(contents("Info.plist"), m_info, m_infoForm);
    if (!m_executableName.empty())
        writeExecutable();
    if (m_signature)
        writeSeal();
    if (m_modified)
        m_volume.modified(m_path, *m_modified);
}

std::string BundleBuilder::inside(std::string_view path) const {
    return m_path + '/' + std::string(path);
}

std::string BundleBuilder::contents(std::string_view path) const {
    return inside((m_isFlat ? "" : "Contents/") + std::string(path));
}

BundleBuilder& BundleBuilder::flat() {
    m_isFlat = true;
    return *this;
}

BundleBuilder& BundleBuilder::info(std::string key, PlistValue value) {
    const auto old = std::ranges::find(m_info, key, &PlistEntry::key);
    if (old != m_info.end())
        old->value = std::move(value);
    else
        m_info.push_back({std::move(key), std::move(value)});
    return *this;
}

BundleBuilder& BundleBuilder::infoForm(PlistForm form) {
    m_infoForm = form;
    return *this;
}

BundleBuilder& BundleBuilder::identifier(std::string text) {
    return info("CFBundleIdentifier", std::move(text));
}

BundleBuilder& BundleBuilder::version(std::string marketing, std::string build) {
    return info("CFBundleShortVersionString", std::move(marketing))
        .info("CFBundleVersion", std::move(build));
}

BundleBuilder& BundleBuilder::category(std::string_view name) {
    return info("LSApplicationCategoryType", "public.app-category." + std::string(name));
}

BundleBuilder& BundleBuilder::sparkleFeed(std::string address) {
    return info("SUFeedURL", std::move(address));
}

BundleBuilder& BundleBuilder::executable(std::string name, std::vector<Slice> slices,
                                         std::int64_t size) {
    m_slices = std::move(slices);
    return executable(std::move(name), Bytes(), size);
}

BundleBuilder& BundleBuilder::executable(std::string name, Bytes content, std::int64_t size) {
    m_executableName = name;
    m_executable = std::move(content);
    m_executableSize = size;
    return info("CFBundleExecutable", std::move(name));
}

BundleBuilder& BundleBuilder::signedBy(SignatureSpec signature) {
    m_signature = std::move(signature);
    return *this;
}

BundleBuilder& BundleBuilder::file(std::string_view path, const Bytes& content, std::int64_t size) {
    m_volume.file(inside(path), content, size);
    return *this;
}

BundleBuilder& BundleBuilder::file(std::string_view path, std::string_view text) {
    m_volume.file(inside(path), text);
    return *this;
}

BundleBuilder& BundleBuilder::link(std::string_view path, const std::string& target) {
    m_volume.link(inside(path), target);
    return *this;
}

BundleBuilder& BundleBuilder::framework(const std::string& name, const Bytes& binary,
                                        std::int64_t size) {
    const std::string folder = contents("Frameworks/" + name + ".framework/");
    m_volume.file(folder + "Versions/A/" + name, binary, size)
        .plist(folder + "Versions/A/Resources/Info.plist",
               PlistDictionary{{"CFBundleExecutable", name}, {"CFBundlePackageType", "FMWK"}})
        .link(folder + "Versions/Current", "A")
        .link(folder + name, "Versions/Current/" + name)
        .link(folder + "Resources", "Versions/Current/Resources");
    return *this;
}

BundleBuilder& BundleBuilder::receipt() {
    m_volume.file(contents("_MASReceipt/receipt"), "receipt");
    return *this;
}

BundleBuilder& BundleBuilder::modified(std::int64_t seconds) {
    m_modified = seconds;
    return *this;
}

void BundleBuilder::writeExecutable() {
    const std::string path = contents((m_isFlat ? "" : "MacOS/") + m_executableName);
    if (m_slices.empty()) {
        m_volume.file(path, m_executable, m_executableSize);
        return;
    }
    const Bytes signature = m_signature ? embeddedSignature(*m_signature) : Bytes();
    std::vector<UniversalPart> parts;
    for (const Slice slice : m_slices)
        parts.push_back({slice, thinMachO(slice, signature)});
    const bool isThin = parts.size() == 1;
    m_volume.file(path, isThin ? parts.front().file : universalMachO(parts), m_executableSize);
}

void BundleBuilder::writeSeal() {
    const std::string folder = contents("_CodeSignature/");
    m_volume.plist(folder + "CodeResources", PlistDictionary{{"files2", PlistDictionary()}});
    // A Mach-O executable carries its signature itself; a script leaves it beside the seal.
    if (!m_slices.empty())
        return;
    m_volume.file(folder + "CodeDirectory", codeDirectoryFile(*m_signature))
        .file(folder + "CodeSignature", cmsFile(*m_signature));
}

} // namespace veridane::test
