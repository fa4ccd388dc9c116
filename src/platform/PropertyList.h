#pragma once

#include "platform/ByteView.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {

class FileSystem;
class Path;

/// A property list whose root is a dictionary, in the binary form or in XML, as UTF-8 or as UTF-16
/// with a byte order mark. A damaged or hostile list (nested without end, unfolding shared objects,
/// keys that are no text) is simply not one.
class PropertyList {
public:
    /// Files above this size are no property list that anybody meant, in bytes. Reading one takes
    /// several times as much.
    static constexpr std::uint64_t maxFileSize = std::uint64_t{8} << 20;

    /// A longer text is no name or path, but would go through everything that we show and write:
    /// thousands of bundles can share one list.
    static constexpr std::uint64_t maxTextSize = std::uint64_t{4} << 10; // bytes of UTF-8

    [[nodiscard]] static std::optional<PropertyList> parse(ByteView bytes);

    /// The list in a file, links followed; nothing as well where there is no file to be read.
    [[nodiscard]] static std::optional<PropertyList> read(const FileSystem& files,
                                                          const Path& path);

    ~PropertyList();
    PropertyList(PropertyList&&) noexcept;
    PropertyList& operator=(PropertyList&&) noexcept;

    /// The text under a key of the root; nothing if there is none, or it is of another type or
    /// above `maxTextSize`.
    [[nodiscard]] std::optional<std::string> text(std::string_view key) const;

    /// The list of texts under a key; nothing if it is missing, no list, or holds anything else or
    /// a text above `maxTextSize`.
    [[nodiscard]] std::optional<std::vector<std::string>> textList(std::string_view key) const;

private:
    struct Implementation;
    explicit PropertyList(std::unique_ptr<Implementation> implementation);
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace veridane
