#include "scan/BundleWalk.h"

#include "platform/Text.h"
#include "platform/WalkVisitor.h"
#include "scan/MachOInspector.h"

#include <array>
#include <climits>
#include <limits>

namespace veridane {
namespace {

// Beyond these a bundle is measured, no longer probed: it would be a whole tool chain.
constexpr std::size_t maxProbedFiles = 4000;

// Bytes of one bundle's list, of which real ones take some thousand. Thousands of folders one in
// the other would fill the memory with the ways to what is in them.
constexpr std::size_t maxListedBytes = std::size_t{1} << 20;

// What a file's content means for its bundle; travels as the tag of its entry.
enum Content : std::uint8_t { noCode = 0, runsNatively = 1, needsRosetta = 2, incompatible = 3 };
constexpr std::uint8_t contentMask = 0x03;
constexpr std::uint8_t isMainFile = 0x80; // the same file as the main executable, by any name

Content contentOf(CompatibilityStatus status) {
    switch (status) {
    case CompatibilityStatus::native:
    case CompatibilityStatus::unknown:
        return runsNatively;
    case CompatibilityStatus::needsRosetta:
        return needsRosetta;
    case CompatibilityStatus::incompatible:
        return incompatible;
    }
    return runsNatively;
}

class Probe : public WalkVisitor {
public:
    Probe(const FileSystem& files, const Path& bundle, const std::optional<Path>& mainExecutable)
        : m_bundle(bundle) {
        const auto file = mainExecutable ? files.open(*mainExecutable) : std::nullopt;
        if (!file)
            return;
        m_mainIdentity = file->identity();
        m_mainPlace = files.resolvingLinks(*mainExecutable);
    }

    [[nodiscard]] WalkDetail detail(std::size_t tagged) const override {
        // All files visited so far, and those tagged in this folder, come before the next one.
        return m_probed + tagged < maxProbedFiles ? WalkDetail::classifying : WalkDetail::sizes;
    }

    std::uint8_t classify(const FileHead& file) override {
        if (!MachOInspector::isMachOFile(file.first()))
            return noCode;
        std::array<std::uint8_t, MachOInspector::maxHeaderSize> header;
        const auto report = MachOInspector::inspect(file.read(header));
        const std::uint8_t tag = contentOf(report.compatibilityStatus());
        return m_mainIdentity == file.identity() ? tag | isMainFile : tag;
    }

    Next visit(const WalkEntry& entry) override {
        if (entry.type == EntryType::regularFile) {
            addSize(entry.size);
            if (entry.tag != noCode && m_probed < maxProbedFiles) {
                ++m_probed;
                addIfComponent(entry);
            }
        }
        return Next::descend;
    }

    [[nodiscard]] BundleWalk result() && { return std::move(m_result); }

private:
    void addSize(std::int64_t size) {
        // A damaged disk can state any sizes.
        constexpr auto most = std::numeric_limits<std::int64_t>::max();
        if (size > 0)
            m_result.sizeOnDisk =
                size > most - m_result.sizeOnDisk ? most : m_result.sizeOnDisk + size;
    }

    void addIfComponent(const WalkEntry& entry) {
        const auto content = static_cast<Content>(entry.tag & contentMask);
        if (content == runsNatively)
            return;
        // A second hard link to the main executable is a file of its own: it stays behind as well.
        if ((entry.tag & isMainFile) != 0 && m_bundle / entry.relativePath == m_mainPlace)
            return;
        m_result.intelComponents.push_back(listed(entry));
        if (content == incompatible)
            m_result.worstStatus = CompatibilityStatus::incompatible;
        else if (!m_result.worstStatus)
            m_result.worstStatus = CompatibilityStatus::needsRosetta;
    }

    /// The relative path; the name alone if no program could open that path anyway, or if the list
    /// has grown too long.
    std::string listed(const WalkEntry& entry) {
        const std::size_t size = entry.relativePath.size();
        if (size >= PATH_MAX || size > maxListedBytes - m_listedBytes)
            return text::validUtf8(entry.name);
        m_listedBytes += size;
        return relativeComponentPath(m_bundle / entry.relativePath, m_bundle);
    }

    const Path& m_bundle; // without links, as the walk follows none either
    std::optional<FileIdentity> m_mainIdentity;
    Path m_mainPlace;
    std::size_t m_probed = 0;
    std::size_t m_listedBytes = 0;
    BundleWalk m_result;
};

std::string_view trimmedSlashes(std::string_view path) {
    const std::size_t first = path.find_first_not_of('/');
    if (first == std::string_view::npos)
        return {};
    return path.substr(first, path.find_last_not_of('/') - first + 1);
}

} // namespace

BundleWalk walkBundle(const FileSystem& files, const Path& bundle,
                      const std::optional<Path>& mainExecutable) {
    // Once for all of its files: the way to a bundle can be a long one.
    const Path place = files.resolvingLinks(bundle);
    Probe probe(files, place, mainExecutable);
    files.walk(place, probe);
    return std::move(probe).result();
}

std::string relativeComponentPath(const Path& file, const Path& bundle) {
    const std::string_view path = file.bytes();
    if (path.starts_with(bundle.bytes()))
        return text::validUtf8(trimmedSlashes(path.substr(bundle.bytes().size())));
    return text::validUtf8(file.name());
}

} // namespace veridane
