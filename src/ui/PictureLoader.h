#pragma once

#include <QImage>

#include <functional>
#include <memory>
#include <string>

namespace veridane {
class HttpClient;
class MainQueue;
} // namespace veridane

namespace veridane::ui {

/// Fetches small pictures, such as the icons of applications. For the main thread; neither it nor
/// the thread of the client decodes them.
class PictureLoader {
public:
    /// The client must outlive the loader. The queue must outlive the client, which ends transfers
    /// that nobody waits for any more.
    PictureLoader(HttpClient& client, MainQueue& queue);

    /// Waits for the one picture that is being decoded, a fraction of a second at most.
    ~PictureLoader();
    PictureLoader(const PictureLoader&) = delete;
    PictureLoader& operator=(const PictureLoader&) = delete;

    /// `onPicture` is called on the main thread, or never: for an address that is none, an answer
    /// that is no success or takes too long, what `decodedPicture` makes nothing of, what has more
    /// than four megabytes, and after the loader is gone. It may destroy the loader.
    void load(const std::string& address, std::function<void(const QImage&)> onPicture);

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace veridane::ui
