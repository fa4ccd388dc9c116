#include "coordination/ScanCacheStore.h"

#include "model/JsonForms.h"
#include "model/SnapshotReader.h"
#include "platform/AtomicFile.h"
#include "platform/ByteView.h"
#include "platform/FileSystem.h"
#include "platform/TemporaryFile.h"
#include "platform/UserDirectories.h"

#include <cstdio>
#include <memory>
#include <utility>

namespace veridane {
namespace {

using Failure = std::optional<std::string>;

std::string fileIn(const std::string& directory) {
    return directory + "/scan-cache-v1.json";
}

void printLine(const std::string& line) {
    const std::string text = line + '\n';
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

Failure write(const std::string& directory, const CachedScanSnapshot& snapshot) {
    if (auto failure = makeDirectories(directory))
        return failure;
    // First, so that what a killed program has left does not take the room that this file needs.
    removeAbandonedFiles(directory);
    return replaceFileAtomically(fileIn(directory), json::snapshotText(snapshot));
}

} // namespace

ScanCacheStore::ScanCacheStore(std::optional<std::string> directory, std::int64_t schemaVersion,
                               LinePrinter print)
    : m_directory(std::move(directory)), m_schemaVersion(schemaVersion),
      m_print(print ? std::move(print) : printLine) {}

std::optional<std::string> ScanCacheStore::cacheURL() const {
    if (!m_directory)
        return std::nullopt;
    return fileIn(*m_directory);
}

std::optional<CachedScanSnapshot> ScanCacheStore::load() const {
    const auto path = cacheURL();
    if (!path)
        return std::nullopt;
    const auto content = FileSystem("/").readWhole(Path(*path), maxFileSize);
    if (!content)
        return std::nullopt;
    auto snapshot = json::readSnapshot(ByteView(*content).text());
    if (!snapshot || snapshot->schemaVersion != m_schemaVersion)
        return std::nullopt;
    return snapshot;
}

void ScanCacheStore::save(std::vector<ScanItem> items, const ScanOptions& options, Date scannedAt) {
    if (!m_directory)
        return;
    const auto snapshot = std::make_shared<CachedScanSnapshot>(
        CachedScanSnapshot{m_schemaVersion, scannedAt, options, std::move(items)});
    m_worker.post([this, snapshot] {
        // What was checked since the scan is out of date at the next start.
        for (ScanItem& item : snapshot->items)
            item.updateResult = UpdateCheckResult::notChecked();
        if (const auto failure = write(*m_directory, *snapshot))
            m_print("Scan-Cache konnte nicht gespeichert werden: " + *failure);
    });
}

} // namespace veridane
