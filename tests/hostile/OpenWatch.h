#pragma once

#include "platform/Descriptor.h"
#include "support/VolumeTest.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>

namespace veridane::test {

/// Hears from the system whenever anybody opens one of the files or folders that it watches.
class OpenWatch {
public:
    OpenWatch() : m_queue(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

    void add(const std::string& path) {
        const int number =
            ::inotify_add_watch(m_queue.get(), path.c_str(), IN_OPEN | IN_DONT_FOLLOW);
        EXPECT_GE(number, 0) << path;
        m_paths[number] = path;
    }

    /// A folder with all folders in it; the files in them are watched as well.
    void addTree(const std::string& path) {
        Texts folders{path};
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
            if (entry.is_directory())
                folders.push_back(entry.path());
        }
        for (const std::string& folder : folders)
            add(folder);
    }

    /// What has been opened since the last call.
    [[nodiscard]] Texts opened() {
        Texts paths;
        alignas(inotify_event) char events[4096];
        for (;;) {
            const auto size = ::read(m_queue.get(), events, sizeof events);
            if (size <= 0)
                return paths;
            for (const char* at = events; at < events + size;) {
                const auto* event = reinterpret_cast<const inotify_event*>(at);
                paths.push_back(m_paths[event->wd] + '/' + (event->len > 0 ? event->name : ""));
                at += sizeof *event + event->len;
            }
        }
    }

private:
    Descriptor m_queue;
    std::map<int, std::string> m_paths;
};

} // namespace veridane::test
