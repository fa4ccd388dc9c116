#pragma once

#include "model/CachedScanSnapshot.h"
#include "platform/SerialWorker.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace veridane {

/// Keeps the last finished scan in one file, so that it survives a restart. The only code that
/// touches this file. Safe on any thread; several programs may share a directory.
class ScanCacheStore {
public:
    /// Takes a line of text without its end. Called on the store's own thread.
    using LinePrinter = std::function<void(const std::string& line)>;

    /// A larger file is refused: some two hundred thousand objects fit.
    static constexpr std::uint64_t maxFileSize = std::uint64_t{160} << 20;

    /// `directory` is absolute and need not exist; without one nothing is loaded and nothing saved.
    /// `print` gets the line about a failed save; without it the line goes to standard output at
    /// once.
    explicit ScanCacheStore(std::optional<std::string> directory,
                            std::int64_t schemaVersion = CachedScanSnapshot::currentSchemaVersion,
                            LinePrinter print = {});

    /// Waits for the saves under way.
    ~ScanCacheStore() = default;

    /// Where the file stands; nothing without a directory.
    [[nodiscard]] std::optional<std::string> cacheURL() const;

    /// The kept scan. A missing, unreadable or damaged file and one of another schema version give
    /// nothing, without any message, and stay as they are. Blocks for the time of reading the file,
    /// but never on a pipe or a device in its place.
    [[nodiscard]] std::optional<CachedScanSnapshot> load() const;

    /// Replaces the kept scan, with the update result of every item set to `notChecked`. Returns at
    /// once; the work follows on a thread of its own, one save after the other. A reader finds the
    /// old file or the new one. After a failure the old one is still there, and a line is printed.
    void save(std::vector<ScanItem> items, const ScanOptions& options, Date scannedAt);

private:
    std::optional<std::string> m_directory;
    std::int64_t m_schemaVersion;
    LinePrinter m_print;
    SerialWorker m_worker; // last: its tasks use everything above
};

} // namespace veridane
