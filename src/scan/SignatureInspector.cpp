#include "scan/SignatureInspector.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace veridane::SignatureInspector {
namespace {

using namespace std::string_view_literals;

// The kinds of certificates that name their holder, as the common name begins.
constexpr std::array certificatePrefixes = {
    "Developer ID Application: "sv,
    "Apple Development: "sv,
    "Apple Distribution: "sv,
    "3rd Party Mac Developer Application: "sv,
    "Mac Developer: "sv,
};

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool namesApplesOwnIdentity(std::string_view summary) {
    return contains(summary, "Apple") && (contains(summary, "Software Signing") ||
                                          contains(summary, "Mac OS Application Signing") ||
                                          contains(summary, "Apple Worldwide"));
}

} // namespace

SignatureIdentity inspectFile(const FileSystem& files, const Path& file) {
    return identityOf(readFileSignature(files, file));
}

SignatureIdentity inspectBundle(const FileSystem& files, const Path& bundle,
                                const std::optional<Path>& executable) {
    return identityOf(readBundleSignature(files, bundle, executable));
}

SignatureIdentity identityOf(const std::optional<CodeSignature>& signature) {
    if (!signature)
        return {};
    SignatureIdentity identity;
    identity.vendor = vendorFromSummary(signature->leafSubjectSummary);
    identity.teamIdentifier = signature->teamIdentifier;
    identity.isSigned = signature->hasIdentifier || identity.vendor || identity.teamIdentifier;
    identity.isAppleSigned = namesApplesOwnIdentity(signature->leafSubjectSummary.value_or(""));
    return identity;
}

std::optional<std::string> vendorFromSummary(const std::optional<std::string>& summary) {
    if (!summary || summary->empty())
        return std::nullopt;
    const auto prefix = std::ranges::find_if(
        certificatePrefixes, [&](std::string_view known) { return summary->starts_with(known); });
    if (prefix == certificatePrefixes.end())
        return contains(*summary, "Apple") ? "Apple" : *summary;
    std::string_view holder = *summary;
    holder.remove_prefix(prefix->size());
    // The team stands in the last pair of brackets; a name may have brackets of its own.
    return text::trimmed(holder.substr(0, holder.rfind(" (")));
}

} // namespace veridane::SignatureInspector
