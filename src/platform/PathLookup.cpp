#include "platform/PathLookup.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <vector>

namespace veridane {
namespace {

constexpr int maxLinks = 40; // as many as Linux itself follows

// Folders gone through for one path, over all links and again after each "..". Real paths take some
// dozens, and the longest that can be written 2048; one made of nothing but ".." would keep a scan
// busy for minutes.
constexpr int maxSteps = 4096;

// Without its links a path can be longer than the system takes in one piece.
constexpr std::size_t maxBytes = std::size_t{maxLinks + 1} * PATH_MAX;

class Lookup {
public:
    Lookup(const QuietOpener& opener, const std::string& root) : m_opener(opener), m_root(root) {}

    std::optional<Location> run(const Path& path, LastLink lastLink) {
        // No name of the system's holds a NUL.
        if (path.bytes().size() >= maxBytes || path.bytes().find('\0') != std::string::npos)
            return nothing(ENOENT);
        if (!restart())
            return std::nullopt;
        const Way way = goStraight(path);
        if (way == Way::missing)
            return std::nullopt;
        push(way == Way::straight ? path.name() : path.bytes());
        while (!m_pending.empty()) {
            const std::string component = std::move(m_pending.back());
            m_pending.pop_back();
            const bool isLast = m_pending.empty();
            if (component == ".")
                continue; // what stands in front of it has proved to be a folder
            if (component == "..") {
                if (!goUp())
                    return std::nullopt;
            } else if (isLast) {
                if (lastLink == LastLink::keep || !followLink(component))
                    return found(component);
            } else if (!goDownOrFollow(component)) {
                return std::nullopt;
            }
            if (m_links > maxLinks)
                return nothing(ELOOP);
        }
        return Location{std::move(m_folder), ".", Path(m_resolved)};
    }

private:
    /// Whoever asks why must not find the reason of an earlier failure.
    static std::nullopt_t nothing(int error) {
        errno = error;
        return std::nullopt;
    }

    bool restart() {
        m_resolved.clear();
        m_folder = m_opener.root(m_root.c_str());
        if (!m_folder)
            m_opener.trouble()->note(errno);
        return static_cast<bool>(m_folder);
    }

    void push(std::string_view components) {
        while (!components.empty()) {
            const std::size_t slash = components.rfind('/');
            const std::size_t start = slash == std::string_view::npos ? 0 : slash + 1;
            const std::string_view component = components.substr(start);
            if (!component.empty())
                m_pending.emplace_back(component);
            components = components.substr(0, start == 0 ? 0 : slash);
        }
    }

    enum class Way { straight, missing, notStraight };

    /// Nearly every path is free of links. The system can find that out and open the last folder in
    /// one step, instead of one for each name.
    Way goStraight(const Path& path) {
        const std::size_t slash = path.bytes().rfind('/');
        if (slash == 0 || path.bytes().find("/.") != std::string::npos)
            return Way::notStraight;
        std::string above = path.bytes().substr(0, slash);
        Descriptor folder = m_opener.straightPassage(m_folder.get(), above.c_str() + 1);
        if (!folder)
            return errno == ENOENT ? Way::missing : Way::notStraight; // a link has its own error
        m_folder = std::move(folder);
        m_resolved = std::move(above);
        return Way::straight;
    }

    bool goDown(const std::string& component) {
        if (++m_steps > maxSteps) {
            errno = ELOOP;
            return false;
        }
        Descriptor next = m_opener.passage(m_folder.get(), component.c_str());
        if (!next)
            return false;
        m_folder = std::move(next);
        m_resolved += '/';
        m_resolved += component;
        return true;
    }

    /// Where neither succeeds, `errno` says why there is no such folder.
    bool goDownOrFollow(const std::string& component) {
        if (goDown(component))
            return true;
        const int error = errno;
        if (followLink(component))
            return true;
        m_opener.trouble()->note(error);
        errno = error;
        return false;
    }

    bool goUp() {
        const std::string above = m_resolved.substr(0, m_resolved.rfind('/'));
        if (!restart())
            return false;
        // Down again from the root and not through "..", which would leave it after a move.
        std::size_t start = 1;
        while (start < above.size()) {
            const std::size_t end = std::min(above.find('/', start), above.size());
            if (!goDown(above.substr(start, end - start)))
                return false;
            start = end + 1;
        }
        return true;
    }

    bool followLink(const std::string& component) {
        char target[PATH_MAX];
        const auto length = ::readlinkat(m_folder.get(), component.c_str(), target, sizeof target);
        if (length <= 0 || length == sizeof target)
            return false;
        ++m_links;
        const std::string_view text(target, static_cast<std::size_t>(length));
        if (text.front() == '/' && !restart())
            return false;
        push(text);
        return true;
    }

    Location found(const std::string& component) {
        return {std::move(m_folder), component, Path(m_resolved) / component};
    }

    const QuietOpener& m_opener;
    const std::string& m_root;
    Descriptor m_folder;
    std::string m_resolved; // the components of m_folder, each behind a slash; empty for the root
    std::vector<std::string> m_pending; // the next one last
    int m_links = 0;
    int m_steps = 0;
};

} // namespace

std::optional<Location> locate(const QuietOpener& opener, const std::string& root, const Path& path,
                               LastLink lastLink) {
    return Lookup(opener, root).run(path, lastLink);
}

} // namespace veridane
