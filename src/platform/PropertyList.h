#pragma once

#include "platform/ByteView.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veridane {

/// A property list whose root is a dictionary, in the XML or the binary form. A damaged or hostile
/// list (nested without end, unfolding shared objects, keys that are no text) is simply not one.
class PropertyList {
public:
    /// Files above this size are no property list that anybody meant, in bytes.
    static constexpr std::uint64_t maxFileSize = std::uint64_t{64} << 20;

    [[nodiscard]] static std::optional<PropertyList> parse(ByteView bytes);

    ~PropertyList();
    PropertyList(PropertyList&&) noexcept;
    PropertyList& operator=(PropertyList&&) noexcept;

    /// The text under a key of the root; nothing if there is none or it is of another type.
    [[nodiscard]] std::optional<std::string> text(std::string_view key) const;

    /// The list of texts under a key; nothing if it is missing, no list, or holds anything else.
    [[nodiscard]] std::optional<std::vector<std::string>> textList(std::string_view key) const;

private:
    struct Implementation;
    explicit PropertyList(std::unique_ptr<Implementation> implementation);
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace veridane
