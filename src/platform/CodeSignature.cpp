#include "platform/CodeSignature.h"

#include "platform/ByteSource.h"
#include "platform/EmbeddedSignature.h"
#include "platform/SignatureBlobs.h"

namespace veridane {
namespace {

std::optional<CodeSignature> readEmbedded(const OpenFile& file) {
    const auto signature = embeddedSignature(ByteSource(file));
    return signature ? parseEmbeddedSignature(*signature) : std::nullopt;
}

std::optional<CodeSignature> readSealed(const FileSystem& files, const Path& folder) {
    const auto codeDirectory = files.open(folder / "CodeDirectory");
    if (!codeDirectory)
        return std::nullopt;
    const auto cms = files.open(folder / "CodeSignature");
    return parseDetachedSignature(ByteSource(*codeDirectory),
                                  cms ? ByteSource(*cms) : ByteSource(ByteView()));
}

} // namespace

std::optional<CodeSignature> readFileSignature(const FileSystem& files, const Path& file) {
    const auto opened = files.open(file);
    return opened ? readEmbedded(*opened) : std::nullopt;
}

std::optional<CodeSignature> readBundleSignature(const FileSystem& files, const Path& bundle,
                                                 const std::optional<Path>& executable) {
    // Some plug-ins of old are a bare file with a bundle's name.
    if (const auto opened = files.open(executable.value_or(bundle))) {
        if (auto signature = readEmbedded(*opened))
            return signature;
        // Code that could carry its signature and does not is unsigned, whatever lies beside it.
        if (canHoldEmbeddedSignature(ByteSource(*opened)))
            return std::nullopt;
    }
    for (const char* folder : {"Contents/_CodeSignature", "_CodeSignature"}) {
        if (auto signature = readSealed(files, bundle / folder))
            return signature;
    }
    return std::nullopt;
}

} // namespace veridane
