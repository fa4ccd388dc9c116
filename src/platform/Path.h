#pragma once

#include <string>
#include <string_view>

namespace veridane {

/// An absolute path on the examined volume, as the Mac has it: `/Applications/Foo.app`. Never a
/// path of the machine that the program runs on. It keeps the bytes of the names as they stand on
/// disk, whatever their encoding; `text` is for people, JSON and logs.
class Path {
public:
    /// The volume's root.
    Path() : m_bytes("/") {}

    /// A missing slash in front is added, repeated slashes count once and one at the end falls
    /// away. Components "." and ".." stay as written.
    explicit Path(std::string_view bytes);

    [[nodiscard]] const std::string& bytes() const { return m_bytes; }

    /// Valid UTF-8; what is not valid in the bytes is shown as U+FFFD.
    [[nodiscard]] std::string text() const;

    /// The last component; "/" for the root.
    [[nodiscard]] std::string_view name() const;

    /// What stands behind the last dot of `name`, without the dot. Empty without a dot, and for a
    /// name whose only dot is its first character.
    [[nodiscard]] std::string_view extension() const;

    /// `name` without its extension and the dot before it.
    [[nodiscard]] std::string_view stem() const;

    /// Appends one or more components. Never joins: text that begins with a slash stays below this
    /// path, so that a bundle cannot name a file outside by an absolute path.
    [[nodiscard]] Path operator/(std::string_view components) const;

    bool operator==(const Path&) const = default;

private:
    std::string m_bytes;
};

} // namespace veridane
