#include "ui/PictureLoader.h"

#include "platform/HttpClient.h"
#include "platform/MainQueue.h"
#include "platform/SerialWorker.h"
#include "ui/PictureDecoder.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <unordered_map>
#include <utility>
#include <variant>

namespace veridane::ui {
namespace {

constexpr std::chrono::seconds patience{30};
constexpr std::uint64_t largestPicture = 4 << 20; // bytes
constexpr std::size_t mostAtOnce = 8;             // and so many of them in memory, decoded or not

bool isSuccess(const HttpOutcome& outcome) {
    const auto* const status = std::get_if<HttpStatus>(&outcome);
    return status && status->isSuccess();
}

} // namespace

/// A picture goes from the client's thread to the main one, from there to the worker and back: so
/// all of this but the flag is the main thread's, and goes there as well.
struct PictureLoader::State : std::enable_shared_from_this<State> {
    using Handler = std::function<void(const QImage&)>;
    using Ticket = std::uint64_t;
    using Body = std::shared_ptr<std::string>;
    struct Wish {
        Url url;
        Handler onPicture;
    };

    State(HttpClient& httpClient, MainQueue& mainQueue) : client(httpClient), queue(mainQueue) {}
    ~State() { isGone = true; }

    void startWaiting();
    void fetch(Wish wish);
    void decode(Ticket ticket, const Body& body);
    void finish(Ticket ticket, const QImage& picture);

    HttpClient& client;
    MainQueue& queue;
    std::deque<Wish> waiting;
    std::unordered_map<Ticket, Handler> running;
    Ticket lastTicket = 0;
    std::atomic<bool> isGone = false;
    SerialWorker worker; // last: what it has begun uses the above
};

void PictureLoader::State::startWaiting() {
    while (running.size() < mostAtOnce && !waiting.empty()) {
        Wish next = std::move(waiting.front());
        waiting.pop_front();
        fetch(std::move(next));
    }
}

void PictureLoader::State::fetch(Wish wish) {
    const Ticket ticket = ++lastTicket;
    running.emplace(ticket, std::move(wish.onPicture));
    const auto body = std::make_shared<std::string>();
    const auto onBody = [body, weak = weak_from_this()](std::string_view piece) {
        if (!weak.expired()) // else the transfer goes on, but nothing has to be kept
            *body += piece;
    };
    const auto onEnd = [body, ticket, weak = weak_from_this(),
                        &mainQueue = queue](const HttpOutcome& outcome) {
        if (!isSuccess(outcome))
            body->clear();
        mainQueue.post([body, ticket, weak] {
            if (const auto state = weak.lock())
                state->decode(ticket, body);
        });
    };
    client.get({.url = wish.url, .duration = patience, .largestBody = largestPicture}, onBody,
               onEnd);
}

void PictureLoader::State::decode(Ticket ticket, const Body& body) {
    worker.post([this, body, ticket, weak = weak_from_this()] {
        if (isGone)
            return;
        queue.post([ticket, weak, picture = decodedPicture(bytesOf(*body))] {
            if (const auto state = weak.lock())
                state->finish(ticket, picture);
        });
    });
}

void PictureLoader::State::finish(Ticket ticket, const QImage& picture) {
    const auto entry = running.extract(ticket);
    startWaiting();
    if (!picture.isNull())
        entry.mapped()(picture); // last: it may be the end of the loader
}

PictureLoader::PictureLoader(HttpClient& client, MainQueue& queue)
    : m_state(std::make_shared<State>(client, queue)) {}

PictureLoader::~PictureLoader() = default;

void PictureLoader::load(const std::string& address, std::function<void(const QImage&)> onPicture) {
    if (const auto url = Url::parse(address))
        m_state->waiting.push_back({*url, std::move(onPicture)});
    m_state->startWaiting();
}

} // namespace veridane::ui
