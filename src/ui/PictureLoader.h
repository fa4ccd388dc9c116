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
    /// Both must outlive the loader.
    PictureLoader(HttpClient& client, MainQueue& queue);
    ~PictureLoader();
    PictureLoader(const PictureLoader&) = delete;
    PictureLoader& operator=(const PictureLoader&) = delete;

    /// `onPicture` is called on the main thread, or never: for an address that is none, an answer
    /// that is no success, what is no picture of the web's common pixel formats, one that is too
    /// large, and after the loader is gone.
    void load(const std::string& address, std::function<void(const QImage&)> onPicture);

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace veridane::ui
