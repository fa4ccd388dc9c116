#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace veridane {

/// The outcome of the last update check of an object.
struct UpdateCheckResult {
    enum class Case : std::uint8_t {
        notChecked,
        checking,
        upToDate,
        updateAvailable,
        noFeed,
        failed
    };

    Case kind = Case::notChecked;
    std::string payload; // the latest version of upToDate and updateAvailable, the reason of failed

    [[nodiscard]] static UpdateCheckResult notChecked() { return {}; }
    [[nodiscard]] static UpdateCheckResult checking() { return {Case::checking, {}}; }
    [[nodiscard]] static UpdateCheckResult upToDate(std::string latest) {
        return {Case::upToDate, std::move(latest)};
    }
    [[nodiscard]] static UpdateCheckResult updateAvailable(std::string latest) {
        return {Case::updateAvailable, std::move(latest)};
    }
    [[nodiscard]] static UpdateCheckResult noFeed() { return {Case::noFeed, {}}; }
    [[nodiscard]] static UpdateCheckResult failed(std::string reason) {
        return {Case::failed, std::move(reason)};
    }

    bool operator==(const UpdateCheckResult&) const = default;
};

/// The label in the language in force, with the payload in it.
[[nodiscard]] std::string displayName(const UpdateCheckResult& result);

} // namespace veridane
