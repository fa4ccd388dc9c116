#pragma once

namespace veridane {

/// The categories that a scan covers.
struct ScanOptions {
    bool includeApplications = true;
    bool includeSystemApps = false; // nothing that Apple ships with the system needs a decision
    bool includeCommandLineTools = true;
    bool includeLaunchServices = true;
    bool includeAudioPlugins = true;
    bool includeExtensions = true;

    bool operator==(const ScanOptions&) const = default;
};

} // namespace veridane
